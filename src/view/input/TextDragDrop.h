#pragma once

#include <optional>
#include <string_view>

#include "text/Rope.h"
#include "text/Units.h"
#include "view/input/AutoScroll.h"

class QDragEnterEvent;
class QDragMoveEvent;
class QDropEvent;

namespace brindlex {

class CaretActions;
class RichTextView;

/// Text dragged out of a RichTextView and into it. A drag within the view moves the text, with Ctrl
/// it copies; text from elsewhere is inserted and selected; a file is left to
/// the widgets around the view.
class TextDragDrop {
  public:
    /// Both outlive this object.
    TextDragDrop(RichTextView& view, CaretActions& actions);

    /// Drags the selection; returns when the drag has ended. Text that was moved to another program
    /// is removed.
    void start();
    void enter(QDragEnterEvent& event);
    void move(QDragMoveEvent& event);
    void leave();
    void drop(QDropEvent& event);

  private:
    bool acceptText(QDropEvent& event) const;
    Qt::DropAction actionFor(const QDropEvent& event) const;
    bool dropText(QDropEvent& event, Offset target);
    bool insertAt(Offset target, std::string_view bytes);
    /// The text that is dragged and where it stood when the drag began.
    struct Dragged {
        Rope text;
        Range range;
    };
    /// Whether it still stands there: other code may edit while a drag is under way.
    bool isInPlace(const Dragged& dragged) const;

    RichTextView& view_;
    CaretActions& actions_;
    AutoScroll scroll_;
    std::optional<Dragged> dragged_;  // set while a drag that began here is under way
    bool droppedHere_ = false;
};

}  // namespace brindlex
