#include "system/MousePointer.h"

#include <iterator>

namespace brindlex {
namespace {

constexpr QSize kLargestCursor(32, 32);

constexpr Qt::CursorShape kCursors[] = {
    Qt::ArrowCursor,      // arrow
    Qt::CrossCursor,      // cross
    Qt::IBeamCursor,      // I-beam
    Qt::ArrowCursor,      // icon
    Qt::SizeAllCursor,    // size
    Qt::SizeBDiagCursor,  // size north-east to south-west
    Qt::SizeVerCursor,    // size north to south
    Qt::SizeFDiagCursor,  // size north-west to south-east
    Qt::SizeHorCursor,    // size west to east
    Qt::UpArrowCursor,    // up arrow
    Qt::WaitCursor,       // hourglass
    Qt::ForbiddenCursor,  // no drop
    Qt::BusyCursor,       // arrow and hourglass
    Qt::WhatsThisCursor,  // arrow and question mark
    Qt::SizeAllCursor,    // size all
};
static_assert(std::size(kCursors) == kLastPointer);

QCursor customCursor(const QPixmap& icon) {
    const QSize size = icon.size();
    if (size.boundedTo(kLargestCursor) == size) return QCursor(icon);
    const QSize smaller = size.scaled(kLargestCursor, Qt::KeepAspectRatio).expandedTo({1, 1});
    return QCursor(icon.scaled(smaller, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

}  // namespace

std::optional<QCursor> cursorOf(std::int64_t pointer, const QPixmap& icon) {
    if (pointer == kCustomPointer && !icon.isNull()) return customCursor(icon);
    if (pointer <= kDefaultPointer || pointer > kLastPointer) return std::nullopt;
    return kCursors[pointer - 1];
}

}  // namespace brindlex
