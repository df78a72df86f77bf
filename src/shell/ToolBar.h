#pragma once

#include <QTimer>
#include <QWidget>
#include <array>
#include <functional>
#include <optional>

namespace brindlex {

class ToolBarButton;

/// What the buttons run. One that is empty does nothing.
struct ToolBarCommands {
    std::function<void()> funNew_Click;
    std::function<void()> funOpen_Click;
    std::function<void()> funSave_Click;
    std::function<void()> funCut_Click;
    std::function<void()> funCopy_Click;
    std::function<void()> funPaste_Click;
    std::function<void()> funSearch_Click;
    std::function<void()> funComBlock_Click;
    std::function<void()> funUnComBlock_Click;
    std::function<void()> funCount_Click;
};

/// The strip with the ten picture buttons, and the timer that shows which of them the pointer is
/// on.
class ToolBar : public QWidget {
  public:
    static constexpr int kButtons = 10;

    /// The pictures lie in `Resources` in the program's folder.
    ToolBar(const QString& programFolder, const ToolBarCommands& commands, QWidget* parent);

    /// The buttons are empty until the timer's first tick.
    void startTimer1();
    /// Gives each button that the mouse does not hold down its picture: the hot one where the
    /// pointer is on its rectangle on the screen, edges and what the strip cuts off counted in,
    /// whatever window lies there. A strip that does not show is passed over, and so is a tick
    /// since whose forerunner nothing has changed.
    void Timer1_Timer();

    /// Whether the mouse holds that button down; 0 is the first button of the table.
    bool ToolbarDown(int index) const;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    /// What the pictures follow from, but for the buttons that are down.
    struct Seen {
        QPoint pointer;  // on the screen
        QPoint origin;   // of the strip, there
        bool operator==(const Seen&) const = default;
    };
    void makeButton(int index, const QString& programFolder, const ToolBarCommands& commands);
    void pressChanged(int index);
    void place(int index);

    std::array<ToolBarButton*, kButtons> buttons_{};
    std::optional<Seen> seen_;
    QTimer Timer1_{this};
};

}  // namespace brindlex
