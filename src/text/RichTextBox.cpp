#include "text/RichTextBox.h"

#include <algorithm>
#include <stdexcept>

#include "text/Invariant.h"
#include "text/LineEnds.h"

namespace brindlex {

namespace {

std::size_t notNegative(Long value, const char* what) {
    if (value < 0) throw std::out_of_range(what);
    return static_cast<std::size_t>(value);
}

Long toLong(std::size_t value) {
    return static_cast<Long>(value);
}

}  // namespace

RichTextBox::RichTextBox(const CharacterTable& characters) : characters_(characters) {}

// --- Text ----------------------------------------------------------------------------------------

std::string RichTextBox::Text() const {
    return rope_.bytes();
}

void RichTextBox::SetText(const Rope& text) {
    const Rope paired = withCrLf(text);
    const std::size_t room = roomWithout(wholeText());
    assign(paired.size() > room ? Rope(cutToRoom(paired.bytes(), room)) : paired);
}

// --- Selection -----------------------------------------------------------------------------------

Range RichTextBox::selection() const {
    return {std::min(anchor_, caret_), std::max(anchor_, caret_)};
}

Range RichTextBox::wholeBreaks(Range range) const {
    return brindlex::wholeBreaks(rope_, clamped(range));
}

Long RichTextBox::SelStart() const {
    return toLong(selection().begin().value());
}

void RichTextBox::SetSelStart(Long start) {
    const Offset offset = offsetOf(start);
    select(offset, offset);
}

Long RichTextBox::SelLength() const {
    return toLong(selection().length());
}

void RichTextBox::SetSelLength(Long length) {
    const std::size_t wanted = notNegative(length, "SelLength is negative");
    const Offset begin = selection().begin();
    select(begin, begin + std::min(wanted, Offset(rope_.size()) - begin));
}

std::string RichTextBox::SelText() const {
    return rope_.bytes(selection());
}

void RichTextBox::SetSelText(std::string_view text) {
    const Range removed = wholeBreaks(selection());
    std::string storage;
    insert(removed, fitting(removed, text, storage));
}

void RichTextBox::select(Offset anchor, Offset caret) {
    const Offset end(rope_.size());
    announce({}, moveSelection(std::min(anchor, end), std::min(caret, end)));
}

// --- What the user does --------------------------------------------------------------------------

bool RichTextBox::userReplace(Range range, std::string_view text) {
    const Range removed = wholeBreaks(range);
    std::string storage;
    const std::string_view fits = fitting(removed, text, storage);
    if (locked_ || (fits.empty() && !text.empty())) return false;
    if (removed.empty() && fits.empty()) return true;
    const bool isElsewhere = caret_ < removed.begin() || caret_ > removed.end();
    const bool isBehindStart = selection().begin() != removed.begin();
    if (isElsewhere || (isBehindStart && !fits.empty())) {
        const Rope before = rope_;
        select(removed.begin(), removed.begin());
        if (!(rope_ == before)) return false;
    }
    insert(removed, fits);
    return true;
}

bool RichTextBox::userMove(Range range, Offset target) {
    if (locked_) return false;
    const Range source = wholeBreaks(range);
    const Offset place = inFrontOfBreak(rope_, std::min(target, Offset(rope_.size())));
    if (source.empty() || (source.begin() <= place && place <= source.end())) {
        select(source.begin(), source.end());
        return true;
    }
    const RichText moved = richText(source);
    if (!userReplace(source, {})) return false;
    const Offset wanted = place < source.begin() ? place : place - source.length();
    select(wanted, wanted);
    // Handlers may have edited since. The caret is in the text, whatever they did.
    const Offset landing = inFrontOfBreak(rope_, caret_);
    const Offset end = landing + moved.text.size();
    edit({landing, landing}, moved.text, moved.runs, end);
    // a handler of the change may have selected something of its own
    if (anchor_ == end && caret_ == end) select(landing, end);
    return true;
}

void RichTextBox::SetMaxLength(Long length) {
    notNegative(length, "MaxLength is negative");
    maxLength_ = length;
}

std::size_t RichTextBox::roomWithout(Range removed) const {
    const std::size_t limit = maxLength_ == 0 ? kMostBytes : static_cast<std::size_t>(maxLength_);
    const std::size_t most = std::min(limit, kMostBytes);
    return most - std::min(most, rope_.size() - removed.length());
}

/// What may come in for `text` in the place of `removed`; `storage` holds it if it is another text.
std::string_view RichTextBox::fitting(Range removed, std::string_view text,
                                      std::string& storage) const {
    return cutToRoom(withCrLf(text, storage), roomWithout(removed));
}

void RichTextBox::insert(Range removed, std::string_view text) {
    const FormatRun run{static_cast<std::uint32_t>(text.size()), inheritedFormat(removed)};
    edit(removed, text, {&run, 1}, removed.begin() + text.size());
}

CharFormat RichTextBox::inheritedFormat(Range removed) const {
    const Offset at = removed.begin();
    const bool startsLine = at == Offset(0) || rope_.at(at - 1) == '\n';
    return formatAt(startsLine ? removed.end() : at - 1);
}

// --- The door for change -------------------------------------------------------------------------

void RichTextBox::edit(Range removed, std::string_view text, std::span<const FormatRun> runs,
                       Offset caret) {
    if (removed.empty() && text.empty()) return finish({}, caret);
    const std::size_t breaks = rope_.breakCount();
    const LineIndex line = rope_.lineOf(removed.begin());
    const std::size_t removedBreaks = rope_.lineOf(removed.end()) - line;
    rope_.replace(removed, text);
    formats_.replace(removed, runs);
    const std::size_t insertedBreaks = rope_.breakCount() + removedBreaks - breaks;
    finish(TextEdit{removed, text.size(), removedBreaks, insertedBreaks, line}, caret);
}

/// Replaces the whole text.
void RichTextBox::assign(const Rope& text) {
    if (rope_.empty() && text.empty()) return finish({}, Offset(0));
    const TextEdit edit{wholeText(), text.size(), rope_.breakCount(), text.breakCount(), {}};
    rope_ = text;
    const FormatRun plain{static_cast<std::uint32_t>(text.size()), {}};
    formats_.replace(edit.removed, {&plain, 1});
    finish(edit, Offset(0));
}

void RichTextBox::finish(const std::optional<TextEdit>& edit, Offset caret) {
    const bool moved = moveSelection(caret, caret);
    if (edit) lastEditInserted_ = edit->inserted > 0;
    checkChange();
    announce(edit, moved);
}

bool RichTextBox::moveSelection(Offset anchor, Offset caret) {
    const bool moves = anchor != anchor_ || caret != caret_;
    anchor_ = anchor;
    caret_ = caret;
    return moves;
}

void RichTextBox::announce(const std::optional<TextEdit>& edit, bool selectionMoved) {
    if (observer_ != nullptr) {
        if (edit) observer_->textChanged(*edit);
        if (selectionMoved) observer_->selectionChanged();
    }
    if ((selectionMoved || edit) && onSelChange) onSelChange();
    if (edit && onChange) onChange();
}

void RichTextBox::announceFormats(Range range) {
    checkChange();
    if (observer_ != nullptr) observer_->formatChanged(range);
}

// --- Lines ---------------------------------------------------------------------------------------

Long RichTextBox::GetLineCount() const {
    return toLong(rope_.breakCount() + 1);
}

Long RichTextBox::GetLineFromChar(Long offset) const {
    return toLong(rope_.lineOf(offsetOf(offset)).value());
}

Long RichTextBox::GetLineIndex(Long line) const {
    if (line < -1 || line > toLong(rope_.breakCount())) return -1;
    const LineIndex asked =
        line == -1 ? rope_.lineOf(caret_) : LineIndex(static_cast<std::size_t>(line));
    return toLong(rope_.lineStart(asked).value());
}

Range RichTextBox::lineContent(LineIndex line) const {
    const Offset end(rope_.size());
    if (line.value() > rope_.breakCount()) return {end, end};
    const Offset begin = rope_.lineStart(line);
    if (line.value() == rope_.breakCount()) return {begin, end};
    return {begin, rope_.lineStart(line + 1) - kLineBreak.size()};
}

// --- Conversions and checks ----------------------------------------------------------------------

Offset RichTextBox::offsetOf(Long offset) const {
    return Offset(std::min(notNegative(offset, "The offset is negative"), rope_.size()));
}

Range RichTextBox::clamped(Range range) const {
    const Offset end(rope_.size());
    return {std::min(range.begin(), end), std::min(range.end(), end)};
}

/// Checks the invariants after a change of a short text, in debug builds alone.
void RichTextBox::checkChange() const {
#ifndef NDEBUG
    constexpr std::size_t kSmall = 4096;
    if (rope_.size() <= kSmall) checkInvariants();
#endif
}

void RichTextBox::checkInvariants() const {
    rope_.checkInvariants();
    formats_.checkInvariants();
    checkInvariant(formats_.length() == rope_.size(), "the formats cover the text");
    checkInvariant(std::max(anchor_, caret_).value() <= rope_.size(),
                   "the selection lies in the text");
    const std::string text = rope_.bytes();
    std::string storage;
    checkInvariant(withCrLf(text, storage).data() == text.data(), "every line break is a pair");
}

}  // namespace brindlex
