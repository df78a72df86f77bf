#include "shell/TypingAids.h"

#include <utility>
#include <vector>

#include "document/AppState.h"
#include "editor/KELP_RTBSyntax.h"
#include "editor/WordCompletion.h"
#include "shell/CompletionPopup.h"
#include "system/KeyCodes.h"
#include "text/LineEnds.h"

namespace brindlex {
namespace {

// KeyCodes of keys without a character.
constexpr int kKeyUp = 38;
constexpr int kKeyDown = 40;
constexpr int kKeyDelete = 46;

bool inserts(int KeyAscii) {
    return (KeyAscii >= ' ' && KeyAscii != kAsciiCtrlBackspace) || KeyAscii == kAsciiEnter ||
           KeyAscii == kAsciiCtrlEnter;
}

/// What `whole` has behind the first `length` bytes.
std::string restBehind(const std::string& whole, std::size_t length) {
    return whole.size() > length ? whole.substr(length) : std::string();
}

}  // namespace

// --- Keys ----------------------------------------------------------------------------------------

void TypingAids::KeyDown(int& KeyCode, int Shift) {
    if (KeyCode == kAsciiBackspace || KeyCode == kKeyDelete) SkipComplete_ = true;
    if (popup_.isShown()) {
        if (KeyCode == kAsciiEscape) cancelOffer();
        if (KeyCode == kKeyUp) popup_.selectPrevious();
        if (KeyCode == kKeyDown) popup_.selectNext();
        if (KeyCode == kKeyUp || KeyCode == kKeyDown) KeyCode = 0;
    }
    if (KeyCode == kAsciiEnter && editor_.SelLength() > 0) {
        KeyCode = 0;
        takeWord();
    }
    if (state_.AutoIndentEnabled && KeyCode == kAsciiEnter && editor_.SelStart() != 0) {
        editor_.AutoIndent(KeyCode);
        KeyCode = 0;
    }
    if (KeyCode == kAsciiTab) tab(KeyCode, Shift);
}

void TypingAids::cancelOffer() {
    popup_.hide();
    takeOutRest();
}

void TypingAids::goBehindSelection() {
    editor_.SetSelStart(editor_.SelStart() + editor_.SelLength());
}

/// The selected word of the list goes in the place of the selection, if it is one for the word at
/// the caret; otherwise the caret goes behind the selection.
void TypingAids::takeWord() {
    const std::string typed = wordAtCaret();
    const std::string word = popup_.isShown() ? popup_.word() : std::string();
    popup_.hide();
    const std::string rest = restBehind(word, typed.size());
    const bool isOffered = !typed.empty() && !word.empty() && beginsWith(word, typed);
    if (!isOffered || rest == editor_.SelText()) return goBehindSelection();
    takeOutRest();
    put(rest);
}

void TypingAids::tab(int& KeyCode, int Shift) {
    if (Shift == kShiftMask) {
        KeyCode = 0;
        return editor_.BackTab();
    }
    takeOutRest();
    if (editor_.SelLength() == 0) return;
    KeyCode = 0;
    editor_.MultiTab();
}

void TypingAids::KeyPress(int& KeyAscii) {
    if (inserts(KeyAscii)) takeOutRest();
    if (state_.AutoBlockIndentEnabled && KeyAscii == '{') {
        editor_.BlockIndent(KeyAscii);
        KeyAscii = 0;
    }
    if (state_.TypeOtherEnabled && KeyAscii == '[') KeyAscii = '{';
    if (state_.TypeOtherEnabled && KeyAscii == ']') KeyAscii = '}';
}

void TypingAids::Click() {
    popup_.hide();
}

void TypingAids::Change(bool isTyped) {
    rest_ = {};
    if (isTyped)
        subAutoComplete();
    else
        popup_.hide();
}

// --- Completion ----------------------------------------------------------------------------------

void TypingAids::exactly(const std::function<void()>& edit) {
    cancelOffer();
    SkipComplete_ = true;
    edit();
    SkipComplete_ = false;
}

void TypingAids::put(const std::string& text) {
    SkipComplete_ = true;
    editor_.SetSelText(text);
    SkipComplete_ = false;
}

void TypingAids::takeOutRest() {
    if (!rest_.empty() && editor_.box().selection() == rest_) put({});
}

std::string TypingAids::wordAtCaret() const {
    const RichTextBox& box = editor_.box();
    return wordInFrontOf(box.rope(), inFrontOfBreak(box.rope(), box.selection().begin()));
}

void TypingAids::subAutoComplete() {
    if (!state_.AutoCompleteEnabled || std::exchange(SkipComplete_, false)) return;
    const bool mayOffer = editor_.box().lastEditInserted() && !editor_.rtb().isComposing();
    const std::string word = wordAtCaret();
    if (!word.empty()) return mayOffer ? offer(word) : void();
    if (mayOffer) editor_.SetSelText({});
    popup_.hide();
}

void TypingAids::offer(const std::string& word) {
    std::vector<std::string> words;
    for (const std::string& keyword : state_.Keywords)
        if (beginsWith(keyword, word)) words.push_back(keyword);
    if (words.empty()) return popup_.setWords({});
    const Long start = editor_.SelStart();
    const std::size_t before = editor_.box().length();
    put(restBehind(words.front(), word.size()));
    editor_.SetSelStart(start);
    editor_.SetSelLength(static_cast<Long>(editor_.box().length() - before));
    rest_ = editor_.box().selection();
    popup_.setWords(std::move(words));
    popup_.show();
}

}  // namespace brindlex
