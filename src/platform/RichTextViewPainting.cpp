#include <QPaintEvent>
#include <QPainter>

#include "platform/CaretBlink.h"
#include "platform/LineLayouts.h"
#include "platform/LineStyle.h"
#include "platform/RichTextView.h"
#include "platform/Scrolling.h"
#include "platform/ShownLines.h"

namespace brindlex {

void RichTextView::paintEvent(QPaintEvent* event) {
    // A sync repaints only what differs from the one before, but this may come between: with redraw
    // off the region stays as it was, although the last sync asked for it; before a sync that is
    // due it shows a state that may be undone by then, a selection for one.
    if (!redraw_ || pending_) stale_ += event->region();
    if (!redraw_) return;
    QPainter painter(viewport());
    const QColor background = backColor_.resolve(palette());
    // not by the region's rectangles: at a fractional scale they end within device pixels
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
    painter.setPen(style_->color(0));
    scrolling_->rows().visit(viewHeight(),
                             [&](LineIndex line, const LineLayout& layout, qreal top) {
                                 const QRectF strip(0, top, viewport()->width(), layout.height());
                                 if (!region.intersects(strip.toAlignedRect())) return;
                                 painter.setClipRect(strip);
                                 layout.paint(painter, {left, top}, strip & area,
                                              selectionIn(line, box_.lineContent(line)), colors);
                             });
    painter.setClipping(false);
}

void RichTextView::paintCarets(QPainter& painter) const {
    const QColor color = style_->color(0);
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
