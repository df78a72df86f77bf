#pragma once

#include <Qt>

class QKeyEvent;

namespace brindlex {

/// KeyCode of a key that has no virtual key code of its own (a letter with an accent, a media key).
/// Never 0: 0 means that a handler consumed the key.
inline constexpr int kOtherKeyCode = 231;

/// The values of KeyAscii that mean something to the editor itself.
inline constexpr int kAsciiCopy = 3;
inline constexpr int kAsciiBackspace = 8;
inline constexpr int kAsciiTab = 9;
inline constexpr int kAsciiCtrlEnter = 10;
inline constexpr int kAsciiEnter = 13;
inline constexpr int kAsciiPaste = 22;
inline constexpr int kAsciiCut = 24;
inline constexpr int kAsciiUndo = 26;
inline constexpr int kAsciiEscape = 27;
inline constexpr int kAsciiCtrlBackspace = 127;

/// The virtual key code of a key: 13 Enter, 65 A, 38 Up ... A shifted sign gives the code of its
/// key on an American keyboard: '(' gives 57.
int keyCodeOf(const QKeyEvent& event);

/// The bits of Shift.
inline constexpr int kShiftMask = 1;
inline constexpr int kCtrlMask = 2;
inline constexpr int kAltMask = 4;
int shiftOf(Qt::KeyboardModifiers modifiers);

/// The sum of 1 for left, 2 for right and 4 for middle: the toolkit's own numbers.
int mouseButtonsOf(Qt::MouseButtons buttons);

/// The modifiers that distinguish commands: all but keypad and group switch.
Qt::KeyboardModifiers chordOf(const QKeyEvent& event);

/// True when the key makes characters: event.text() is what it types. AltGr does (on some systems
/// it is Ctrl and Alt together), a key with Ctrl or Alt alone does not.
bool makesCharacters(const QKeyEvent& event);

/// KeyAscii of a key that makes a control code: Enter, Backspace, Tab, Escape, Ctrl with a letter,
/// and the system's further keys for undo and the clipboard (Shift+Insert gives 22). 0 for all
/// other keys.
int controlCodeOf(const QKeyEvent& event);

/// True for the values of KeyAscii that mean undo, copy, paste and cut: commands of the program.
bool isCommandCode(int ascii);

/// True for Ctrl with a letter, which may be a menu's shortcut.
bool isCtrlLetter(const QKeyEvent& event);

}  // namespace brindlex
