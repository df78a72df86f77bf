#include "view/input/TextDragDrop.h"

#include <QDrag>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>
#include <algorithm>

#include "system/DroppedFile.h"
#include "view/RichTextView.h"
#include "view/TextMimeData.h"
#include "view/input/CaretActions.h"

namespace brindlex {
namespace {

constexpr int kEdge = 16;  // pixels in which a hovering drag scrolls

}  // namespace

TextDragDrop::TextDragDrop(RichTextView& view, CaretActions& actions)
    : view_(view),
      actions_(actions),
      scroll_(view, kEdge, [this] { view_.setDropCaret(actions_.positionAt(scroll_.pointer())); }) {
}

void TextDragDrop::start() {
    const Dragged dragged{view_.box().rope(), view_.box().selection()};
    const bool locked = view_.box().Locked();
    dragged_ = dragged;
    droppedHere_ = false;
    auto* drag = new QDrag(&view_);  // the toolkit deletes it
    drag->setMimeData(new TextMimeData(dragged.text, dragged.range, view_.codePage()));
    const QPointer<QWidget> alive(&view_);
    const Qt::DropAction done =
        drag->exec(locked ? Qt::CopyAction : Qt::CopyAction | Qt::MoveAction,
                   locked ? Qt::CopyAction : Qt::MoveAction);
    if (!alive) return;
    dragged_.reset();
    if (done == Qt::MoveAction && !droppedHere_ && isInPlace(dragged))
        actions_.replace(dragged.range, {});
}

bool TextDragDrop::isInPlace(const Dragged& dragged) const {
    const Rope& now = view_.box().rope();
    return dragged.range.end().value() <= now.size() &&
           now.bytes(dragged.range) == dragged.text.bytes(dragged.range);
}

void TextDragDrop::enter(QDragEnterEvent& event) {
    acceptText(event);
}

void TextDragDrop::move(QDragMoveEvent& event) {
    if (!acceptText(event)) return;
    const QPoint at = event.position().toPoint();
    scroll_.follow(at);
    view_.setDropCaret(actions_.positionAt(at));
}

void TextDragDrop::leave() {
    scroll_.stop();
    view_.setDropCaret(std::nullopt);
}

void TextDragDrop::drop(QDropEvent& event) {
    leave();
    if (!acceptText(event)) return;
    droppedHere_ = dragged_.has_value();
    if (!dropText(event, actions_.positionAt(event.position().toPoint()))) return event.ignore();
    view_.activateWindow();
    view_.setFocus(Qt::OtherFocusReason);
}

bool TextDragDrop::acceptText(QDropEvent& event) const {
    const QMimeData& data = *event.mimeData();
    if (view_.box().Locked() || !data.hasText() || !localFileOf(data).isEmpty()) {
        event.ignore();
        return false;
    }
    event.setDropAction(actionFor(event));
    event.accept();
    return true;
}

Qt::DropAction TextDragDrop::actionFor(const QDropEvent& event) const {
    if (!dragged_) return event.proposedAction();
    return event.modifiers().testFlag(Qt::ControlModifier) ? Qt::CopyAction : Qt::MoveAction;
}

bool TextDragDrop::dropText(QDropEvent& event, Offset target) {
    RichTextBox& box = view_.box();
    if (!dragged_) {
        const QString text = event.mimeData()->text();
        return insertAt(target, view_.codePage().fromUnicode(text));
    }
    if (event.dropAction() == Qt::CopyAction || !isInPlace(*dragged_))
        return insertAt(target, dragged_->text.bytes(dragged_->range));
    return box.userMove(dragged_->range, target);
}

bool TextDragDrop::insertAt(Offset target, std::string_view bytes) {
    if (!actions_.replace({target, target}, bytes)) return false;
    // a handler of the change may have selected something of its own
    const RichTextBox& box = view_.box();
    if (box.selection().empty() && box.caret() > target) actions_.select(target, box.caret());
    return true;
}

}  // namespace brindlex
