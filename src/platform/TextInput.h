#pragma once

#include <QVariant>
#include <Qt>

#include "platform/AccessibleEvents.h"
#include "platform/CaretActions.h"
#include "platform/InputMethod.h"
#include "platform/KeyInput.h"
#include "platform/MouseSelection.h"
#include "platform/TextDragDrop.h"

class QDragEnterEvent;
class QDragLeaveEvent;
class QDragMoveEvent;
class QDropEvent;
class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;

namespace brindlex {

class RichTextView;

/// What keyboard, mouse, drag and drop and input methods do to a RichTextView: it raises the view's
/// events and carries out what their handlers leave. The view hands its Qt events on to it.
/// Handlers may do anything but destroy the view.
class TextInput {
  public:
    /// `view` owns this object and has its viewport.
    explicit TextInput(RichTextView& view);

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
    /// The text changed, by whatever means. Within the box's notice to its observer.
    void textChanged(const TextEdit& edit);
    /// Caret or selection changed, by whatever means. Within the box's notice to its observer.
    void selectionChanged();
    /// True when the timer was one of this object's.
    bool timer(int timerId);

  private:
    RichTextView& view_;
    CaretActions actions_;
    KeyInput keys_;
    InputMethod inputMethod_;
    TextDragDrop dragDrop_;
    MouseSelection mouse_;
    AccessibleEvents accessible_;
};

}  // namespace brindlex
