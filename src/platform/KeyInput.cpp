#include "platform/KeyInput.h"

#include <QKeyEvent>
#include <string>

#include "platform/CaretActions.h"
#include "platform/KeyCodes.h"
#include "platform/RichTextView.h"

namespace brindlex {
namespace {

/// Ctrl+Tab and its reverse: Tab alone writes a tab, so that users of the keyboard need another way
/// out, unless the owner takes this one too.
bool leavesView(const QKeyEvent& event) {
    return (event.key() == Qt::Key_Tab || event.key() == Qt::Key_Backtab) &&
           event.modifiers().testFlag(Qt::ControlModifier);
}

bool isControlCode(int ascii) {
    return ascii < 32 || ascii == kAsciiCtrlBackspace;
}

}  // namespace

void KeyInput::press(QKeyEvent& event) {
    event.accept();
    if (consumedByKeyDown(event)) {
        return;
    } else if (leavesView(event)) {
        view_.moveFocus(event.key() == Qt::Key_Tab && !(event.modifiers() & Qt::ShiftModifier));
    } else if (makesCharacters(event)) {
        typeText(event.text());
    } else if (const int ascii = controlCodeOf(event)) {
        controlKey(event, ascii);
    } else {
        act(event);
    }
}

void KeyInput::release(QKeyEvent& event) {
    event.accept();
    if (event.isAutoRepeat() || !view_.onKeyUp) return;
    int keyCode = keyCodeOf(event);
    view_.onKeyUp(keyCode, shiftOf(event.modifiers()));
}

bool KeyInput::overridesShortcut(const QKeyEvent& event) const {
    if (makesCharacters(event)) return true;
    switch (controlCodeOf(event)) {
        case 0:
            return editActionOf(event).has_value();
        case kAsciiUndo:
        case kAsciiCopy:
        case kAsciiPaste:
        case kAsciiCut:
            return true;
        default:
            return !isCtrlLetter(event);
    }
}

void KeyInput::typeText(const QString& text) {
    const std::string bytes = view_.codePage().fromUnicode(text);
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const bool endsPair = bytes[at] == '\n' && at > 0 && bytes[at - 1] == '\r';
        if (!endsPair) typeByte(bytes[at]);
    }
}

void KeyInput::typeByte(char byte) {
    const int ascii = byte == '\n' ? kAsciiEnter : static_cast<unsigned char>(byte);
    put(afterKeyPress(ascii));
}

bool KeyInput::consumedByKeyDown(const QKeyEvent& event) {
    int keyCode = keyCodeOf(event);
    if (view_.onKeyDown) view_.onKeyDown(keyCode, shiftOf(event.modifiers()));
    return keyCode == 0;
}

int KeyInput::afterKeyPress(int ascii) {
    // 0 would say that a handler consumed it, and no key makes it
    if (ascii != 0 && view_.onKeyPress) view_.onKeyPress(ascii);
    return ascii;
}

void KeyInput::controlKey(QKeyEvent& event, int ascii) {
    const int left = afterKeyPress(ascii);
    const bool writes = ascii == kAsciiEnter || ascii == kAsciiCtrlEnter || ascii == kAsciiTab;
    if (left != ascii || (writes && !isCtrlLetter(event)))
        put(left);
    else
        act(event);
}

void KeyInput::act(QKeyEvent& event) {
    if (const auto action = editActionOf(event))
        actions_.perform(*action);
    else
        event.ignore();
}

void KeyInput::put(int ascii) {
    if (ascii == kAsciiEnter || ascii == kAsciiCtrlEnter)
        actions_.insert("\r\n");
    else if (ascii == kAsciiBackspace)
        actions_.perform({EditAction::Kind::Delete, Motion::PreviousCharacter});
    else if (ascii == kAsciiTab || (ascii > 0 && ascii < 256 && !isControlCode(ascii)))
        actions_.type(static_cast<char>(ascii));
}

}  // namespace brindlex
