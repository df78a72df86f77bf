#include "platform/TextInput.h"

#include "platform/PrimarySelection.h"
#include "platform/RichTextView.h"

namespace brindlex {

TextInput::TextInput(RichTextView& view)
    : view_(view),
      actions_(view),
      keys_(view, actions_),
      inputMethod_(view, actions_, keys_),
      dragDrop_(view, actions_),
      mouse_(view, actions_, dragDrop_),
      accessible_(view) {}

void TextInput::keyPress(QKeyEvent& event) {
    keys_.press(event);
}

void TextInput::keyRelease(QKeyEvent& event) {
    keys_.release(event);
}

bool TextInput::overridesShortcut(const QKeyEvent& event) const {
    return keys_.overridesShortcut(event);
}

void TextInput::mousePress(QMouseEvent& event) {
    inputMethod_.commit();
    mouse_.press(event);
}

void TextInput::mouseMove(QMouseEvent& event) {
    mouse_.move(event);
}

void TextInput::mouseRelease(QMouseEvent& event) {
    mouse_.release(event);
}

void TextInput::mouseDoubleClick(QMouseEvent& event) {
    inputMethod_.commit();
    mouse_.doubleClick(event);
}

void TextInput::dragEnter(QDragEnterEvent& event) {
    dragDrop_.enter(event);
}

void TextInput::dragMove(QDragMoveEvent& event) {
    dragDrop_.move(event);
}

void TextInput::dragLeave(QDragLeaveEvent&) {
    dragDrop_.leave();
}

void TextInput::drop(QDropEvent& event) {
    inputMethod_.commit();
    dragDrop_.drop(event);
}

void TextInput::inputMethod(QInputMethodEvent& event) {
    inputMethod_.handle(event);
}

QVariant TextInput::inputMethodQuery(Qt::InputMethodQuery query) const {
    return inputMethod_.answer(query);
}

void TextInput::focusIn() {
    inputMethod_.changed();
}

void TextInput::focusOut() {
    inputMethod_.commit();
}

void TextInput::textChanged(const TextEdit& edit) {
    actions_.forgetColumn();
    inputMethod_.changed();
    accessible_.textChanged(edit);
}

void TextInput::selectionChanged() {
    actions_.forgetColumn();
    inputMethod_.changed();
    accessible_.selectionChanged();
    // what code selects is not the user's choice, but for Select All of the menu; an operation with
    // redraw off may select all at each of its steps
    const RichTextBox& box = view_.box();
    if (!view_.hasFocus() || !view_.redraw()) return;
    if (box.selection().length() == box.length()) offerPrimarySelection(view_);
}

bool TextInput::timer(int timerId) {
    return mouse_.timer(timerId) || dragDrop_.timer(timerId) || inputMethod_.timer(timerId);
}

}  // namespace brindlex
