#include <QPaintEvent>
#include <QPainter>

#include "view/CaretBlink.h"
#include "view/RichTextView.h"
#include "view/Scrolling.h"
#include "view/layout/LayoutContext.h"
#include "view/layout/LineLayouts.h"
#include "view/layout/ShownLines.h"

namespace brindlex {

void RichTextView::paintEvent(QPaintEvent* event) {
    // A sync repaints what differs from the one before. A paint that comes between, on demand of
    // the window system, may show another state than shown_ has, or with redraw off none at all.
    if (!redraw_ || pending_) stale_ += event->region();
    if (!redraw_) return;
    QPainter painter(viewport());
    const QColor background = backColor_.resolve(palette());
    // the whole, as the region's rectangles end within device pixels at a fractional scale
    painter.fillRect(viewport()->rect(), background);
    paintLines(painter, event->region());
    paintCarets(painter);
}

void RichTextView::paintLines(QPainter& painter, const QRegion& region) const {
    const QPalette::ColorGroup group = highlightGroup();
    const HighlightColors colors{palette().color(group, QPalette::Highlight),
                                 palette().color(group, QPalette::HighlightedText)};
    const QRectF area = region.boundingRect();
    const qreal left = scrolling_->textX();
    for (LineIndex line = scrolling_->topLine(); line < scrolling_->endOfShown(); line = line + 1) {
        const qreal top = scrolling_->yOf(line);
        const QRectF strip(0, top, viewport()->width(), context_->rowHeight());
        if (!region.intersects(strip.toAlignedRect())) continue;
        painter.setClipRect(strip);
        layouts_->at(line).paint(painter, {left, top}, strip & area,
                                 selectionIn(line, box_.lineContent(line)), colors);
    }
    painter.setClipping(false);
}

void RichTextView::paintCarets(QPainter& painter) const {
    const QColor color = context_->color(0);
    if (dropCaret_ && shownDropCaret_.isValid()) {
        QRect bar = caretRectAt(*dropCaret_);
        bar.setWidth(scrolling_->caretWidth());
        painter.fillRect(bar, color);
    }
    if (!caretShows()) return;
    QColor ink = color;
    constexpr int kBlockAlpha = 110;  // the character stays readable
    if (hasBlockCaret()) ink.setAlpha(kBlockAlpha);
    painter.fillRect(caretRectAt(box_.caret()), ink);
}

bool RichTextView::caretShows() const {
    return blink_->shows() && isEnabled() && layouts_->preedit().cursorVisible &&
           shown_->shows(box_.rope().lineOf(box_.caret()));
}

bool RichTextView::highlights() const {
    return hasFocus() || !hideSelection_;
}

QPalette::ColorGroup RichTextView::highlightGroup() const {
    if (!isEnabled()) return QPalette::Disabled;
    return hasFocus() ? QPalette::Active : QPalette::Inactive;
}

}  // namespace brindlex
