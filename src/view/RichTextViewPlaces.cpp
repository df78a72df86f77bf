// Where the characters of a RichTextView stand on the screen, and what stands at a place.

#include <algorithm>

#include "view/RichTextView.h"
#include "view/Scrolling.h"
#include "view/ToolkitInt.h"
#include "view/layout/LineLayouts.h"

namespace brindlex {
namespace {

QRect pixels(const QRectF& rect) {
    return {toInt(rect.left()), toInt(rect.top()), std::max(1, toInt(rect.width())),
            std::max(1, toInt(rect.height()))};
}

}  // namespace

// --- What shows ----------------------------------------------------------------------------------

Long RichTextView::linesPerPage() const {
    return static_cast<Long>(scrolling_->linesPerPage());
}

LineIndex RichTextView::firstVisibleLine() {
    scrolling_->settle();
    return scrolling_->topLine();
}

void RichTextView::lineScroll(Long lines) {
    scrolling_->byLines(lines);
}

void RichTextView::setCover(int top, int end) {
    if (!scrolling_->setCover(top, end)) return;
    if (viewport()->rect().intersects(shownCaret_)) scrolling_->bringCaret();
    changed();
}

void RichTextView::ensureCaretVisible() {
    scrolling_->bringCaret();
    changed();
}

void RichTextView::followCaret() {
    if (allSelected())
        scrolling_->dropPendingCaret();
    else
        ensureCaretVisible();
}

// --- Where characters stand ----------------------------------------------------------------------

QPoint RichTextView::posFromChar(Long offset) {
    scrolling_->settle();
    const auto wanted = static_cast<std::size_t>(std::max<Long>(0, offset));
    return pixels(scrolling_->rectOf(Offset(wanted))).topLeft();
}

QRect RichTextView::characterRect(Offset offset) {
    scrolling_->settle();
    return pixels(scrolling_->rectOf(offset));
}

QRect RichTextView::caretRectAt(Offset offset) const {
    QRect rect = pixels(scrolling_->rectOf(offset));
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
    return positionIn(scrolling_->lineAt(point.y()), point.x());
}

Offset RichTextView::positionIn(LineIndex line, int x) {
    return box_.lineContent(line).begin() + layouts_->at(line).columnAt(x - scrolling_->textX());
}

bool RichTextView::isOnSelection(QPoint point) {
    if (box_.selection().empty() || !viewport()->rect().contains(point)) return false;
    scrolling_->settle();
    const LineIndex line = scrolling_->lineAt(point.y());
    if (point.y() >= scrolling_->yOf(line + 1)) return false;  // below the text
    const auto column = layouts_->at(line).characterAt(point.x() - scrolling_->textX());
    if (!column) return false;
    const Offset offset = box_.lineContent(line).begin() + *column;
    return box_.selection().begin() <= offset && offset < box_.selection().end();
}

Offset RichTextView::positionLinesAway(Offset from, Long lines, int x) {
    scrolling_->settle();
    const Long line = box_.GetLineFromChar(static_cast<Long>(from.value()));
    const Long wanted = line + std::clamp(lines, -line, box_.GetLineCount() - 1 - line);
    return positionIn(LineIndex(static_cast<std::size_t>(wanted)), x);
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
