#pragma once

#include <string>

#include "shell/UndoElement.h"

namespace brindlex {

class KELP_RTBSyntax;
struct AppState;

/// Undo and redo. The stacks of AppState hold a record for each change of the text; the top of
/// UndoStack is the text as it now stands. A replay works out by what two records differ and edits
/// just that, through the selection, so the document becomes dirty and the lines are coloured as
/// with any edit.
///
/// A step is known by its length alone: text that was replaced comes back only as far as the
/// replacement was shorter, and a change that kept the length is passed over. The first change of a
/// document has no record below it and stays.
///
/// A record costs O(log n) time and memory in the length of the text, a replay also what it puts
/// in. Any records may be replayed on any text: what lies outside of it is brought into it.
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
    void remove(Long start, Long length);
    void restore(Long start, const std::string& text);
    void setSelection(Long start, Long length);

    AppState& state_;
    KELP_RTBSyntax& editor_;
};

}  // namespace brindlex
