#pragma once

#include <QBasicTimer>
#include <QPoint>

namespace brindlex {

class RichTextView;

/// Scrolls a view while the pointer is held beyond its viewport, or within `margin` pixels of the
/// viewport's edge: the farther out, the faster. The view hands on the events of its timers.
class AutoScroll {
  public:
    AutoScroll(RichTextView& view, int margin) : view_(view), margin_(margin) {}

    /// The pointer is at `pointer`, in pixels of the viewport.
    void follow(QPoint pointer);
    void stop() { timer_.stop(); }
    bool owns(int timerId) const { return timer_.isActive() && timer_.timerId() == timerId; }
    void step();
    /// Where the pointer is, or the nearest pixel of the viewport.
    QPoint pointer() const;

  private:
    /// How far the pointer is out on the left or the top (negative), or on the right or the bottom.
    QPoint distance() const;

    RichTextView& view_;
    int margin_;
    QPoint pointer_;
    QBasicTimer timer_;
};

}  // namespace brindlex
