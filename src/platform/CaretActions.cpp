#include "platform/CaretActions.h"

#include <QScrollBar>
#include <algorithm>

#include "platform/PrimarySelection.h"
#include "platform/RichTextView.h"

namespace brindlex {
namespace {

/// Rows that a motion goes down (negative: up), in units of `page` for those by pages; 0 for a
/// motion that does not keep the column.
int rowsOf(Motion motion, int page) {
    switch (motion) {
        case Motion::RowUp:
            return -1;
        case Motion::RowDown:
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

CaretMotion CaretActions::motion() const {
    return {view_.box().rope(), view_.box().characters()};
}

Offset CaretActions::positionAt(QPoint point) const {
    return motion().snapped(view_.positionAt(point));
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
            replace(motion().lineAt(box.caret()), {});
            return;
        case Kind::SelectAll:
            // not brought into view: the caret goes to the end, the reader stays where he is
            view_.box().select(Offset(0), Offset(box.length()));
            return offerPrimarySelection(view_);
        case Kind::Deselect:
            return select(box.caret(), box.caret());
        case Kind::ScrollUp:
            return view_.rowScroll(-1);
        case Kind::ScrollDown:
            return view_.rowScroll(1);
        case Kind::ToggleOverwrite:
            return view_.setOverwriteMode(!view_.overwriteMode());
    }
}

void CaretActions::select(Offset anchor, Offset caret) {
    const CaretMotion units = motion();
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
    Range place = view_.box().selection();
    const CaretMotion units = motion();
    if (view_.overwriteMode() && place.empty() && place.end() < units.lineEnd(place.end()))
        place = {place.begin(), units.next(place.end())};
    return replace(place, std::string_view(&byte, 1));
}

void CaretActions::remove(Motion motion) {
    const Range selection = view_.box().selection();
    if (!selection.empty()) {
        replace(selection, {});
        return;
    }
    const Offset caret = shownCaret();
    const Offset other = target(motion, caret);
    replace({std::min(caret, other), std::max(caret, other)}, {});
}

void CaretActions::move(Motion motion, bool extend) {
    // one row of the old page stays, so that the reader keeps his place
    const int page = std::max(1, view_.rowsPerPage() - 1);
    const int rows = rowsOf(motion, page);
    if (motion == Motion::PageUp || motion == Motion::PageDown) view_.rowScroll(rows);
    if (rows != 0)
        moveByRows(rows, extend);
    else
        moveTo(extend ? target(motion, shownCaret()) : collapsed(motion), extend);
    if (extend) offerPrimarySelection(view_);
}

Offset CaretActions::collapsed(Motion motion) const {
    const Range selection = view_.box().selection();
    if (!selection.empty() && motion == Motion::NextCharacter) return selection.end();
    if (!selection.empty() && motion == Motion::PreviousCharacter) return selection.begin();
    return target(motion, shownCaret());
}

/// The caret where the user sees it: one that code has put between CR and LF stands in front of
/// them.
Offset CaretActions::shownCaret() const {
    return motion().snapped(view_.box().caret());
}

void CaretActions::moveByRows(int rows, bool extend) {
    const int column = column_.value_or(columnOfCaret());
    const int x = column - view_.horizontalScrollBar()->value();
    const Offset there = motion().snapped(view_.positionRowsAway(view_.box().caret(), rows, x));
    moveTo(there, extend);
    // a handler may have taken the caret elsewhere
    if (view_.box().caret() == there) column_ = column;
}

Offset CaretActions::target(Motion motion, Offset from) const {
    const CaretMotion units = this->motion();
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

int CaretActions::columnOfCaret() const {
    return view_.caretRect().left() + view_.horizontalScrollBar()->value();
}

}  // namespace brindlex
