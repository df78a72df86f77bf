// How a RichTextView keeps the screen in step: changes are collected and shown once, from the event
// loop or by Refresh.

#include <QCoreApplication>
#include <QEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "view/RichTextView.h"
#include "view/Scrolling.h"
#include "view/accessibility/AccessibleEvents.h"
#include "view/layout/LayoutContext.h"
#include "view/layout/LineLayouts.h"
#include "view/layout/ShownLines.h"

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
    context_->setDevicePixelRatio(devicePixelRatioF());
    pending_ = false;
    scrolling_->update();  // a bar that comes or goes makes another sync due
    ShownLines lines = linesToShow();
    const QRegion region = lines.changedSince(*shown_) + std::exchange(stale_, {});
    *shown_ = std::move(lines);
    for (const QRect& rect : region) viewport()->update(rect);
    updateCarets();
    constexpr std::size_t kAround = 64;  // lines on each side, so that paging back is at hand
    const std::size_t top = scrolling_->topLine().value();
    layouts_->evictOutside(LineIndex(top - std::min(top, kAround)),
                           scrolling_->endOfShown() + kAround);
}

ShownLines RichTextView::linesToShow() const {
    const int highlight =
        highlights() && !box_.selection().empty() ? static_cast<int>(highlightGroup()) + 1 : 0;
    ShownLines lines({viewport()->size(), scrolling_->textX(), context_->rowHeight(), highlight},
                     scrolling_->topLine());
    for (LineIndex line = lines.first(); line < scrolling_->endOfShown(); line = line + 1)
        lines.append({layouts_->at(line).serial(), selectionIn(line, box_.lineContent(line))});
    return lines;
}

void RichTextView::updateCarets() {
    const auto place = [&](std::optional<Offset> offset) {
        const bool inView = offset && shown_->shows(box_.rope().lineOf(*offset));
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
    accessible_->selectionChanged();
    offerSelectAll();
}

void RichTextView::Refresh() {
    if (!redraw_) return;
    sync();
    // paints what is due without the event loop
    QCoreApplication::sendPostedEvents(window(), QEvent::UpdateRequest);
}

void RichTextView::appearanceChanged() {
    context_->setFont(Font());
    context_->setBackground(backColor_.resolve(palette()));
    context_->setDevicePixelRatio(devicePixelRatioF());
    layouts_->clear();
    stale_ = viewport()->rect();
    changed();
}

}  // namespace brindlex
