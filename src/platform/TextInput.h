#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QInputMethodEvent>
#include <QPoint>
#include <memory>
#include <optional>

#include "platform/text/Units.h"

class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;
class QKeyEvent;
class QMouseEvent;

namespace brindlex {

class RichTextView;

/// What keyboard, mouse, drag and drop and input methods do to a RichTextView: it raises the view's
/// events and carries out what their handlers leave. The view hands its Qt events on to it.
class TextInput {
  public:
    /// `view` owns this object.
    explicit TextInput(RichTextView& view);
    ~TextInput();

    void keyPress(QKeyEvent& event);
    void keyRelease(QKeyEvent& event);
    /// True for the keys that belong to the editor before any shortcut of the window (the event is
    /// a ShortcutOverride).
    bool overridesShortcut(const QKeyEvent& event) const;
    void mousePress(QMouseEvent& event);
    void mouseMove(QMouseEvent& event);
    void mouseRelease(QMouseEvent& event);
    void mouseDoubleClick(QMouseEvent& event);
    void dragEnter(QDragEnterEvent& event);
    void dragMove(QDragMoveEvent& event);
    void dragLeave(QDragLeaveEvent& event);
    void drop(QDropEvent& event);
    void inputMethod(QInputMethodEvent& event);
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const;
    void focusIn();
    void focusOut();
    /// The text or the caret changed; not within this object's own work alone.
    void selectionChanged();
    /// True when the timer was one of this object's.
    bool timer(int timerId);

  private:
    RichTextView& view_;
};

}  // namespace brindlex
