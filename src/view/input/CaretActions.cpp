#include "view/input/CaretActions.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QScrollBar>
#include <algorithm>

#include "view/RichTextView.h"
#include "view/TextMimeData.h"

namespace brindlex {
namespace {

/// Lines that a motion goes down (negative: up); 0 for a motion that does not keep the column.
Long linesOf(Motion motion, Long page) {
    switch (motion) {
        case Motion::LineUp:
            return -1;
        case Motion::LineDown:
            return 1;
        case Motion::PageUp:
            return -page;
        case Motion::PageDown:
            return page;
        default:
            return 0;
    }
}

}  // namespace

TextUnits CaretActions::units() const {
    return {view_.box().rope(), view_.box().characters()};
}

Offset CaretActions::positionAt(QPoint point) const {
    return units().snapped(view_.positionAt(point));
}

void CaretActions::perform(const EditAction& action) {
    using Kind = EditAction::Kind;
    const RichTextBox& box = view_.box();
    switch (action.kind) {
        case Kind::Move:
            return move(action.motion, false);
        case Kind::Select:
            return move(action.motion, true);
        case Kind::Delete:
            return remove(action.motion);
        case Kind::DeleteLine:
            replace(units().lineAt(box.caret()), {});
            return;
        case Kind::SelectAll:
            // without ensureCaretVisible: Select All does not scroll
            view_.box().select(Offset(0), Offset(box.length()));
            return offerPrimarySelection();
        case Kind::Deselect:
            return select(box.caret(), box.caret());
        case Kind::ScrollUp:
            return view_.lineScroll(-1);
        case Kind::ScrollDown:
            return view_.lineScroll(1);
        case Kind::ToggleOverwrite:
            return view_.setOverwriteMode(!view_.overwriteMode());
    }
}

void CaretActions::select(Offset anchor, Offset caret) {
    const TextUnits units = this->units();
    view_.box().select(units.snapped(anchor), units.snapped(caret));
    view_.ensureCaretVisible();
}

void CaretActions::moveTo(Offset caret, bool extend) {
    select(extend ? view_.box().anchor() : caret, caret);
}

bool CaretActions::replace(Range range, std::string_view bytes) {
    return view_.box().userReplace(range, bytes);
}

bool CaretActions::insert(std::string_view bytes) {
    return replace(view_.box().selection(), bytes);
}

bool CaretActions::type(char byte) {
    const Offset caret = view_.box().caret();
    const TextUnits units = this->units();
    const bool overwrites =
        view_.overwriteMode() && view_.box().selection().empty() && caret < units.lineEnd(caret);
    // an edit of its own, so that undo brings the character back
    if (overwrites && !replace({caret, units.next(caret)}, {})) return false;
    return insert(std::string_view(&byte, 1));
}

void CaretActions::remove(Motion motion) {
    const Range selection = view_.box().selection();
    if (!selection.empty()) {
        replace(selection, {});
        return;
    }
    const Offset caret = snappedCaret();
    const Offset other = target(motion, caret);
    replace({std::min(caret, other), std::max(caret, other)}, {});
}

void CaretActions::move(Motion motion, bool extend) {
    // one line of the old page stays for orientation
    const Long page = std::max<Long>(1, view_.linesPerPage() - 1);
    const Long lines = linesOf(motion, page);
    if (motion == Motion::PageUp || motion == Motion::PageDown) view_.lineScroll(lines);
    if (lines != 0)
        moveByLines(lines, extend);
    else
        moveTo(extend ? target(motion, snappedCaret()) : collapsed(motion), extend);
    if (extend) offerPrimarySelection();
}

Offset CaretActions::collapsed(Motion motion) const {
    const Range selection = view_.box().selection();
    if (!selection.empty() && motion == Motion::NextCharacter) return selection.end();
    if (!selection.empty() && motion == Motion::PreviousCharacter) return selection.begin();
    return target(motion, snappedCaret());
}

/// The caret as the user sees it: in front of a CR LF that code has put it into.
Offset CaretActions::snappedCaret() const {
    return units().snapped(view_.box().caret());
}

void CaretActions::moveByLines(Long lines, bool extend) {
    const int scrolled = view_.horizontalScrollBar()->value();
    const int column = column_ ? *column_ : view_.caretRect().left() + scrolled;
    const int x = column - view_.horizontalScrollBar()->value();
    const Offset there = units().snapped(view_.positionLinesAway(view_.box().caret(), lines, x));
    moveTo(there, extend);
    // a handler may have taken the caret elsewhere
    if (view_.box().caret() == there) column_ = column;
}

Offset CaretActions::target(Motion motion, Offset from) const {
    const TextUnits units = this->units();
    switch (motion) {
        case Motion::NextCharacter:
            return units.next(from);
        case Motion::PreviousCharacter:
            return units.previous(from);
        case Motion::NextWord:
            return units.nextWord(from);
        case Motion::PreviousWord:
            return units.previousWord(from);
        case Motion::LineStart:
            return units.lineStart(from);
        case Motion::LineEnd:
            return units.lineEnd(from);
        case Motion::TextStart:
            return Offset(0);
        case Motion::TextEnd:
            return Offset(view_.box().length());
        default:
            return from;
    }
}

void CaretActions::offerPrimarySelection() const {
    const RichTextBox& box = view_.box();
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (box.selection().empty() || !clipboard->supportsSelection()) return;
    clipboard->setMimeData(new TextMimeData(box.rope(), box.selection(), view_.codePage()),
                           QClipboard::Selection);
}

}  // namespace brindlex
