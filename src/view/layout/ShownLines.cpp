#include "view/layout/ShownLines.h"

#include <algorithm>

namespace brindlex {

QRegion ShownLines::changedSince(const ShownLines& before) const {
    if (!(frame_ == before.frame_)) return QRect(QPoint(0, 0), frame_.size);
    const auto lineAt = [](const ShownLines& lines, std::size_t row) {
        return row < lines.count() ? &lines.lines_[row] : nullptr;
    };
    QRegion changed;
    for (std::size_t row = 0; row < std::max(count(), before.count()); ++row) {
        const Line* now = lineAt(*this, row);
        const Line* then = lineAt(before, row);
        if (now && then && *now == *then) continue;
        const QRectF strip(0, static_cast<qreal>(row) * frame_.rowHeight, frame_.size.width(),
                           frame_.rowHeight);
        changed += strip.toAlignedRect();
    }
    return changed;
}

}  // namespace brindlex
