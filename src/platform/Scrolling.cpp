#include "platform/Scrolling.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QScrollEvent>
#include <QScrollPrepareEvent>
#include <QScroller>
#include <QStyle>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace brindlex {
namespace {

int toInt(qreal value) {
    return static_cast<int>(std::min<qreal>(value, std::numeric_limits<int>::max()));
}

}  // namespace

Scrolling::Scrolling(QAbstractScrollArea& area, const RichTextBox& box, const LineStyle& style,
                     LineLayouts& layouts, std::function<void()> scrolled)
    : area_(area),
      box_(box),
      style_(style),
      rows_(box, style, layouts),
      scrolled_(std::move(scrolled)) {
    QScroller::grabGesture(area_.viewport(), QScroller::TouchGesture);
}

// --- The room for the text -----------------------------------------------------------------------

qreal Scrolling::textX() const {
    return kMargin - area_.horizontalScrollBar()->value();
}

qreal Scrolling::textWidth() const {
    return std::max(1.0, area_.viewport()->width() - 2 * kMargin - caretWidth());
}

int Scrolling::caretWidth() const {
    return std::max(1, area_.style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, &area_));
}

int Scrolling::rowsPerPage() const {
    return std::max(1, static_cast<int>(height() / style_.baseRowHeight()));
}

qreal Scrolling::height() const {
    return area_.viewport()->height();
}

// --- The top row ---------------------------------------------------------------------------------

void Scrolling::textChanged(const TextEdit& edit) {
    const std::size_t lengthBefore = box_.length() + edit.removed.length() - edit.inserted;
    const bool isNewText = edit.removed.length() == lengthBefore && lengthBefore > 0;
    rows_.textChanged(edit);
    if (!isNewText) return;
    forgetWidths();
    rows_.setTop({});
}

void Scrolling::byLines(Long lines) {
    settle();
    const Long last = static_cast<Long>(box_.rope().breakCount());
    const Long top = static_cast<Long>(rows_.top().line.value());
    const Long wanted = top + std::clamp(lines, -top, last - top);
    setTop({LineIndex(static_cast<std::size_t>(wanted)), 0});
    scrolled_();
}

void Scrolling::byRows(Long rows) {
    if (rows == 0) return;
    settle();
    setTop(rows_.moved(rows_.top(), rows));
    scrolled_();
}

void Scrolling::setTop(RowPlace top) {
    rows_.setTop(top);
    clampTop();
}

void Scrolling::clampTop() {
    if (rows_.top() == RowPlace()) return;
    const qreal bottom = rows_.visit(height(), [](LineIndex, const LineLayout&, qreal) {});
    if (bottom < height()) rows_.setTop(std::min(rows_.top(), rows_.lastTop(height())));
}

// --- The caret comes into view -------------------------------------------------------------------

void Scrolling::settle() {
    if (!std::exchange(caretWanted_, false)) return;
    const RowPlace caret = rows_.placeOf(box_.caret());
    if (caret < rows_.top())
        rows_.setTop(caret);
    else
        rows_.setTop(std::max(rows_.top(), rows_.topShowing(caret, height())));
    const QRectF place = rows_.rectOf(box_.caret());
    scrollToColumn(place.left(), place.width());
}

void Scrolling::scrollToColumn(qreal x, qreal width) {
    const qreal view = area_.viewport()->width() - 2 * kMargin;
    const qreal present = area_.horizontalScrollBar()->value();
    if (x >= present && x + width <= present + view) return;
    const qreal slack = std::min(view / 4, 4 * style_.averageAdvance());
    qreal wanted = std::max(0.0, x - slack);
    if (x + width > present) wanted = x + width - view + slack;
    if (x + width + slack <= view) wanted = 0;
    contentWidth_ = std::max(contentWidth_, x + width + slack);
    updateHorizontalBar();
    const QScopedValueRollback guard(updating_, true);
    area_.horizontalScrollBar()->setValue(toInt(std::ceil(std::max(0.0, wanted))));
}

// --- Scroll bars ---------------------------------------------------------------------------------

void Scrolling::update() {
    settle();
    setTop(rows_.top());
    LineIndex lastSeen;
    const qreal bottom =
        rows_.visit(height(), [&](LineIndex line, const LineLayout& layout, qreal) {
            contentWidth_ = std::max(contentWidth_, layout.width());
            lastSeen = line;
        });
    const bool endShows = bottom <= height() && lastSeen.value() == box_.rope().breakCount();
    updateHorizontalBar();
    updateVerticalBar(endShows);
}

void Scrolling::updateVerticalBar(bool endShows) {
    const RowPlace top = rows_.top();
    const Long lines = static_cast<Long>(box_.rope().breakCount()) + 1;
    const Long line = static_cast<Long>(top.line.value());
    // the bar counts lines; the end of a last line of several rows is one step further
    const Long value = endShows && top.row > 0 ? line + 1 : line;
    const Long last = endShows ? value : std::max(lines - rowsPerPage(), line + 1);
    const QScopedValueRollback guard(updating_, true);
    QScrollBar* bar = area_.verticalScrollBar();
    bar->setPageStep(rowsPerPage());
    bar->setRange(0, toInt(static_cast<qreal>(last)));
    bar->setValue(toInt(static_cast<qreal>(value)));
}

void Scrolling::updateHorizontalBar() {
    const QScopedValueRollback guard(updating_, true);
    QScrollBar* bar = area_.horizontalScrollBar();
    bar->setPageStep(area_.viewport()->width());
    bar->setSingleStep(toInt(std::ceil(3 * style_.averageAdvance())));
    bar->setRange(0, toInt(std::ceil(std::max(0.0, contentWidth_ - textWidth()))));
}

void Scrolling::barsMoved(int dy) {
    if (updating_) return;
    leaveCaret();  // who scrolls is not brought back
    const auto line = static_cast<std::size_t>(area_.verticalScrollBar()->value());
    if (dy != 0) setTop({LineIndex(line), 0});
    scrolled_();
}

// --- Wheel and touch -----------------------------------------------------------------------------

void Scrolling::wheel(QWheelEvent& event) {
    constexpr qreal kNotch = 120;
    const qreal lines = QApplication::wheelScrollLines();
    const QPointF notches = QPointF(event.angleDelta()) / kNotch;
    const bool byPixels = !event.pixelDelta().isNull();
    const QPointF pixels = byPixels ? QPointF(event.pixelDelta())
                                    : QPointF(notches.x() * lines * 3 * style_.averageAdvance(),
                                              notches.y() * lines * style_.baseRowHeight());
    wheel_ -= pixels;
    constexpr qreal kRoundingError = 1e-6;
    const qreal rows =
        std::trunc(wheel_.y() / style_.baseRowHeight() + std::copysign(kRoundingError, wheel_.y()));
    const int columns = static_cast<int>(wheel_.x());
    wheel_ -= QPointF(columns, rows * style_.baseRowHeight());
    byRows(static_cast<Long>(rows));
    QScrollBar* bar = area_.horizontalScrollBar();
    bar->setValue(bar->value() + columns);
    event.accept();
}

bool Scrolling::touch(QEvent& event) {
    if (event.type() == QEvent::ScrollPrepare)
        prepareTouch(static_cast<QScrollPrepareEvent&>(event));
    else if (event.type() == QEvent::Scroll)
        touchTo(static_cast<QScrollEvent&>(event));
    else
        return false;
    return true;
}

void Scrolling::prepareTouch(QScrollPrepareEvent& event) const {
    const qreal row = style_.baseRowHeight();
    const QScrollBar& across = *area_.horizontalScrollBar();
    const QScrollBar& down = *area_.verticalScrollBar();
    event.setViewportSize(area_.viewport()->size());
    event.setContentPosRange(QRectF(0, 0, across.maximum(), row * down.maximum()));
    event.setContentPos(QPointF(across.value(), row * down.value()));
    event.accept();
}

void Scrolling::touchTo(QScrollEvent& event) {
    const QPointF place = event.contentPos();
    area_.horizontalScrollBar()->setValue(toInt(place.x()));
    area_.verticalScrollBar()->setValue(toInt(std::round(place.y() / style_.baseRowHeight())));
    event.accept();
}

}  // namespace brindlex
