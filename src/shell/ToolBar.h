#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <optional>

class QTimer;

namespace brindlex {

class ToolBarButton;

/// The strip with the ten picture buttons, and the timer that shows which of them the pointer is
/// on.
class ToolBar : public QWidget {
  public:
    static constexpr int kButtons = 10;
    /// Runs the command of a menu entry, given by the entry's name.
    using Run = std::function<void(const QString& entry)>;

    /// The pictures lie in `Resources` in the program's folder.
    ToolBar(const QString& programFolder, Run run, QWidget* parent);

    /// The buttons are empty until the timer's first tick. It ticks every 10 milliseconds while a
    /// button is hot or held down, and rests otherwise until an event tells that the pointer or a
    /// window has moved. In a window that is not active it looks once a second all the same.
    void startTimer1();
    /// Gives each button that the mouse does not hold down its picture: the hot one if the pointer
    /// is on the button's rectangle on the screen, the normal one otherwise. The edges count, and
    /// so does the part that the strip cuts off, whatever window lies there. Does nothing while the
    /// strip does not show, or when nothing has changed since the last tick.
    void Timer1_Timer();

    /// Whether the mouse holds a button down; 0 is the first button of the table.
    bool ToolbarDown(int index) const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// What decides which buttons are hot.
    struct Seen {
        QPoint pointer;  // on the screen
        QPoint origin;   // of the strip, there
        bool operator==(const Seen&) const = default;
    };
    ToolBarButton* makeButton(int index, const QString& programFolder);
    void loadPictures(const Seen& now);
    void rest();
    void endPresses();
    void pressChanged(int index);
    void place(int index);

    Run run_;
    std::array<ToolBarButton*, kButtons> buttons_{};
    std::optional<Seen> seen_;
    QTimer* Timer1_;
};

}  // namespace brindlex
