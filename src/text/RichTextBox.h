#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "text/CharacterTable.h"
#include "text/FormatRuns.h"
#include "text/Formats.h"
#include "text/Rope.h"
#include "text/Runs.h"
#include "text/Units.h"
#include "text/rtf/Rtf.h"

namespace brindlex {

/// One change of the text: `removed` (offsets before the change) gave way to `inserted` bytes.
struct TextEdit {
    Range removed;
    std::size_t inserted = 0;
    std::size_t removedBreaks = 0;
    std::size_t insertedBreaks = 0;
    LineIndex line;  ///< the line of removed.begin(), the same before and after
};

/// What shows a RichTextBox. It is notified before the handlers onSelChange and onChange run, so
/// that whatever a handler asks of the screen is answered for the new text. An observer must not
/// change the box.
class RichTextObserver {
  public:
    virtual ~RichTextObserver() = default;
    virtual void textChanged(const TextEdit& edit) = 0;
    /// Formats in `range` changed; the text did not.
    virtual void formatChanged(Range range) = 0;
    virtual void selectionChanged() = 0;
};

/// Bits of Find's options.
enum FindOption : Long { FindWholeWord = 2, FindMatchCase = 4, FindNoHighlight = 8 };

/// A rich text widget without a screen: text, selection, formats, searches.
///
/// Text is bytes of the 8-bit code page of `characters()`, less than 2 GiB. Every line break is
/// CR LF: a lone CR or LF that comes in becomes CR LF, and a break is never split. An insertion
/// between CR and LF goes in front of the CR; a removal that touches one half takes both.
///
/// Inserted text takes the format of the character in front of it; at the start of a line that of
/// the character behind it, and the default format where there is none.
///
/// Events: an edit first changes the text, then notifies the observer, then runs `onSelChange`,
/// also when the caret stays where it is, then `onChange`. A change of caret or selection alone
/// runs `onSelChange`. All of it happens before the call returns. Handlers may call back into the
/// box, but not replace the handler that runs. An edit that removes and inserts nothing raises no
/// Change; formats raise none either.
///
/// Errors: a negative offset or length throws std::out_of_range and changes nothing; nothing else
/// throws. An offset past the end means the end.
/// Costs: with n bytes of text, an edit, a position or a line look-up is O(log n) plus the bytes it
/// inserts or returns.
class RichTextBox {
  public:
    /// `characters` must outlive the box.
    explicit RichTextBox(const CharacterTable& characters = CharacterTable::latin1());
    RichTextBox(const RichTextBox&) = delete;
    RichTextBox& operator=(const RichTextBox&) = delete;

    // --- Handlers and observer -----------------------------------------------------------------
    std::function<void()> onSelChange;
    std::function<void()> onChange;
    /// Not owned; null for none.
    void setObserver(RichTextObserver* observer) { observer_ = observer; }

    // --- Text ----------------------------------------------------------------------------------
    const CharacterTable& characters() const { return characters_; }
    /// The text as a value: a copy is O(1).
    const Rope& rope() const { return rope_; }
    std::string Text() const;
    /// Replaces the whole text, in the default format; the caret goes to 0. A rope whose line
    /// breaks are CR LF and that fits is taken without a copy.
    void SetText(const Rope& text);
    void SetText(std::string_view text) { SetText(Rope(text)); }
    std::size_t length() const { return rope_.size(); }
    /// Whether the last change of the text put something in, and did not only remove.
    bool lastEditInserted() const { return lastEditInserted_; }

    // --- Selection -----------------------------------------------------------------------------
    Long SelStart() const;
    /// Moves the caret there and selects nothing; past the end means the end.
    void SetSelStart(Long start);
    Long SelLength() const;
    /// Past the end is cut at the end.
    void SetSelLength(Long length);
    /// Exactly the selected bytes, also of half a line break; see wholeBreaks.
    std::string SelText() const;
    /// Replaces the selection and leaves the caret behind the new text. Works on a locked box too.
    void SetSelText(std::string_view text);

    /// The selection as the user made it: the end that moves is the caret. Ends are clamped.
    void select(Offset anchor, Offset caret);
    Offset anchor() const { return anchor_; }
    Offset caret() const { return caret_; }
    Range selection() const;
    /// What a removal of `range` removes: the range, widened over each line break that one of its
    /// ends splits. An empty range inside a break moves in front of it. Ends are clamped.
    Range wholeBreaks(Range range) const;

    // --- What the user does --------------------------------------------------------------------
    /// Replaces a range for the user and puts the caret behind the new text. A caret that is
    /// elsewhere goes to the range's start first, with its own SelChange, so that handlers find
    /// each edit at the caret; before an insertion it also does so from within the range. Text that
    /// MaxLength leaves no room for is cut. False, and the text as it was, when the box is locked,
    /// when there is no room for any of the text, and when a handler changes the text as the caret
    /// moves. True, and nothing else, when there is nothing to remove and nothing to put in.
    bool userReplace(Range range, std::string_view text);
    /// Moves text, which keeps its formats: the drop of a drag inside the box. `target` is an
    /// offset before the move; within or beside `range` the text stays. The moved text is selected
    /// afterwards, unless a handler has selected something else. A move is two edits with their
    /// events, a removal and an insertion, so that both can be undone; the text comes in again
    /// whatever the handlers do. False when it is refused as by userReplace.
    bool userMove(Range range, Offset target);

    bool Locked() const { return locked_; }
    void SetLocked(bool locked) { locked_ = locked; }
    /// Text that comes in is cut where the whole would exceed so many bytes; 0 for no limit. A text
    /// that is longer already stays. Negative values are refused.
    Long MaxLength() const { return maxLength_; }
    void SetMaxLength(Long length);

    // --- Lines ---------------------------------------------------------------------------------
    Long GetLineCount() const;
    /// The 0-based line that holds the offset; an offset past the end means the last line.
    Long GetLineFromChar(Long offset) const;
    /// The offset of the first character of a 0-based line, -1 for a line that does not exist; -1
    /// asks for the line of the caret.
    Long GetLineIndex(Long line) const;
    /// The range of a line without its line break; empty at the end for a line past the last.
    Range lineContent(LineIndex line) const;

    // --- Formats of the selection ---------------------------------------------------------------
    // Unset: the selection is mixed. An empty selection reads as the format that text inserted
    // there would take; setting a format on it does nothing.
    std::optional<ColorRef> SelColor() const;
    void SetSelColor(ColorRef color);
    std::optional<bool> SelBold() const;
    void SetSelBold(bool on);
    std::optional<bool> SelItalic() const;
    void SetSelItalic(bool on);
    std::optional<bool> SelUnderline() const;
    void SetSelUnderline(bool on);
    std::optional<bool> SelStrikethru() const;
    void SetSelStrikethru(bool on);
    /// The format of the character at an offset, at the end the default format.
    CharFormat formatAt(Offset offset) const;
    /// The characters around the one at an offset that all have its format; empty at the end.
    Range formatRangeAt(Offset offset) const;
    /// Calls `visit(Range, CharFormat)` for the runs of equal format within `range`, cut to it, in
    /// order, until it returns false. Cost: O(log n + runs visited).
    template <typename Visit>
    void visitFormats(Range range, Visit&& visit) const {
        formats_.visit(clamped(range), std::forward<Visit>(visit));
    }
    /// Colours the bytes from `begin` on, run by run, without a look at the selection; what lies
    /// past the end of the text is left out. Cost: O(log n + runs).
    void colorRuns(Offset begin, std::span<const ColorRun> runs);

    // --- Formats of the whole text; lengths in twips ---------------------------------------------
    /// The left edge of the text. The one format here that shows.
    Long SelIndent() const { return indent_; }
    void SetSelIndent(Long twips);
    // Stored values.
    Long SelHangingIndent() const { return hangingIndent_; }
    void SetSelHangingIndent(Long twips) { hangingIndent_ = twips; }
    Long SelRightIndent() const { return rightIndent_; }
    void SetSelRightIndent(Long twips) { rightIndent_ = twips; }
    Long SelAlignment() const { return alignment_; }
    void SetSelAlignment(Long alignment) { alignment_ = alignment; }
    bool SelBullet() const { return bullet_; }
    void SetSelBullet(bool on) { bullet_ = on; }
    bool SelProtected() const { return isProtected_; }
    void SetSelProtected(bool on) { isProtected_ = on; }
    Long SelCharOffset() const { return charOffset_; }
    void SetSelCharOffset(Long twips) { charOffset_ = twips; }
    /// At most kMaxTabStops; a new stop is at 0.
    static constexpr Long kMaxTabStops = 32;
    Long SelTabCount() const;
    void SetSelTabCount(Long count);
    /// Tab stop `index`, 0-based; 0 for one that does not exist. Setting such a one does nothing.
    Long SelTabs(Long index) const;
    void SetSelTabs(Long index, Long twips);

    // --- Rich text -----------------------------------------------------------------------------
    std::string TextRTF() const;
    /// Replaces the whole text with what `rtf` describes. Returns false and leaves everything as it
    /// was when `rtf` is damaged. What does not begin with "{\rtf" is taken as plain text.
    bool SetTextRTF(std::string_view rtf);
    std::string SelRTF() const;
    /// Replaces the selection, as SetTextRTF does with the whole text, and leaves the caret behind
    /// the new text.
    bool SetSelRTF(std::string_view rtf);

    // --- Searching -----------------------------------------------------------------------------
    /// Searches `text` in the characters from `start` up to `end`. Without `start` the search
    /// begins at SelStart; without `end` it goes to the end of the text, and without both to the
    /// end of a selection that is not empty. `end` below `start` searches backward, for the last
    /// match between them. Selects the match, unless FindNoHighlight is set, and returns its
    /// offset; -1, and the selection as it was, when there is none or `text` is empty. Line breaks
    /// in `text` become CR LF. Without FindMatchCase the case of letters does not count; with
    /// FindWholeWord no letter, digit or underscore may stand beside the match. Cost: O(log n) and
    /// the bytes up to the match.
    Long Find(std::string_view text, std::optional<Long> start, std::optional<Long> end,
              Long options);
    /// Selects the run of characters that are in `set` (with `negate`: that are not in it) from
    /// SelStart on, forward or backward; an empty run selects nothing there.
    void Span(std::string_view set, bool forward, bool negate);
    /// Moves the caret up to the first character that is in `set` (with `negate`: not in it) and
    /// selects nothing. Caret and selection stay when there is none.
    void UpTo(std::string_view set, bool forward, bool negate);

    /// Recomputes every cached sum; aborts with a message on a difference. Debug builds call it
    /// after each change of a small text.
    void checkInvariants() const;

  private:
    // --- The door for change: every edit and every move of the selection passes here -------------
    // `removed` splits no break; `text` has whole ones and fits into the room.
    void edit(Range removed, std::string_view text, std::span<const FormatRun> runs, Offset caret);
    void assign(const Rope& text);
    void finish(const std::optional<TextEdit>& edit, Offset caret);
    bool moveSelection(Offset anchor, Offset caret);
    void announce(const std::optional<TextEdit>& edit, bool selectionMoved);
    void announceFormats(Range range);
    void checkChange() const;

    void insert(Range removed, std::string_view text);
    bool insertRtf(Range removed, std::string_view rtf, bool caretBehind);
    std::string_view fitting(Range removed, std::string_view text, std::string& storage) const;
    std::size_t roomWithout(Range removed) const;
    CharFormat inheritedFormat(Range removed) const;
    template <typename Read>
    auto commonFormat(Read&& read) const;
    template <typename Change>
    void changeFormat(Change&& change);
    RichText richText(Range range) const;

    Offset offsetOf(Long offset) const;
    Range clamped(Range range) const;
    Range wholeText() const { return {Offset(0), Offset(rope_.size())}; }

    const CharacterTable& characters_;
    Rope rope_;
    FormatRuns formats_;
    Offset anchor_;
    Offset caret_;
    bool lastEditInserted_ = false;
    bool locked_ = false;
    Long maxLength_ = 0;
    RichTextObserver* observer_ = nullptr;

    Long indent_ = 0;
    Long hangingIndent_ = 0;
    Long rightIndent_ = 0;
    Long alignment_ = 0;
    bool bullet_ = false;
    bool isProtected_ = false;
    Long charOffset_ = 0;
    std::vector<Long> tabs_;
};

}  // namespace brindlex
