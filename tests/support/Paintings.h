#pragma once

#include <QPaintEvent>
#include <QWidget>

namespace brindlex {

/// Notes how often a widget is painted, and what of it.
class Paintings : public QObject {
  public:
    explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++count;
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
    int count = 0;
    QRegion region;
};

}  // namespace brindlex
