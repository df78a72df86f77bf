// Where the characters of a RichTextView stand on the screen, and what stands at a place.

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/LineLayouts.h"
#include "platform/RichTextView.h"
#include "platform/Scrolling.h"
#include "platform/ShownLines.h"

namespace brindlex {
namespace {

int pixel(qreal place) {
    using Int = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<qreal>(std::floor(place), Int::min(), Int::max()));
}

QRect pixels(const QRectF& rect) {
    return {pixel(rect.left()), pixel(rect.top()), std::max(1, pixel(rect.width())),
            std::max(1, pixel(rect.height()))};
}

}  // namespace

// --- What shows ----------------------------------------------------------------------------------

qreal RichTextView::viewHeight() const {
    return viewport()->height();
}

int RichTextView::rowsPerPage() const {
    return scrolling_->rowsPerPage();
}

LineIndex RichTextView::firstVisibleLine() {
    scrolling_->settle();
    return scrolling_->rows().top().line;
}

void RichTextView::lineScroll(Long lines) {
    scrolling_->byLines(lines);
}

void RichTextView::rowScroll(Long rows) {
    scrolling_->byRows(rows);
}

void RichTextView::ensureCaretVisible() {
    scrolling_->bringCaret();
    changed();
}

void RichTextView::followCaret() {
    if (allSelected())
        scrolling_->leaveCaret();
    else
        ensureCaretVisible();
}

// --- Where characters stand ----------------------------------------------------------------------

QRectF RichTextView::placeRect(Offset offset) const {
    return scrolling_->rows().rectOf(offset).translated(scrolling_->textX(), 0);
}

QPoint RichTextView::posFromChar(Long offset) {
    scrolling_->settle();
    const auto wanted = static_cast<std::size_t>(std::max<Long>(0, offset));
    return pixels(placeRect(Offset(wanted))).topLeft();
}

QRect RichTextView::characterRect(Offset offset) {
    scrolling_->settle();
    return pixels(placeRect(offset));
}

QRect RichTextView::caretRectAt(Offset offset) const {
    QRect rect = pixels(placeRect(offset));
    if (!hasBlockCaret()) rect.setWidth(scrolling_->caretWidth());
    return rect;
}

bool RichTextView::hasBlockCaret() const {
    return overwrite_ && preedit().isEmpty();
}

QRect RichTextView::caretRect() {
    scrolling_->settle();
    return caretRectAt(box_.caret());
}

Offset RichTextView::positionAt(QPoint point) {
    scrolling_->settle();
    const RowPlace place = scrolling_->rows().at(point.y(), viewHeight());
    const qreal x = point.x() - scrolling_->textX();
    const std::size_t column = layouts_->at(place.line).columnAt(place.row, x);
    return box_.lineContent(place.line).begin() + column;
}

bool RichTextView::isOnSelection(QPoint point) {
    if (box_.selection().empty() || !viewport()->rect().contains(point)) return false;
    scrolling_->settle();
    const RowPlace place = scrolling_->rows().at(point.y(), viewHeight());
    if (point.y() >= shown_->bottom() && !pending_) return false;
    const qreal x = point.x() - scrolling_->textX();
    const auto column = layouts_->at(place.line).characterAt(place.row, x);
    if (!column) return false;
    const Offset offset = box_.lineContent(place.line).begin() + *column;
    return box_.selection().begin() <= offset && offset < box_.selection().end();
}

Offset RichTextView::positionRowsAway(Offset from, int rows, int x) {
    scrolling_->settle();
    const TextRows& text = scrolling_->rows();
    const Offset start = std::min(from, Offset(box_.length()));
    const RowPlace place = text.moved(text.placeOf(start), rows);
    const qreal wanted = x - scrolling_->textX();
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
