// How a RichTextView keeps the screen in step: changes are collected and shown once, from the event
// loop or by Refresh.

#include <QCoreApplication>
#include <QEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "platform/LineLayouts.h"
#include "platform/LineStyle.h"
#include "platform/RichTextView.h"
#include "platform/Scrolling.h"
#include "platform/ShownLines.h"

namespace brindlex {

QEvent::Type RichTextView::syncEvent() {
    static const int type = QEvent::registerEventType();
    return static_cast<QEvent::Type>(type);
}

void RichTextView::changed() {
    pending_ = true;
    if (syncPosted_ || !redraw_) return;
    syncPosted_ = true;
    QCoreApplication::postEvent(this, new QEvent(syncEvent()));
}

void RichTextView::sync() {
    if (!redraw_) return;
    fitStyle();
    pending_ = false;
    scrolling_->update();  // a bar that comes or goes makes another sync due
    ShownLines lines = linesToShow();
    QRegion region = lines.changedSince(*shown_) + std::exchange(stale_, {});
    *shown_ = std::move(lines);
    for (const QRect& rect : region) viewport()->update(rect);
    updateCarets(*shown_);
    if (const auto& seen = shown_->lines(); !seen.empty()) {
        constexpr std::size_t kAround = 64;  // a page on each side, so that paging back is at hand
        const LineIndex first = seen.front().line;
        layouts_->keep(LineIndex(first.value() - std::min(first.value(), kAround)),
                       seen.back().line + kAround);
    }
}

ShownLines RichTextView::linesToShow() const {
    const int highlight =
        highlights() && !box_.selection().empty() ? static_cast<int>(highlightGroup()) + 1 : 0;
    ShownLines lines({viewport()->size(), horizontalScrollBar()->value(), highlight});
    scrolling_->rows().visit(
        viewHeight(), [&](LineIndex line, const LineLayout& layout, qreal top) {
            const LineSelection selection = selectionIn(line, box_.lineContent(line));
            lines.append({line, layout.serial(), top, top + layout.height(), selection});
        });
    return lines;
}

void RichTextView::updateCarets(const ShownLines& lines) {
    const auto place = [&](std::optional<Offset> offset) {
        const bool inView = offset && lines.shows(box_.rope().lineOf(*offset));
        return inView ? caretRectAt(*offset).adjusted(-1, -1, 1, 1) : QRect();
    };
    const auto show = [this](QRect& shown, const QRect& now) {
        if (shown == now) return;
        viewport()->update(shown);
        viewport()->update(now);
        shown = now;
    };
    show(shownCaret_, place(box_.caret()));
    show(shownDropCaret_, place(dropCaret_));
}

void RichTextView::setRedraw(bool on) {
    if (redraw_ == on) return;
    redraw_ = on;
    if (!on) return;
    if (pending_ || !stale_.isEmpty()) changed();
    offerSelectAll();
}

bool RichTextView::redraw() const {
    return redraw_;
}

void RichTextView::Refresh() {
    if (!redraw_) return;
    sync();
    // What is due to be painted of the window, without the event loop.
    QCoreApplication::sendPostedEvents(window(), QEvent::UpdateRequest);
}

void RichTextView::appearanceChanged() {
    style_->setFont(Font());
    style_->setBackground(backColor_.resolve(palette()));
    style_->setBulletIndent(bulletIndent_);
    layouts_->clear();
    fitStyle();
    stale_ = viewport()->rect();
    changed();
}

void RichTextView::fitStyle() {
    const qreal available = scrolling_->textWidth();
    const qreal wanted = rightMargin_ > 0 ? style_->fromTwips(rightMargin_) : available;
    const qreal wrap = rightMargin_ < kNoWrap ? std::max(1.0, wanted) : 0;
    const bool sameWrap = wrap == style_->wrapWidth();
    const bool sameRatio = devicePixelRatioF() == style_->devicePixelRatio();
    if (sameWrap && sameRatio && available == style_->availableWidth()) return;
    style_->setWidth(wrap, available);
    style_->setDevicePixelRatio(devicePixelRatioF());
    if (sameWrap && sameRatio) {
        layouts_->widthChanged();
    } else {
        layouts_->clear();
        scrolling_->forgetWidths();
    }
    scrolling_->rowsChanged();
    changed();
}

}  // namespace brindlex
