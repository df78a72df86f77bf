#pragma once

#include <QString>

class QKeyEvent;

namespace brindlex {

class CaretActions;
class RichTextView;

/// The keyboard of a RichTextView: raises KeyDown, KeyPress and KeyUp and does what their handlers
/// leave of a key. The keys for undo and the clipboard do nothing here but raise these events:
/// their owner consumes them.
class KeyInput {
  public:
    /// Both outlive this object.
    KeyInput(RichTextView& view, CaretActions& actions) : view_(view), actions_(actions) {}

    void press(QKeyEvent& event);
    void release(QKeyEvent& event);
    /// True for keys that make characters, edit or move, and for undo and the clipboard: no menu
    /// shortcut may take them.
    bool overridesShortcut(const QKeyEvent& event) const;
    /// Text that no single key made: each of its characters raises KeyPress and is put in.
    void typeText(const QString& text);

  private:
    bool consumedByKeyDown(const QKeyEvent& event);
    void controlKey(QKeyEvent& event, int ascii);
    void act(QKeyEvent& event);
    void typeByte(char byte);
    void put(int ascii);
    int afterKeyPress(int ascii);

    RichTextView& view_;
    CaretActions& actions_;
};

}  // namespace brindlex
