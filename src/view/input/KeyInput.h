#pragma once

#include <QString>

class QKeyEvent;

namespace brindlex {

class CaretActions;
class RichTextView;

/// The keyboard of a RichTextView: raises KeyDown, KeyPress and KeyUp, and acts on keys that their
/// handlers leave. The keys for undo and the clipboard only raise these events: undo and clipboard
/// are the owner's.
class KeyInput {
  public:
    /// Both outlive this object.
    KeyInput(RichTextView& view, CaretActions& actions) : view_(view), actions_(actions) {}

    void press(QKeyEvent& event);
    void release(QKeyEvent& event);
    /// True for keys that no menu shortcut may take: those that make characters, edit or move, and
    /// those for undo and the clipboard.
    bool overridesShortcut(const QKeyEvent& event) const;
    /// Types a text: each of its characters raises KeyPress and is inserted.
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
