#include "document/UndoHistory.h"

#include <algorithm>
#include <utility>

#include "editor/KELP_RTBSyntax.h"
#include "text/LineEnds.h"

namespace brindlex {
namespace {

/// Moves the top of one stack, if there is one, to the other.
void moveTop(std::deque<UndoElement>& from, std::deque<UndoElement>& to) {
    if (from.empty()) return;  // a handler has loaded another document
    to.push_back(std::move(from.back()));
    from.pop_back();
}

Long lengthOf(const std::string& text) {
    return static_cast<Long>(text.size());
}

/// Whether `text`, cut out of a text with whole line breaks, begins or ends inside one.
bool hasHalfBreak(const std::string& text) {
    return !text.empty() && (text.front() == '\n' || text.back() == '\r');
}

}  // namespace

std::string TextDifference(const Rope& a, const Rope& b, Long position) {
    const Rope& longer = a.size() < b.size() ? b : a;
    const Rope& shorter = a.size() < b.size() ? a : b;
    const auto within = [&longer](Long offset) {
        return Offset(static_cast<std::size_t>(
            std::clamp(offset, Long{0}, static_cast<Long>(longer.size()))));
    };
    const auto count = static_cast<Long>(longer.size() - shorter.size());
    return longer.bytes({within(position - 1 - count), within(position - 1)});
}

void UndoHistory::record() {
    state_.RedoStack.clear();
    const Rope& text = editor_.box().rope();
    state_.UndoStack.push_back({editor_.SelStart(), static_cast<Long>(text.size()), text});
}

void UndoHistory::clear() {
    state_.UndoStack.clear();
    state_.RedoStack.clear();
}

void UndoHistory::Undo() {
    if (state_.UndoStack.size() >= 2 && state_.UndoRecording) {
        state_.UndoRecording = false;
        replayUndo();
        moveTop(state_.UndoStack, state_.RedoStack);
    }
    state_.UndoRecording = true;
    editor_.SetFocus();
}

void UndoHistory::Redo() {
    if (!state_.RedoStack.empty() && state_.UndoRecording) {
        state_.UndoRecording = false;
        replayRedo();
        moveTop(state_.RedoStack, state_.UndoStack);
    }
    state_.UndoRecording = true;
    editor_.SetFocus();
}

// A record's caret stands behind what was typed, or where something was deleted. So typed text lies
// in front of the caret, and deleted text lay behind it.

void UndoHistory::replayUndo() {
    const UndoElement current = state_.UndoStack.back();
    const UndoElement previous = *std::prev(state_.UndoStack.end(), 2);
    const Long lost = previous.TextLen - current.TextLen;
    if (lost < 0) return remove(current.SelStart + lost, -lost, previous.Text);
    restore(current.SelStart,
            TextDifference(previous.Text, current.Text, lost + current.SelStart + 1),
            previous.Text);
}

void UndoHistory::replayRedo() {
    const UndoElement next = state_.RedoStack.back();
    const Rope& now = editor_.box().rope();
    const Long surplus = static_cast<Long>(now.size()) - next.TextLen;
    if (surplus > 0) return remove(next.SelStart, surplus, next.Text);
    const std::string text = TextDifference(now, next.Text, next.SelStart + 1);
    restore(next.SelStart - lengthOf(text), text, next.Text);
}

void UndoHistory::remove(Long start, Long length, const Rope& exact) {
    if (isInsideBreak(start) || isInsideBreak(start + length)) return restoreExactly(exact);
    replace(start, length, {});
}

/// A line break and a single character leave the caret behind them, longer texts stay selected.
void UndoHistory::restore(Long start, const std::string& text, const Rope& exact) {
    if (hasHalfBreak(text) || (!text.empty() && isInsideBreak(start))) return restoreExactly(exact);
    replace(start, 0, text);
    if (text.size() > 1 && text != kLineBreak)
        setSelection(start, lengthOf(text));
    else
        setSelection(start + lengthOf(text), 0);
}

/// Makes the editor's text that of a record, by replacing what lies between their common beginning
/// and their common end. Neither ends inside a line break, for both texts hold whole ones alone.
void UndoHistory::restoreExactly(const Rope& text) {
    const std::string then = text.bytes();
    const std::string now = editor_.box().rope().bytes();
    const auto shorter = static_cast<std::ptrdiff_t>(std::min(then.size(), now.size()));
    const auto begin =
        std::mismatch(now.begin(), now.begin() + shorter, then.begin()).first - now.begin();
    const auto end =
        std::mismatch(now.rbegin(), now.rbegin() + shorter - begin, then.rbegin()).first -
        now.rbegin();
    replace(begin, std::ssize(now) - begin - end, {then.begin() + begin, then.end() - end});
}

bool UndoHistory::isInsideBreak(Long offset) const {
    return offset > 0 &&
           splitsBreak(editor_.box().rope(), Offset(static_cast<std::size_t>(offset)));
}

void UndoHistory::replace(Long start, Long length, const std::string& text) {
    setSelection(start, length);
    editor_.SetSelText(text);
}

void UndoHistory::setSelection(Long start, Long length) {
    editor_.SetSelStart(std::max(start, Long{0}));
    editor_.SetSelLength(length);
}

}  // namespace brindlex
