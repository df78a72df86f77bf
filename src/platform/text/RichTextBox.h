#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/CharacterTable.h"
#include "platform/text/ColorRuns.h"
#include "platform/text/FormatRuns.h"
#include "platform/text/Formats.h"
#include "platform/text/RichTextFragment.h"
#include "platform/text/Rope.h"
#include "platform/text/Rtf.h"
#include "platform/text/TrackedRange.h"
#include "platform/text/Units.h"

namespace brindlex {

/// One change of the text: `removed` (offsets before the change) gave way to `inserted` bytes.
struct TextEdit {
    Range removed;
    std::size_t inserted = 0;
    std::size_t removedBreaks = 0;
    std::size_t insertedBreaks = 0;
    LineIndex line;  ///< the line of removed.begin(), the same before and after
};

/// What shows a RichTextBox. The notices come before the handlers onSelChange and onChange run, so
/// that whatever a handler asks of the screen is answered for the text as it now is. An observer
/// must not change the box.
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
/// Text is bytes of the 8-bit code page of `characters()`. Every line break is CR LF: a lone CR or
/// LF that comes in becomes CR LF, and a broken pair never exists. An insertion between CR and LF
/// goes in front of the CR; a removal that touches one half of a pair takes both.
///
/// Formats: inserted text takes the format of the character in front of it; at the start of a line
/// that of the character behind it, and the default format where there is none. The lines that an
/// edit makes or joins take the paragraph format of the first of them.
///
/// Events: an edit first changes the text, then the observer hears of it, then `onSelChange` runs,
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
    /// The text as a value that can be kept for the cost of a pointer.
    const Rope& rope() const { return rope_; }
    std::string Text() const;
    /// Replaces the whole text. Formats go back to the default character format and to the
    /// paragraph format of the first line; the caret goes to 0.
    void SetText(std::string_view text);
    std::size_t length() const { return rope_.size(); }

    // --- Selection -----------------------------------------------------------------------------
    Long SelStart() const;
    /// Moves the caret there and selects nothing; past the end means the end.
    void SetSelStart(Long start);
    Long SelLength() const;
    /// Past the end is cut at the end.
    void SetSelLength(Long length);
    std::string SelText() const;
    /// Replaces the selection and leaves the caret behind the new text. Works on a locked box too.
    void SetSelText(std::string_view text);

    /// The selection as the user made it: the end that moves is the caret. Ends are clamped.
    void select(Offset anchor, Offset caret);
    Offset anchor() const { return anchor_; }
    Offset caret() const { return caret_; }
    Range selection() const;

    // --- What the user does --------------------------------------------------------------------
    /// Replaces a stretch on the user's behalf and puts the caret behind the new text. A caret that
    /// is elsewhere goes to the stretch first, with its own SelChange, so that handlers find each
    /// edit at the caret; a handler that changes the text then calls the replacement off. Refused
    /// (false, nothing changed) when the box is locked, when a protected character would go,
    /// between two protected characters, and when MaxLength leaves no room for any of the text. Cut
    /// to what it leaves room for. The new text does
    /// not become protected by its neighbour, so that the user can correct it.
    bool userReplace(Range range, std::string_view text);
    /// As `userReplace`, but the moved text keeps its formats: the drop of a drag inside the box.
    /// `target` is an offset before the move; within or beside `range` the text stays. The moved
    /// text is selected afterwards. A move is two edits with their events, an insertion and a
    /// removal, so that both can be undone; should a handler change the text that is about to be
    /// removed, it stays.
    bool userMove(Range range, Offset target);

    bool Locked() const { return locked_; }
    void SetLocked(bool locked) { locked_ = locked; }
    /// The most bytes that the text may grow to by whatever comes in; 0 for no limit. A longer text
    /// that is there already stays. Negative values are refused.
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

    // --- Character format of the selection; unset means that the selection is mixed -------------
    // With an empty selection: the format of the text that is inserted next, until the caret moves.
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
    std::optional<bool> SelProtected() const;
    void SetSelProtected(bool on);
    std::optional<Long> SelCharOffset() const;
    void SetSelCharOffset(Long twips);
    /// The format of the character at an offset, at the end the default format. Valid until a
    /// format is set.
    const CharFormat& formatAt(Offset offset) const;
    /// Colours the bytes from `begin` on, run by run, without a look at the selection; what lies
    /// past the end of the text is left out. Cost: O(log n + runs).
    void colorRuns(Offset begin, std::span<const ColorRun> runs);
    /// The characters around the one at an offset that all have its format; empty at the end.
    Range formatRangeAt(Offset offset) const;
    /// Calls `visit(Range, const CharFormat&)` for the runs of equal format within `range`, cut to
    /// it, in order, until it returns false. Cost: O(log n + runs visited).
    template <typename Visit>
    void visitFormats(Range range, Visit&& visit) const;

    // --- Paragraph format of the lines that the selection touches; lengths in twips -------------
    // A line is touched when one of its characters is selected, or the caret stands in it.
    std::optional<Alignment> SelAlignment() const;
    void SetSelAlignment(Alignment alignment);
    std::optional<bool> SelBullet() const;
    void SetSelBullet(bool on);
    std::optional<Long> SelIndent() const;
    void SetSelIndent(Long twips);
    std::optional<Long> SelHangingIndent() const;
    void SetSelHangingIndent(Long twips);
    std::optional<Long> SelRightIndent() const;
    void SetSelRightIndent(Long twips);
    /// The number of tab stops, kMaxTabStops at most; setting a larger one adds stops 720 twips
    /// apart.
    static constexpr Long kMaxTabStops = 32;
    std::optional<Long> SelTabCount() const;
    void SetSelTabCount(Long count);
    /// Tab stop `index`, 0-based; unset when mixed, 0 for an index at or past SelTabCount. Setting
    /// one that does not exist does nothing; the stops stay in rising order.
    std::optional<Long> SelTabs(Long index) const;
    void SetSelTabs(Long index, Long twips);
    /// The format of a line, past the last one that of the last. Valid until a format is set.
    const ParagraphFormat& paragraphAt(LineIndex line) const;

    // --- Rich text -----------------------------------------------------------------------------
    std::string TextRTF() const;
    /// Replaces the whole text with what `rtf` describes, text and formats. Returns false and
    /// leaves everything as it was when `rtf` is damaged or no RTF. A text that does not begin
    /// with "{\rtf" is taken as plain text.
    bool SetTextRTF(std::string_view rtf);
    std::string SelRTF() const;
    /// Replaces the selection, as SetTextRTF does with the whole text, and leaves the caret behind
    /// the new text. A line that is only part new keeps its paragraph format.
    bool SetSelRTF(std::string_view rtf);
    /// The font that RTF names for characters without one of their own; only written out.
    void setBaseFont(std::string name, int halfPoints);

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
    /// What an edit puts in. Breaks are CR LF.
    struct Insertion {
        std::string_view text;
        FormatId format = 0;                         ///< of the text, when `characters` is empty
        std::span<const FormatRun> characters = {};  ///< as long as the text, or empty
        std::span<const FormatRun> paragraphs = {};  ///< of the lines the edit leaves, or empty
    };
    /// What an edit or a move of the selection did, to be told to observer and handlers.
    struct ChangeNotice {
        std::optional<TextEdit> edit;
        bool selectionMoved = false;
    };

    // --- The one door for change; `edit` and `select` are `announce` behind what they did --------
    void edit(Range removed, const Insertion& insertion, Offset caret);
    ChangeNotice apply(Range removed, const Insertion& insertion, Offset caret);
    TextEdit replaceText(Range removed, std::string_view text);
    void replaceParagraphs(const TextEdit& edit, std::span<const FormatRun> paragraphs);
    bool moveSelection(Offset anchor, Offset caret);
    void announce(const ChangeNotice& notice);
    void announceFormats(Range range);
    /// Checks the invariants after a change of a short text; in debug builds alone.
    void checkChange() const;

    /// Normalises and cuts `text`, then edits; the caret goes behind it. `removed` splits no pair.
    std::string_view fitting(Range removed, std::string_view text, std::string& storage) const;
    void insert(Range removed, std::string_view text, FormatId format);
    enum class CaretPlace { Start, Behind };
    void insertFragment(Range removed, const RichTextFragment& fragment, CaretPlace place);
    void keepPartLines(Range removed, std::vector<FormatRun>& paragraphs) const;
    std::size_t roomWithout(Range removed) const;
    bool caretGoesTo(Offset place);
    bool userMayReplace(Range range) const;
    /// The format set for the next text, if what replaces `removed` is that text.
    std::optional<FormatId> chosenFormat(Range removed) const;
    FormatId inheritedFormat(Range removed) const;
    /// Of text that SetSelText would put in the place of `removed`.
    FormatId formatFor(Range removed) const {
        return chosenFormat(removed).value_or(inheritedFormat(removed));
    }
    FormatId withoutProtection(FormatId format);

    Offset offsetOf(Long offset) const;
    Range clamped(Range range) const;
    Range wholeText() const { return {Offset(0), Offset(rope_.size())}; }

    template <typename Value>
    std::optional<Value> characterField(Value CharFormat::*field) const;
    template <typename Value>
    void setCharacterField(Value CharFormat::*field, Value value);
    UnitRange selectedLines() const;
    template <typename Read>
    auto commonOfParagraphs(Read&& read) const;
    void changeParagraphs(const std::function<void(ParagraphFormat&)>& change);

    RichTextFragment fragmentOf(Range range) const;

    const CharacterTable& characters_;
    Rope rope_;
    FormatRuns<CharFormat> charFormats_{0};
    FormatRuns<ParagraphFormat> paragraphFormats_{1};
    Offset anchor_;
    Offset caret_;
    std::optional<FormatId> nextFormat_;  // set for text inserted at the caret, until it moves
    bool locked_ = false;
    Long maxLength_ = 0;
    RtfBaseFont baseFont_;
    RichTextObserver* observer_ = nullptr;
    TrackedRange* tracked_ = nullptr;
};

template <typename Visit>
void RichTextBox::visitFormats(Range range, Visit&& visit) const {
    const Range within = clamped(range);
    charFormats_.visit({within.begin().value(), within.end().value()},
                       [&](std::size_t begin, std::size_t end, FormatId id) -> bool {
                           return visit(Range(Offset(begin), Offset(end)), charFormats_.format(id));
                       });
}

}  // namespace brindlex
