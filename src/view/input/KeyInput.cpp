#include "view/input/KeyInput.h"

#include <QKeyEvent>
#include <string>

#include "system/KeyCodes.h"
#include "text/LineEnds.h"
#include "view/RichTextView.h"
#include "view/input/CaretActions.h"

namespace brindlex {
namespace {

/// The key Linefeed, which some programs send for a line break and the toolkit does not know.
bool isLinefeed(const QKeyEvent& event) {
    const bool isUnknown = event.key() < Qt::Key_Space || event.key() == Qt::Key_unknown;
    return isUnknown && event.text() == QLatin1String("\n");
}

QKeyEvent asEnter(const QKeyEvent& event) {
    return QKeyEvent(event.type(), Qt::Key_Return, event.modifiers(), QStringLiteral("\r"),
                     event.isAutoRepeat());
}

bool isControlCode(int ascii) {
    return ascii < 32 || ascii == kAsciiCtrlBackspace;
}

}  // namespace

void KeyInput::press(QKeyEvent& event) {
    event.accept();
    if (isLinefeed(event)) {
        QKeyEvent enter = asEnter(event);
        return press(enter);
    }
    if (consumedByKeyDown(event)) return;
    if (makesCharacters(event))
        typeText(event.text());
    else if (const int ascii = controlCodeOf(event))
        controlKey(event, ascii);
    else
        act(event);
}

void KeyInput::release(QKeyEvent& event) {
    event.accept();
    if (isLinefeed(event)) {
        QKeyEvent enter = asEnter(event);
        return release(enter);
    }
    if (event.isAutoRepeat() || !view_.onKeyUp) return;
    int keyCode = keyCodeOf(event);
    view_.onKeyUp(keyCode, shiftOf(event.modifiers()));
}

bool KeyInput::overridesShortcut(const QKeyEvent& event) const {
    if (makesCharacters(event)) return true;
    const int ascii = controlCodeOf(event);
    if (ascii == 0) return editActionOf(event).has_value();
    return isCommandCode(ascii) || !isCtrlLetter(event);
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
    // a NUL is not raised: 0 would mean that a handler consumed the key
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
        actions_.insert(kLineBreak);
    else if (ascii == kAsciiBackspace)
        actions_.perform({EditAction::Kind::Delete, Motion::PreviousCharacter});
    else if (ascii == kAsciiTab || (ascii > 0 && ascii < 256 && !isControlCode(ascii)))
        actions_.type(static_cast<char>(ascii));
}

}  // namespace brindlex
