// Events of a RichTextView: each goes to the part that handles it. A text that is being composed is
// inserted before the focus leaves and before the mouse moves the caret.

#include "view/CaretBlink.h"
#include "view/RichTextView.h"
#include "view/Scrolling.h"
#include "view/input/InputMethod.h"
#include "view/input/KeyInput.h"
#include "view/input/MouseSelection.h"
#include "view/input/TextDragDrop.h"

namespace brindlex {

// --- Focus ---------------------------------------------------------------------------------------

void RichTextView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    inputMethod_->changed();
    focusChanged();
}

void RichTextView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    commitComposition();
    focusChanged();
}

void RichTextView::commitComposition() {
    inputMethod_->commit();
}

void RichTextView::focusChanged() {
    blink_->restart();
    viewport()->update(shownCaret_);
    changed();
}

// --- Keys and input methods ----------------------------------------------------------------------

void RichTextView::keyPressEvent(QKeyEvent* event) {
    keys_->press(*event);
}

void RichTextView::keyReleaseEvent(QKeyEvent* event) {
    keys_->release(*event);
}

void RichTextView::inputMethodEvent(QInputMethodEvent* event) {
    inputMethod_->handle(*event);
}

QVariant RichTextView::inputMethodQuery(Qt::InputMethodQuery query) const {
    return inputMethod_->answer(query);
}

// --- Mouse ---------------------------------------------------------------------------------------

void RichTextView::mousePressEvent(QMouseEvent* event) {
    commitComposition();
    mouse_->press(*event);
}

void RichTextView::mouseMoveEvent(QMouseEvent* event) {
    mouse_->move(*event);
}

void RichTextView::mouseReleaseEvent(QMouseEvent* event) {
    mouse_->release(*event);
}

void RichTextView::mouseDoubleClickEvent(QMouseEvent* event) {
    commitComposition();
    mouse_->doubleClick(*event);
}

void RichTextView::dragEnterEvent(QDragEnterEvent* event) {
    dragDrop_->enter(*event);
}

void RichTextView::dragMoveEvent(QDragMoveEvent* event) {
    dragDrop_->move(*event);
}

void RichTextView::dragLeaveEvent(QDragLeaveEvent*) {
    dragDrop_->leave();
}

void RichTextView::dropEvent(QDropEvent* event) {
    commitComposition();
    dragDrop_->drop(*event);
}

// --- Scrolling -----------------------------------------------------------------------------------

void RichTextView::wheelEvent(QWheelEvent* event) {
    scrolling_->wheel(*event);
}

bool RichTextView::viewportEvent(QEvent* event) {
    return scrolling_->touch(*event) || QAbstractScrollArea::viewportEvent(event);
}

void RichTextView::scrollContentsBy(int, int dy) {
    scrolling_->barsMoved(dy);
}

}  // namespace brindlex
