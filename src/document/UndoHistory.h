#pragma once

#include <string>

#include "document/AppState.h"

namespace brindlex {

class KELP_RTBSyntax;

/// Undo and redo. The stacks of AppState hold a record for each change of the text; the top of
/// UndoStack is the text as it now is. A replay works out by what length two records differ and
/// edits only that stretch, through the selection, so the document becomes dirty and the lines are
/// coloured as with any edit.
///
/// Only differences in length come back: of text that a shorter one replaced, as many bytes as it
/// was longer; of a change that kept the length, nothing. The first change of a document has no
/// record below it and cannot be undone. Where the stretch would begin or end inside a line break,
/// the text of the record is restored exactly instead.
///
/// A record costs O(log n) time and memory in the length of the text, a replay also what it puts
/// in, an exact one O(n). Any record may be replayed on any text.
class UndoHistory {
  public:
    /// Both outlive the history.
    UndoHistory(AppState& state, KELP_RTBSyntax& editor) : state_(state), editor_(editor) {}

    /// The text has changed: puts its record on UndoStack and empties RedoStack.
    void record();
    /// Go one change back or forth, where there is one, and give the editor the focus.
    void Undo();
    void Redo();
    void clear();

  private:
    void replayUndo();
    void replayRedo();
    void remove(Long start, Long length, const Rope& exact);
    void restore(Long start, const std::string& text, const Rope& exact);
    void restoreExactly(const Rope& text);
    bool isInsideBreak(Long offset) const;
    void replace(Long start, Long length, const std::string& text);
    void setSelection(Long start, Long length);

    AppState& state_;
    KELP_RTBSyntax& editor_;
};

/// The stretch of the longer of two texts (of `a` when they are equally long) that ends in front of
/// the 1-based `position` and is as long as their difference. What of it lies outside of the text
/// is left out.
std::string TextDifference(const Rope& a, const Rope& b, Long position);

}  // namespace brindlex
