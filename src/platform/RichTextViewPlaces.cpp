// Where the characters of a RichTextView stand on the screen, and what stands at a place.

#include <QScrollBar>
#include <QStyle>
#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/LineLayouts.h"
#include "platform/LineStyle.h"
#include "platform/RichTextView.h"
#include "platform/ShownLines.h"
#include "platform/TextRows.h"

namespace brindlex {
namespace {

constexpr qreal kMargin = 2;

int pixel(qreal place) {
    using Int = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<qreal>(std::floor(place), Int::min(), Int::max()));
}

QRect pixels(const QRectF& rect) {
    return {pixel(rect.left()), pixel(rect.top()), std::max(1, pixel(rect.width())),
            std::max(1, pixel(rect.height()))};
}

}  // namespace

qreal RichTextView::textLeft() const {
    return kMargin;
}

qreal RichTextView::viewHeight() const {
    return viewport()->height();
}

int RichTextView::caretWidth() const {
    return std::max(1, style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, this));
}

QRectF RichTextView::placeRect(Offset offset) const {
    const Offset wanted = std::min(offset, Offset(box_.length()));
    const LineIndex line = box_.rope().lineOf(wanted);
    const Range content = box_.lineContent(line);
    const std::size_t column = std::min(wanted, content.end()) - content.begin();
    const qreal lineTop = rows_->yOf(line);
    const LineLayout& layout = layouts_->at(line);
    const LineLayout::Row row = layout.row(layout.rowOf(column));
    const Preedit& preedit = layouts_->preedit();
    const bool inPreedit = !preedit.text.isEmpty() && offset == box_.caret();
    const qreal x = inPreedit ? layout.preeditX(preedit.cursor) : layout.xOf(column);
    const bool last = column + 1 >= row.end;
    const qreal next = last ? std::max(row.width, x) : layout.xOf(column + 1);
    const qreal width = column < row.end ? std::abs(next - x) : style_->averageAdvance();
    const qreal left = column < row.end ? std::min(x, next) : x;
    const qreal originX = textLeft() - horizontalScrollBar()->value();
    return {originX + (inPreedit ? x : left), lineTop + row.top, width, row.height};
}

QPoint RichTextView::posFromChar(Long offset) const {
    settle();
    const auto wanted = static_cast<std::size_t>(std::max<Long>(0, offset));
    return pixels(placeRect(Offset(wanted))).topLeft();
}

QRect RichTextView::characterRect(Offset offset) const {
    settle();
    return pixels(placeRect(offset));
}

QRect RichTextView::caretRectAt(Offset offset) const {
    QRect rect = pixels(placeRect(offset));
    if (!hasBlockCaret()) rect.setWidth(caretWidth());
    return rect;
}

bool RichTextView::hasBlockCaret() const {
    return overwrite_ && preedit().isEmpty();
}

QRect RichTextView::caretRect() const {
    settle();
    return caretRectAt(box_.caret());
}

Offset RichTextView::positionAt(QPoint point) const {
    settle();
    const RowPlace place = rows_->at(point.y(), viewHeight());
    const qreal x = point.x() + horizontalScrollBar()->value() - textLeft();
    const std::size_t column = layouts_->at(place.line).columnAt(place.row, x);
    return box_.lineContent(place.line).begin() + column;
}

bool RichTextView::isOnSelection(QPoint point) const {
    if (box_.selection().empty() || !viewport()->rect().contains(point)) return false;
    settle();
    const RowPlace place = rows_->at(point.y(), viewHeight());
    if (point.y() >= shown_->bottom() && !pending_) return false;
    const qreal x = point.x() + horizontalScrollBar()->value() - textLeft();
    const auto column = layouts_->at(place.line).characterAt(place.row, x);
    if (!column) return false;
    const Offset offset = box_.lineContent(place.line).begin() + *column;
    return box_.selection().begin() <= offset && offset < box_.selection().end();
}

Offset RichTextView::positionRowsAway(Offset from, int rows, int x) const {
    settle();
    const Offset start = std::min(from, Offset(box_.length()));
    const RowPlace place = rows_->moved(rows_->placeOf(start), rows);
    const qreal wanted = x + horizontalScrollBar()->value() - textLeft();
    const std::size_t column = layouts_->at(place.line).columnAt(place.row, wanted);
    return box_.lineContent(place.line).begin() + column;
}

LineSelection RichTextView::selectionIn(LineIndex line, Range content) const {
    const Range selection = box_.selection();
    if (!highlights() || selection.empty()) return {};
    const Offset begin = std::clamp(selection.begin(), content.begin(), content.end());
    const Offset end = std::clamp(selection.end(), content.begin(), content.end());
    const bool hasBreak = line.value() < box_.rope().breakCount();
    const bool breakSelected =
        hasBreak && selection.begin() <= content.end() && selection.end() > content.end();
    return {begin - content.begin(), end - content.begin(), breakSelected};
}

}  // namespace brindlex
