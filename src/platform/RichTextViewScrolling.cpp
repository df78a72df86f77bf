// Which part of the text a RichTextView shows: its scroll bars, wheel and touch, and the caret that
// comes into view.

#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "platform/LineLayouts.h"
#include "platform/LineStyle.h"
#include "platform/RichTextView.h"
#include "platform/ShownLines.h"
#include "platform/TextRows.h"

namespace brindlex {
namespace {

int toInt(qreal value) {
    return static_cast<int>(std::min<qreal>(value, std::numeric_limits<int>::max()));
}

}  // namespace

// --- What shows ----------------------------------------------------------------------------------

LineIndex RichTextView::firstVisibleLine() const {
    settle();
    return rows_->top().line;
}

int RichTextView::rowsPerPage() const {
    return std::max(1, static_cast<int>(viewHeight() / style_->baseRowHeight()));
}

void RichTextView::lineScroll(Long lines) {
    settle();
    const Long last = static_cast<Long>(box_.rope().breakCount());
    const Long top = static_cast<Long>(rows_->top().line.value());
    const Long wanted = top + std::clamp(lines, -top, last - top);
    rows_->setTop({LineIndex(static_cast<std::size_t>(wanted)), 0});
    clampTop();
    changed();
}

void RichTextView::scrollRows(Long rows) {
    if (rows == 0) return;
    settle();
    rows_->setTop(rows_->moved(rows_->top(), rows));
    clampTop();
    changed();
}

void RichTextView::clampTop() const {
    rows_->setTop(rows_->top());
    if (rows_->top() == RowPlace()) return;
    const qreal bottom = rows_->visit(viewHeight(), [](LineIndex, const LineLayout&, qreal) {});
    if (bottom < viewHeight()) rows_->setTop(std::min(rows_->top(), rows_->lastTop(viewHeight())));
}

// --- The caret comes into view -------------------------------------------------------------------

void RichTextView::ensureCaretVisible() {
    showCaret_ = true;
    changed();
}

void RichTextView::settle() const {
    if (showCaret_) scrollToCaret();
}

void RichTextView::scrollToCaret() const {
    showCaret_ = false;
    const RowPlace caret = rows_->placeOf(box_.caret());
    if (caret < rows_->top())
        rows_->setTop(caret);
    else
        rows_->setTop(std::max(rows_->top(), rows_->topShowing(caret, viewHeight())));
    const QRectF place = placeRect(box_.caret());
    scrollToColumn(place.left() + horizontalScrollBar()->value() - textLeft(), place.width());
}

void RichTextView::scrollToColumn(qreal x, qreal width) const {
    const qreal view = viewport()->width() - 2 * textLeft();
    const qreal present = horizontalScrollBar()->value();
    if (x >= present && x + width <= present + view) return;
    const qreal slack = std::min(view / 4, 4 * style_->averageAdvance());
    qreal wanted = std::max(0.0, x - slack);
    if (x + width > present) wanted = x + width - view + slack;
    if (x + width + slack <= view) wanted = 0;
    contentWidth_ = std::max(contentWidth_, x + width + slack);
    updateHorizontalBar();
    const QScopedValueRollback guard(syncing_, true);
    horizontalScrollBar()->setValue(toInt(std::ceil(std::max(0.0, wanted))));
}

// --- Scroll bars ---------------------------------------------------------------------------------

void RichTextView::updateScrollBars() {
    const RowPlace top = rows_->top();
    LineIndex lastSeen;
    const auto see = [&](LineIndex line, const LineLayout& layout, qreal) {
        contentWidth_ = std::max(contentWidth_, layout.width());
        lastSeen = line;
    };
    const qreal bottom = rows_->visit(viewHeight(), see);
    const bool endShows = bottom <= viewHeight() && lastSeen.value() == box_.rope().breakCount();
    const Long lines = static_cast<Long>(box_.rope().breakCount()) + 1;
    const Long line = static_cast<Long>(top.line.value());
    // the bar counts lines; the end of a last line of several rows is one step further
    const Long value = endShows && top.row > 0 ? line + 1 : line;
    const Long last = endShows ? value : std::max(lines - rowsPerPage(), line + 1);
    updateHorizontalBar();
    const QScopedValueRollback guard(syncing_, true);
    verticalScrollBar()->setPageStep(rowsPerPage());
    verticalScrollBar()->setRange(0, toInt(static_cast<qreal>(last)));
    verticalScrollBar()->setValue(toInt(static_cast<qreal>(value)));
}

void RichTextView::updateHorizontalBar() const {
    const QScopedValueRollback guard(syncing_, true);
    const int width = viewport()->width();
    const bool fits =
        style_->wraps() && rightMargin_ == 0 && contentWidth_ <= style_->availableWidth();
    const qreal content = fits ? 0 : contentWidth_ + 2 * textLeft() + caretWidth();
    horizontalScrollBar()->setPageStep(width);
    horizontalScrollBar()->setSingleStep(toInt(std::ceil(3 * style_->averageAdvance())));
    horizontalScrollBar()->setRange(0, toInt(std::max(0.0, std::ceil(content) - width)));
}

void RichTextView::scrollContentsBy(int, int dy) {
    if (syncing_) return;
    showCaret_ = false;  // who scrolls is not brought back
    if (dy != 0) {
        const auto line = static_cast<std::size_t>(verticalScrollBar()->value());
        rows_->setTop({LineIndex(line), 0});
        clampTop();
    }
    changed();
}

// --- Wheel and touch -----------------------------------------------------------------------------

void RichTextView::wheelEvent(QWheelEvent* event) {
    constexpr qreal kNotch = 120;
    const qreal lines = QApplication::wheelScrollLines();
    const QPointF notches = QPointF(event->angleDelta()) / kNotch;
    const bool byPixels = !event->pixelDelta().isNull();
    const QPointF pixels = byPixels ? QPointF(event->pixelDelta())
                                    : QPointF(notches.x() * lines * 3 * style_->averageAdvance(),
                                              notches.y() * lines * style_->baseRowHeight());
    wheel_ -= pixels;
    constexpr qreal kRoundingError = 1e-6;
    const qreal rows = std::trunc(wheel_.y() / style_->baseRowHeight() +
                                  std::copysign(kRoundingError, wheel_.y()));
    const int columns = static_cast<int>(wheel_.x());
    wheel_ -= QPointF(columns, rows * style_->baseRowHeight());
    scrollRows(static_cast<Long>(rows));
    horizontalScrollBar()->setValue(horizontalScrollBar()->value() + columns);
    event->accept();
}

bool RichTextView::viewportEvent(QEvent* event) {
    if (event->type() == QEvent::ScrollPrepare) {
        prepareTouchScroll(static_cast<QScrollPrepareEvent&>(*event));
        return true;
    }
    if (event->type() == QEvent::Scroll) {
        touchScroll(static_cast<QScrollEvent&>(*event));
        return true;
    }
    return QAbstractScrollArea::viewportEvent(event);
}

void RichTextView::prepareTouchScroll(QScrollPrepareEvent& event) const {
    const qreal row = style_->baseRowHeight();
    event.setViewportSize(viewport()->size());
    event.setContentPosRange(
        QRectF(0, 0, horizontalScrollBar()->maximum(), row * verticalScrollBar()->maximum()));
    event.setContentPos(
        QPointF(horizontalScrollBar()->value(), row * verticalScrollBar()->value()));
    event.accept();
}

void RichTextView::touchScroll(QScrollEvent& event) {
    const QPointF place = event.contentPos();
    horizontalScrollBar()->setValue(toInt(place.x()));
    verticalScrollBar()->setValue(toInt(std::round(place.y() / style_->baseRowHeight())));
    event.accept();
}

}  // namespace brindlex
