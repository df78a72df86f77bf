#include "platform/ClickCounter.h"

#include <QGuiApplication>
#include <QStyleHints>

namespace brindlex {

void ClickCounter::doubleClicked(QPoint at) {
    sinceDouble_.start();
    place_ = at;
}

bool ClickCounter::isTriple(QPoint at) {
    const QStyleHints* hints = QGuiApplication::styleHints();
    const bool triple = sinceDouble_.isValid() &&
                        sinceDouble_.elapsed() < hints->mouseDoubleClickInterval() &&
                        (at - place_).manhattanLength() <= hints->mouseDoubleClickDistance();
    sinceDouble_.invalidate();
    return triple;
}

}  // namespace brindlex
