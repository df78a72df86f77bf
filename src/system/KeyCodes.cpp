#include "system/KeyCodes.h"

#include <QKeyEvent>
#include <QKeySequence>
#include <algorithm>
#include <iterator>

namespace brindlex {
namespace {

struct KeyRow {
    int key;
    int code;
};

constexpr KeyRow kNamedKeys[] = {
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},
    {Qt::Key_Clear, 12},
    {Qt::Key_Return, 13},
    {Qt::Key_Enter, 13},
    {Qt::Key_Shift, 16},
    {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},
    {Qt::Key_AltGr, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_Escape, 27},
    {Qt::Key_Space, 32},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Print, 44},
    {Qt::Key_SysReq, 44},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Help, 47},
    {Qt::Key_Meta, 91},
    {Qt::Key_Super_L, 91},
    {Qt::Key_Super_R, 92},
    {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},
    {Qt::Key_ScrollLock, 145},
    {Qt::Key_Semicolon, 186},
    {Qt::Key_Equal, 187},
    {Qt::Key_Comma, 188},
    {Qt::Key_Minus, 189},
    {Qt::Key_Period, 190},
    {Qt::Key_Slash, 191},
    {Qt::Key_QuoteLeft, 192},
    {Qt::Key_BracketLeft, 219},
    {Qt::Key_Backslash, 220},
    {Qt::Key_BracketRight, 221},
    {Qt::Key_Apostrophe, 222},
    // with Shift
    {Qt::Key_ParenRight, 48},
    {Qt::Key_Exclam, 49},
    {Qt::Key_At, 50},
    {Qt::Key_NumberSign, 51},
    {Qt::Key_Dollar, 52},
    {Qt::Key_Percent, 53},
    {Qt::Key_AsciiCircum, 54},
    {Qt::Key_Ampersand, 55},
    {Qt::Key_Asterisk, 56},
    {Qt::Key_ParenLeft, 57},
    {Qt::Key_Colon, 186},
    {Qt::Key_Plus, 187},
    {Qt::Key_Less, 188},
    {Qt::Key_Underscore, 189},
    {Qt::Key_Greater, 190},
    {Qt::Key_Question, 191},
    {Qt::Key_AsciiTilde, 192},
    {Qt::Key_BraceLeft, 219},
    {Qt::Key_Bar, 220},
    {Qt::Key_BraceRight, 221},
    {Qt::Key_QuoteDbl, 222},
};

constexpr KeyRow kKeypadKeys[] = {
    {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},   {Qt::Key_Minus, 109},
    {Qt::Key_Comma, 110},    {Qt::Key_Period, 110}, {Qt::Key_Slash, 111},
};

constexpr KeyRow kControlKeys[] = {
    {Qt::Key_Return, kAsciiEnter},        {Qt::Key_Enter, kAsciiEnter},
    {Qt::Key_Backspace, kAsciiBackspace}, {Qt::Key_Tab, kAsciiTab},
    {Qt::Key_Backtab, kAsciiTab},         {Qt::Key_Escape, kAsciiEscape},
};

struct StandardRow {
    QKeySequence::StandardKey key;
    int ascii;
};

constexpr StandardRow kCommands[] = {
    {QKeySequence::Undo, kAsciiUndo},
    {QKeySequence::Copy, kAsciiCopy},
    {QKeySequence::Paste, kAsciiPaste},
    {QKeySequence::Cut, kAsciiCut},
};

template <std::size_t N>
int lookUp(const KeyRow (&rows)[N], int key) {
    const auto* row = std::find_if(std::begin(rows), std::end(rows),
                                   [key](const KeyRow& each) { return each.key == key; });
    return row == std::end(rows) ? 0 : row->code;
}

bool isBetween(int key, int first, int last) {
    return first <= key && key <= last;
}

int keypadCodeOf(int key) {
    if (isBetween(key, Qt::Key_0, Qt::Key_9)) return 96 + key - Qt::Key_0;
    return lookUp(kKeypadKeys, key);
}

int plainCodeOf(int key) {
    if (isBetween(key, Qt::Key_A, Qt::Key_Z)) return 65 + key - Qt::Key_A;
    if (isBetween(key, Qt::Key_0, Qt::Key_9)) return 48 + key - Qt::Key_0;
    if (isBetween(key, Qt::Key_F1, Qt::Key_F24)) return 112 + key - Qt::Key_F1;
    return lookUp(kNamedKeys, key);
}

int commandOf(const QKeyEvent& event) {
    struct Chord {
        int key;
        Qt::KeyboardModifier modifier;
        int ascii;
    };
    constexpr Chord kChords[] = {{Qt::Key_Insert, Qt::ShiftModifier, kAsciiPaste},
                                 {Qt::Key_Delete, Qt::ShiftModifier, kAsciiCut},
                                 {Qt::Key_Insert, Qt::ControlModifier, kAsciiCopy}};
    for (const Chord& chord : kChords)
        if (event.key() == chord.key && chordOf(event) == chord.modifier) return chord.ascii;
    for (const StandardRow& row : kCommands)
        if (event.matches(row.key)) return row.ascii;
    return 0;
}

/// Joiners and direction marks count: the code pages of some languages have them.
bool isWritten(QChar character) {
    return character.isPrint() || character.isSurrogate() ||
           character.category() == QChar::Other_Format;
}

int withCtrl(int ascii) {
    if (ascii == kAsciiEnter) return kAsciiCtrlEnter;
    if (ascii == kAsciiBackspace) return kAsciiCtrlBackspace;
    return ascii;
}

}  // namespace

int keyCodeOf(const QKeyEvent& event) {
    if (event.modifiers().testFlag(Qt::KeypadModifier))
        if (const int code = keypadCodeOf(event.key())) return code;
    const int code = plainCodeOf(event.key());
    return code != 0 ? code : kOtherKeyCode;
}

int shiftOf(Qt::KeyboardModifiers modifiers) {
    return (modifiers.testFlag(Qt::ShiftModifier) ? kShiftMask : 0) +
           (modifiers.testFlag(Qt::ControlModifier) ? kCtrlMask : 0) +
           (modifiers.testFlag(Qt::AltModifier) ? kAltMask : 0);
}

int mouseButtonsOf(Qt::MouseButtons buttons) {
    return static_cast<int>(buttons & (Qt::LeftButton | Qt::RightButton | Qt::MiddleButton));
}

Qt::KeyboardModifiers chordOf(const QKeyEvent& event) {
    return event.modifiers() & ~(Qt::KeypadModifier | Qt::GroupSwitchModifier);
}

bool makesCharacters(const QKeyEvent& event) {
    const QString text = event.text();
    if (text.isEmpty() || !isWritten(text.front())) return false;
    const auto modifiers = event.modifiers();
    const bool ctrl = modifiers.testFlag(Qt::ControlModifier);
    const bool alt = modifiers.testFlag(Qt::AltModifier);
#ifdef Q_OS_MACOS
    return !ctrl;  // the Option key makes characters
#else
    return ctrl == alt && !modifiers.testFlag(Qt::MetaModifier);
#endif
}

bool isCtrlLetter(const QKeyEvent& event) {
    return isBetween(event.key(), Qt::Key_A, Qt::Key_Z) &&
           event.modifiers().testFlag(Qt::ControlModifier) &&
           !event.modifiers().testFlag(Qt::AltModifier);
}

int controlCodeOf(const QKeyEvent& event) {
    if (makesCharacters(event)) return 0;
    if (const int command = commandOf(event)) return command;
    const auto modifiers = chordOf(event);
    if (modifiers == Qt::ControlModifier && isCtrlLetter(event)) return event.key() - Qt::Key_A + 1;
    if (modifiers & (Qt::AltModifier | Qt::MetaModifier)) return 0;
    const int ascii = lookUp(kControlKeys, event.key());
    return modifiers.testFlag(Qt::ControlModifier) ? withCtrl(ascii) : ascii;
}

bool isCommandCode(int ascii) {
    return std::any_of(std::begin(kCommands), std::end(kCommands),
                       [ascii](const StandardRow& row) { return row.ascii == ascii; });
}

}  // namespace brindlex
