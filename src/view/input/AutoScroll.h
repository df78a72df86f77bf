#pragma once

#include <QPoint>
#include <QTimer>
#include <functional>

namespace brindlex {

class RichTextView;

/// Scrolls a view while the pointer is held beyond its viewport, or within `margin` pixels of the
/// viewport's edge: the farther out, the faster.
class AutoScroll {
  public:
    /// `scrolled` is called after each step. `view` outlives this object.
    AutoScroll(RichTextView& view, int margin, std::function<void()> scrolled);

    /// The pointer is at `pointer`, in pixels of the viewport.
    void follow(QPoint pointer);
    void stop() { timer_.stop(); }
    /// Where the pointer is, or the nearest pixel of the viewport.
    QPoint pointer() const;

  private:
    void step();
    /// How far the pointer is out on the left or the top (negative), or on the right or the bottom.
    QPoint distance() const;

    RichTextView& view_;
    int margin_;
    std::function<void()> scrolled_;
    QPoint pointer_;
    QTimer timer_;
};

}  // namespace brindlex
