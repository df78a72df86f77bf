#include "view/CaretBlink.h"

#include <QGuiApplication>
#include <QStyleHints>
#include <QWidget>
#include <utility>

namespace brindlex {

CaretBlink::CaretBlink(const QWidget& widget, std::function<void()> toggled)
    : widget_(widget), toggled_(std::move(toggled)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { set(!on_); });
}

void CaretBlink::restart() {
    const int cycle = QGuiApplication::styleHints()->cursorFlashTime();
    const bool blinks = widget_.hasFocus() && cycle >= 2;
    if (blinks)
        timer_.start(cycle / 2);
    else
        timer_.stop();
    set(true);
}

bool CaretBlink::shows() const {
    return on_ && widget_.hasFocus();
}

void CaretBlink::set(bool on) {
    if (std::exchange(on_, on) != on) toggled_();
}

}  // namespace brindlex
