#pragma once

#include <functional>
#include <string>

#include "text/Units.h"

namespace brindlex {

class CompletionPopup;
class KELP_RTBSyntax;
struct AppState;

/// What makes typing in the editor special: indents, blocks, braces, and completion, which offers
/// the rest of a word by putting it behind the caret, selected.
///
/// Each edit is a pure insertion or a pure removal, so that undo brings back no text that was never
/// there: an offered rest that a key would replace is taken out first.
class TypingAids {
  public:
    /// All outlive this object.
    TypingAids(const AppState& state, KELP_RTBSyntax& editor, CompletionPopup& popup)
        : state_(state), editor_(editor), popup_(popup) {}

    // --- Handlers of the editor's events -------------------------------------------------------
    void KeyDown(int& KeyCode, int Shift);
    void KeyPress(int& KeyAscii);
    void Click();
    /// Enter on a selection, and a double click on a word of the list.
    void takeWord();
    /// Behind each change, once it is recorded. `isTyped`: the change is neither a replay of undo
    /// nor part of a load.
    void Change(bool isTyped);

    /// Runs an edit that puts in exactly its own text: nothing is offered for it. An offered rest
    /// is taken out first.
    void exactly(const std::function<void()>& edit);
    /// Takes out the offered rest if it is what is selected, as an edit of its own.
    void takeOutRest();

  private:
    void cancelOffer();
    /// Offers the rest of the word at the caret. A change that only removed text offers nothing.
    void subAutoComplete();
    void goBehindSelection();
    void tab(int& KeyCode, int Shift);
    void offer(const std::string& word);
    /// SelText = `text`, which starts no completion.
    void put(const std::string& text);
    std::string wordAtCaret() const;

    const AppState& state_;
    KELP_RTBSyntax& editor_;
    CompletionPopup& popup_;
    bool SkipComplete_ = false;  // the next change starts no completion
    Range rest_;                 // offered last, the text has not changed since; empty for none
};

}  // namespace brindlex
