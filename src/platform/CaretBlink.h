#pragma once

#include <QTimer>
#include <functional>

class QWidget;

namespace brindlex {

/// The blinking of a widget's caret: it shows while the widget has the focus, on and off by the
/// system's period, or without a break where the system does not blink.
class CaretBlink {
  public:
    /// `toggled` is called whenever the caret appears or disappears of itself, and when a restart
    /// brings it back. `widget` outlives this object.
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
