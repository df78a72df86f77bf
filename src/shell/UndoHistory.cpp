#include "shell/UndoHistory.h"

#include <algorithm>
#include <utility>

#include "editor/KELP_RTBSyntax.h"
#include "shell/AppState.h"
#include "shell/TextDifference.h"

namespace brindlex {
namespace {

/// Hands the top of one stack over to the other.
void moveTop(std::deque<UndoElement>& from, std::deque<UndoElement>& to) {
    to.push_back(std::move(from.back()));
    from.pop_back();
}

Long lengthOf(const std::string& text) {
    return static_cast<Long>(text.size());
}

}  // namespace

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

// A record's caret stands behind what was typed and at what was deleted: the two directions find
// their stretch on its two sides.

void UndoHistory::replayUndo() {
    const UndoElement& current = state_.UndoStack.back();
    const UndoElement& previous = *std::prev(state_.UndoStack.end(), 2);
    const Long lost = previous.TextLen - current.TextLen;
    if (lost < 0) return remove(current.SelStart + lost, -lost);
    restore(current.SelStart,
            TextDifference(previous.Text, current.Text, lost + current.SelStart + 1));
}

void UndoHistory::replayRedo() {
    const UndoElement& next = state_.RedoStack.back();
    const Rope& now = editor_.box().rope();
    const Long surplus = static_cast<Long>(now.size()) - next.TextLen;
    if (surplus > 0) return remove(next.SelStart, surplus);
    const std::string text = TextDifference(now, next.Text, next.SelStart + 1);
    restore(next.SelStart - lengthOf(text), text);
}

void UndoHistory::remove(Long start, Long length) {
    setSelection(start, length);
    editor_.SetSelText({});
}

/// A line break and a single character leave the caret behind them, longer texts stay selected.
void UndoHistory::restore(Long start, const std::string& text) {
    setSelection(start, 0);
    editor_.SetSelText(text);
    if (text.size() > 1 && text != "\r\n")
        setSelection(start, lengthOf(text));
    else
        setSelection(start + lengthOf(text), 0);
}

void UndoHistory::setSelection(Long start, Long length) {
    editor_.SetSelStart(std::max(start, Long{0}));
    editor_.SetSelLength(length);
}

}  // namespace brindlex
