#include "view/input/AutoScroll.h"

#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "view/RichTextView.h"

namespace brindlex {
namespace {

constexpr int kPeriod = 50;          // milliseconds
constexpr int kPixelsPerLine = 16;   // of distance: a step moves by a line more for each
constexpr int kPixelsToTheSide = 8;  // the least that a step moves

int outside(int value, int first, int last) {
    return std::min(value - first, 0) + std::max(value - last, 0);
}

int sign(int value) {
    return (value > 0) - (value < 0);
}

}  // namespace

AutoScroll::AutoScroll(RichTextView& view, int margin, std::function<void()> scrolled)
    : view_(view), margin_(margin), scrolled_(std::move(scrolled)) {
    QObject::connect(&timer_, &QTimer::timeout, [this] { step(); });
}

void AutoScroll::follow(QPoint pointer) {
    pointer_ = pointer;
    if (distance().isNull())
        timer_.stop();
    else if (!timer_.isActive())
        timer_.start(kPeriod);
}

void AutoScroll::step() {
    const QPoint far = distance();
    if (far.y() != 0) view_.lineScroll(far.y() / kPixelsPerLine + sign(far.y()));
    QScrollBar* bar = view_.horizontalScrollBar();
    if (far.x() != 0) bar->setValue(bar->value() + far.x() + kPixelsToTheSide * sign(far.x()));
    scrolled_();
}

QPoint AutoScroll::pointer() const {
    const QRect all = view_.viewport()->rect();
    return {std::clamp(pointer_.x(), all.left(), std::max(all.left(), all.right())),
            std::clamp(pointer_.y(), all.top(), std::max(all.top(), all.bottom()))};
}

QPoint AutoScroll::distance() const {
    const QRect calm = view_.viewport()->rect().adjusted(margin_, margin_, -margin_, -margin_);
    return {outside(pointer_.x(), calm.left(), calm.right()),
            outside(pointer_.y(), calm.top(), calm.bottom())};
}

}  // namespace brindlex
