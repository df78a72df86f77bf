#include "view/Scrolling.h"

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

#include "system/Twips.h"
#include "view/ToolkitInt.h"

namespace brindlex {

Scrolling::Scrolling(QAbstractScrollArea& area, const RichTextBox& box,
                     const LayoutContext& context, LineLayouts& layouts,
                     std::function<void()> scrolled)
    : area_(area),
      box_(box),
      context_(context),
      layouts_(layouts),
      scrolled_(std::move(scrolled)) {}

void Scrolling::start() {
    QScroller::grabGesture(area_.viewport(), QScroller::TouchGesture);
}

bool Scrolling::setCover(int top, int end) {
    const bool isNew = coverTop_ != top || coverEnd_ != end;
    coverTop_ = top;
    coverEnd_ = end;
    return isNew;
}

// --- Geometry ------------------------------------------------------------------------------------

qreal Scrolling::height() const {
    return area_.viewport()->height();
}

int Scrolling::indent() const {
    return std::max(0, Twips::toPixels(static_cast<double>(box_.SelIndent())));
}

qreal Scrolling::textX() const {
    return kMargin + indent() - area_.horizontalScrollBar()->value();
}

int Scrolling::caretWidth() const {
    return std::max(1, area_.style()->pixelMetric(QStyle::PM_TextCursorWidth, nullptr, &area_));
}

qreal Scrolling::heightAboveCover() const {
    return coverTop_ < coverEnd_ ? coverTop_ : height();
}

std::size_t Scrolling::linesIn(qreal height) const {
    return static_cast<std::size_t>(std::max(1.0, height / context_.rowHeight()));
}

std::size_t Scrolling::linesPerPage() const {
    return linesIn(heightAboveCover());
}

bool Scrolling::isCovered(LineIndex line) const {
    const qreal y = yOf(line);
    return coverTop_ < coverEnd_ && y < coverEnd_ && y + context_.rowHeight() > coverTop_;
}

qreal Scrolling::yOf(LineIndex line) const {
    const qreal rows =
        line < top_ ? -static_cast<qreal>(top_ - line) : static_cast<qreal>(line - top_);
    return rows * context_.rowHeight();
}

LineIndex Scrolling::endOfShown() const {
    const qreal rows = std::max(1.0, std::ceil(height() / context_.rowHeight()));
    return LineIndex(std::min(lineCount(), top_.value() + static_cast<std::size_t>(rows)));
}

LineIndex Scrolling::lineAt(qreal y) const {
    const qreal rows = std::clamp(y, 0.0, std::max(0.0, height() - 1)) / context_.rowHeight();
    const LineIndex line = top_ + static_cast<std::size_t>(rows);
    return std::min(line, LineIndex(endOfShown().value() - 1));
}

QRectF Scrolling::rectOf(Offset offset) const {
    const LineIndex line = box_.rope().lineOf(std::min(offset, Offset(box_.length())));
    const Range content = box_.lineContent(line);
    const std::size_t column = std::clamp(offset, content.begin(), content.end()) - content.begin();
    const LineLayout& layout = layouts_.at(line);
    const Preedit& preedit = layouts_.preedit();
    const bool inPreedit = !preedit.text.isEmpty() && offset == box_.caret();
    const bool atEnd = column == content.length();
    const qreal x = inPreedit ? layout.preeditX(preedit.cursor) : layout.xOf(column);
    const qreal next = atEnd ? x + context_.averageAdvance() : layout.xOf(column + 1);
    const qreal left = inPreedit ? x : std::min(x, next);
    return {textX() + left, yOf(line), std::abs(next - x), context_.rowHeight()};
}

// --- The top line --------------------------------------------------------------------------------

void Scrolling::textChanged(const TextEdit& edit) {
    const std::size_t lengthBefore = box_.length() + edit.removed.length() - edit.inserted;
    const bool isNewText = edit.removed.length() == lengthBefore && lengthBefore > 0;
    if (edit.line < top_) {
        const std::size_t removedAbove = std::min(edit.removedBreaks, top_ - edit.line);
        top_ = LineIndex(top_.value() - removedAbove + edit.insertedBreaks);
    }
    top_ = std::min(top_, LineIndex(lineCount() - 1));
    if (!isNewText) return;
    forgetWidths();
    top_ = {};
}

void Scrolling::byLines(Long lines) {
    if (lines == 0) return;
    settle();
    const Long top = static_cast<Long>(top_.value());
    const Long last = static_cast<Long>(lineCount()) - 1;
    setTop(static_cast<std::size_t>(top + std::clamp(lines, -top, last - top)));
    scrolled_();
}

/// At most the line with which the text's end stands at the bottom of the view, or at the cover.
void Scrolling::setTop(std::size_t line) {
    top_ = LineIndex(std::min(line, lineCount() - std::min(lineCount(), linesPerPage())));
}

// --- The caret comes into view -------------------------------------------------------------------

void Scrolling::settle() {
    if (!std::exchange(caretWanted_, false)) return;
    const LineIndex line = box_.rope().lineOf(box_.caret());
    if (line < top_)
        top_ = line;
    else if (line - top_ >= linesIn(height()))
        top_ = LineIndex(line.value() + 1 - linesIn(height()));
    if (isCovered(line)) top_ = LineIndex(line.value() + 1 - linesPerPage());
    const QRectF place = rectOf(box_.caret());
    scrollToColumn(place.left() - textX(), place.width());
}

/// Brings a place in the caret's line into view; `x` counts from where lines begin.
void Scrolling::scrollToColumn(qreal x, qreal width) {
    const qreal left = indent() + x;
    const qreal right = left + width;
    const qreal view = area_.viewport()->width() - 2 * kMargin;
    const qreal present = area_.horizontalScrollBar()->value();
    if (left >= present && right <= present + view) return;
    const qreal slack = std::min(view / 4, 4 * context_.averageAdvance());
    qreal wanted = left < present ? left - slack : right - view + slack;
    if (right + slack <= view) wanted = 0;
    contentWidth_ = std::max(contentWidth_, x + width + slack);
    updateHorizontalBar();
    const QScopedValueRollback guard(updating_, true);
    area_.horizontalScrollBar()->setValue(toInt(std::ceil(std::max(0.0, wanted))));
}

// --- Scroll bars ---------------------------------------------------------------------------------

void Scrolling::update() {
    settle();
    setTop(top_.value());
    for (LineIndex line = top_; line < endOfShown(); line = line + 1)
        contentWidth_ = std::max(contentWidth_, layouts_.at(line).width());
    updateHorizontalBar();
    updateVerticalBar();
}

void Scrolling::updateVerticalBar() {
    const QScopedValueRollback guard(updating_, true);
    QScrollBar* bar = area_.verticalScrollBar();
    const std::size_t page = linesPerPage();
    bar->setPageStep(toInt(page));
    bar->setRange(0, toInt(lineCount() - std::min(lineCount(), page)));
    bar->setValue(toInt(top_.value()));
}

void Scrolling::updateHorizontalBar() {
    const QScopedValueRollback guard(updating_, true);
    QScrollBar* bar = area_.horizontalScrollBar();
    const qreal room = area_.viewport()->width() - 2 * kMargin - caretWidth();
    bar->setPageStep(area_.viewport()->width());
    bar->setSingleStep(toInt(std::ceil(3 * context_.averageAdvance())));
    bar->setRange(0, toInt(std::ceil(std::max(0.0, indent() + contentWidth_ - room))));
}

void Scrolling::barsMoved(int dy) {
    if (updating_) return;
    dropPendingCaret();  // the user scrolled
    if (dy != 0) setTop(static_cast<std::size_t>(area_.verticalScrollBar()->value()));
    scrolled_();
}

// --- Wheel and touch -----------------------------------------------------------------------------

void Scrolling::wheel(QWheelEvent& event) {
    constexpr qreal kNotch = 120;
    const qreal lines = QApplication::wheelScrollLines();
    const QPointF notches = QPointF(event.angleDelta()) / kNotch;
    const bool byPixels = !event.pixelDelta().isNull();
    const QPointF pixels = byPixels ? QPointF(event.pixelDelta())
                                    : QPointF(notches.x() * lines * 3 * context_.averageAdvance(),
                                              notches.y() * lines * context_.rowHeight());
    wheel_ -= pixels;
    const qreal rows =
        std::trunc(wheel_.y() / context_.rowHeight() + std::copysign(kRoundingError, wheel_.y()));
    const int columns = static_cast<int>(wheel_.x());
    wheel_ -= QPointF(columns, rows * context_.rowHeight());
    byLines(static_cast<Long>(rows));
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
    const qreal row = context_.rowHeight();
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
    area_.verticalScrollBar()->setValue(toInt(std::round(place.y() / context_.rowHeight())));
    event.accept();
}

}  // namespace brindlex
