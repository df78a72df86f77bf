#include "platform/ShownLines.h"

#include <algorithm>
#include <cmath>

namespace brindlex {

bool ShownLines::shows(LineIndex line) const {
    return !lines_.empty() && lines_.front().line <= line && line <= lines_.back().line;
}

QRegion ShownLines::changedSince(const ShownLines& before) const {
    if (!(frame_ == before.frame_)) return QRect(QPoint(0, 0), frame_.size);
    QRegion changed;
    for (const Line& line : lines_)
        if (!before.holds(line)) changed += strip(line.top, line.bottom);
    if (bottom() < before.bottom()) changed += strip(bottom(), before.bottom());
    return changed;
}

bool ShownLines::holds(const Line& line) const {
    const auto same = std::lower_bound(lines_.begin(), lines_.end(), line.top,
                                       [](const Line& a, qreal top) { return a.top < top; });
    return same != lines_.end() && same->top == line.top && same->bottom == line.bottom &&
           same->serial == line.serial && same->selection == line.selection;
}

QRect ShownLines::strip(qreal top, qreal bottom) const {
    const int first = static_cast<int>(std::floor(top));
    return {0, first, frame_.size.width(), static_cast<int>(std::ceil(bottom)) - first};
}

}  // namespace brindlex
