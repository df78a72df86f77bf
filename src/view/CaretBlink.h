#pragma once

#include <QTimer>
#include <functional>

class QWidget;

namespace brindlex {

/// The blinking of a widget's caret. It shows only while the widget has the focus, on and off in
/// the system's rhythm, or all the time where the system has blinking off.
class CaretBlink {
  public:
    /// `toggled` is called whenever the caret appears or disappears. `widget` outlives this object.
    CaretBlink(const QWidget& widget, std::function<void()> toggled);

    /// The caret moved or the focus changed: a new period begins, with the caret on.
    void restart();
    bool shows() const;

  private:
    void set(bool on);

    const QWidget& widget_;
    std::function<void()> toggled_;
    QTimer timer_;
    bool on_ = true;
};

}  // namespace brindlex
