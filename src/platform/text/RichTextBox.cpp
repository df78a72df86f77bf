#include "platform/text/RichTextBox.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

#include "platform/text/Invariant.h"
#include "platform/text/LineEnds.h"

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

void RichTextBox::SetText(std::string_view text) {
    std::string storage;
    const std::string_view fitting = cutToRoom(withCrLf(text, storage), roomWithout(wholeText()));
    nextFormat_.reset();
    edit(wholeText(), {.text = fitting}, Offset(0));
}

// --- Selection -----------------------------------------------------------------------------------

Range RichTextBox::selection() const {
    return {std::min(anchor_, caret_), std::max(anchor_, caret_)};
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
    const Range removed = wholePairs(rope_, selection());
    insert(removed, text, formatFor(removed));
}

void RichTextBox::select(Offset anchor, Offset caret) {
    const Offset end(rope_.size());
    announce({std::nullopt, moveSelection(std::min(anchor, end), std::min(caret, end))});
}

// --- What the user does --------------------------------------------------------------------------

bool RichTextBox::userReplace(Range range, std::string_view text) {
    const Range removed = wholePairs(rope_, clamped(range));
    std::string storage;
    if (maxLength_ > 0 && !text.empty() && fitting(removed, text, storage).empty()) return false;
    if (!userMayReplace(removed)) return false;
    const bool isAtCaret = removed.begin() <= caret_ && caret_ <= removed.end();
    if (!isAtCaret && !caretGoesTo(removed.begin())) return false;
    const std::optional<FormatId> chosen = chosenFormat(removed);
    insert(removed, text, chosen ? *chosen : withoutProtection(inheritedFormat(removed)));
    return true;
}

bool RichTextBox::userMove(Range range, Offset target) {
    const Range source = wholePairs(rope_, clamped(range));
    const Offset place = inFrontOfPair(rope_, std::min(target, Offset(rope_.size())));
    if (!userMayReplace(source) || !userMayReplace({place, place})) return false;
    if (source.empty() || (source.begin() <= place && place <= source.end())) {
        select(source.begin(), source.end());
        return true;
    }
    const std::string text = rope_.bytes(source);
    const std::vector<FormatRun> formats =
        charFormats_.runs({source.begin().value(), source.end().value()});
    if (!caretGoesTo(place)) return false;
    TrackedRange original(tracked_, source);
    const ChangeNotice insertion =
        apply({place, place}, {.text = text, .characters = formats}, place + text.size());
    // The handlers may edit; the insertion comes first so that whatever they do no text is lost.
    TrackedRange moved(tracked_, Range::at(place, text.size()));
    announce(insertion);
    if (!original.isBroken()) edit(original.range(), {}, original.range().begin());
    if (!moved.isBroken()) select(moved.range().begin(), moved.range().end());
    return true;
}

/// Moves the caret; false when a handler changed the text meanwhile.
bool RichTextBox::caretGoesTo(Offset place) {
    const Rope before = rope_;
    select(place, place);
    return rope_ == before;
}

bool RichTextBox::userMayReplace(Range range) const {
    if (locked_) return false;
    const auto isProtected = [](const CharFormat& format) { return format.isProtected; };
    const UnitRange units{range.begin().value(), range.end().value()};
    if (!units.empty()) return charFormats_.common(units, isProtected) == false;
    const bool inside = units.begin > 0 && units.end < rope_.size();
    return !inside || charFormats_.common({units.begin - 1, units.end + 1}, isProtected) != true;
}

FormatId RichTextBox::withoutProtection(FormatId format) {
    if (!charFormats_.format(format).isProtected) return format;
    CharFormat unprotected = charFormats_.format(format);
    unprotected.isProtected = false;
    return charFormats_.idOf(unprotected);
}

void RichTextBox::SetMaxLength(Long length) {
    notNegative(length, "MaxLength is negative");
    maxLength_ = length;
}

std::size_t RichTextBox::roomWithout(Range removed) const {
    if (maxLength_ == 0) return std::numeric_limits<std::size_t>::max();
    const std::size_t most = static_cast<std::size_t>(maxLength_);
    return most - std::min(most, rope_.size() - removed.length());
}

/// What may come in for `text` in the place of `removed`; `storage` holds it if it is another text.
std::string_view RichTextBox::fitting(Range removed, std::string_view text,
                                      std::string& storage) const {
    return cutToRoom(withCrLf(text, storage), roomWithout(removed));
}

void RichTextBox::insert(Range removed, std::string_view text, FormatId format) {
    std::string storage;
    const std::string_view inserted = fitting(removed, text, storage);
    edit(removed, {.text = inserted, .format = format}, removed.begin() + inserted.size());
}

std::optional<FormatId> RichTextBox::chosenFormat(Range removed) const {
    return removed.begin() == inFrontOfPair(rope_, caret_) ? nextFormat_ : std::nullopt;
}

FormatId RichTextBox::inheritedFormat(Range removed) const {
    const Offset at = removed.begin();
    if (at.value() > 0 && rope_.at(at - 1) != '\n') return charFormats_.idAt(at.value() - 1);
    if (removed.end().value() < rope_.size()) return charFormats_.idAt(removed.end().value());
    return FormatId{0};
}

// --- The door for change -------------------------------------------------------------------------

void RichTextBox::edit(Range removed, const Insertion& insertion, Offset caret) {
    announce(apply(removed, insertion, caret));
}

RichTextBox::ChangeNotice RichTextBox::apply(Range removed, const Insertion& insertion,
                                             Offset caret) {
    ChangeNotice notice;
    if (!removed.empty() || !insertion.text.empty()) {
        notice.edit = replaceText(removed, insertion.text);
        const UnitRange units{removed.begin().value(), removed.end().value()};
        if (insertion.characters.empty())
            charFormats_.replace(units, insertion.text.size(), insertion.format);
        else
            charFormats_.replace(units, insertion.characters);
        replaceParagraphs(*notice.edit, insertion.paragraphs);
        TrackedRange::follow(tracked_, removed, insertion.text.size());
        if (!insertion.text.empty()) nextFormat_.reset();
    }
    notice.selectionMoved = moveSelection(caret, caret);
    checkChange();
    return notice;
}

TextEdit RichTextBox::replaceText(Range removed, std::string_view text) {
    const std::size_t breaks = rope_.breakCount();
    const LineIndex line = rope_.lineOf(removed.begin());
    const std::size_t removedBreaks = rope_.lineOf(removed.end()) - line;
    if (removed == wholeText())
        rope_ = Rope(text);
    else
        rope_.replace(removed, text);
    const std::size_t insertedBreaks = rope_.breakCount() + removedBreaks - breaks;
    return {removed, text.size(), removedBreaks, insertedBreaks, line};
}

void RichTextBox::replaceParagraphs(const TextEdit& edit, std::span<const FormatRun> paragraphs) {
    const std::size_t first = edit.line.value();
    const UnitRange lines{first, first + edit.removedBreaks + 1};
    if (!paragraphs.empty())
        paragraphFormats_.replace(lines, paragraphs);
    else if (edit.removedBreaks > 0 || edit.insertedBreaks > 0)
        paragraphFormats_.replace(lines, edit.insertedBreaks + 1, paragraphFormats_.idAt(first));
}

bool RichTextBox::moveSelection(Offset anchor, Offset caret) {
    if (anchor == anchor_ && caret == caret_) return false;
    anchor_ = anchor;
    caret_ = caret;
    nextFormat_.reset();
    return true;
}

void RichTextBox::announce(const ChangeNotice& notice) {
    if (observer_ != nullptr) {
        if (notice.edit) observer_->textChanged(*notice.edit);
        if (notice.selectionMoved) observer_->selectionChanged();
    }
    if ((notice.selectionMoved || notice.edit) && onSelChange) onSelChange();
    if (notice.edit && onChange) onChange();
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
    constexpr std::size_t kBreakLength = 2;
    return {begin, rope_.lineStart(line + 1) - kBreakLength};
}

// --- Conversions and checks ----------------------------------------------------------------------

Offset RichTextBox::offsetOf(Long offset) const {
    return Offset(std::min(notNegative(offset, "The offset is negative"), rope_.size()));
}

Range RichTextBox::clamped(Range range) const {
    const Offset end(rope_.size());
    return {std::min(range.begin(), end), std::min(range.end(), end)};
}

void RichTextBox::checkChange() const {
#ifndef NDEBUG
    constexpr std::size_t kSmall = 4096;
    if (rope_.size() <= kSmall) checkInvariants();
#endif
}

void RichTextBox::checkInvariants() const {
    rope_.checkInvariants();
    charFormats_.checkInvariants();
    paragraphFormats_.checkInvariants();
    checkInvariant(charFormats_.length() == rope_.size(), "the formats cover the text");
    checkInvariant(paragraphFormats_.length() == rope_.breakCount() + 1,
                   "the paragraph formats cover the lines");
    checkInvariant(std::max(anchor_, caret_).value() <= rope_.size(),
                   "the selection lies in the text");
    const std::string text = rope_.bytes();
    std::string storage;
    checkInvariant(withCrLf(text, storage).data() == text.data(), "every line break is a pair");
}

}  // namespace brindlex
