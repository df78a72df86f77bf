#include <algorithm>
#include <stdexcept>

#include "text/LineEnds.h"
#include "text/RichTextBox.h"

namespace brindlex {

// --- The selection -------------------------------------------------------------------------------

template <typename Read>
auto RichTextBox::commonFormat(Read&& read) const {
    const Range range = selection();
    if (!range.empty()) return formats_.common(range, read);
    return std::optional(read(inheritedFormat(wholeBreaks(range))));
}

template <typename Change>
void RichTextBox::changeFormat(Change&& change) {
    if (selection().empty()) return;
    formats_.change(selection(), [&](CharFormat format) {
        change(format);
        return format;
    });
    announceFormats(selection());
}

std::optional<ColorRef> RichTextBox::SelColor() const {
    return commonFormat([](CharFormat format) { return ColorRef{format.color}; });
}
void RichTextBox::SetSelColor(ColorRef color) {
    changeFormat([=](CharFormat& format) { format.color = color & kColorMask; });
}

std::optional<bool> RichTextBox::SelBold() const {
    return commonFormat([](CharFormat format) { return format.bold != 0; });
}
void RichTextBox::SetSelBold(bool on) {
    changeFormat([=](CharFormat& format) { format.bold = on; });
}

std::optional<bool> RichTextBox::SelItalic() const {
    return commonFormat([](CharFormat format) { return format.italic != 0; });
}
void RichTextBox::SetSelItalic(bool on) {
    changeFormat([=](CharFormat& format) { format.italic = on; });
}

std::optional<bool> RichTextBox::SelUnderline() const {
    return commonFormat([](CharFormat format) { return format.underline != 0; });
}
void RichTextBox::SetSelUnderline(bool on) {
    changeFormat([=](CharFormat& format) { format.underline = on; });
}

std::optional<bool> RichTextBox::SelStrikethru() const {
    return commonFormat([](CharFormat format) { return format.strikeThrough != 0; });
}
void RichTextBox::SetSelStrikethru(bool on) {
    changeFormat([=](CharFormat& format) { format.strikeThrough = on; });
}

CharFormat RichTextBox::formatAt(Offset offset) const {
    return offset.value() < rope_.size() ? formats_.at(offset).format : CharFormat{};
}

Range RichTextBox::formatRangeAt(Offset offset) const {
    const Offset end(rope_.size());
    return offset < end ? formats_.at(offset).range : Range(end, end);
}

void RichTextBox::colorRuns(Offset begin, std::span<const ColorRun> runs) {
    const Range changed = formats_.color(begin, runs);
    if (!changed.empty()) announceFormats(changed);
}

// --- The whole text ------------------------------------------------------------------------------

void RichTextBox::SetSelIndent(Long twips) {
    if (std::exchange(indent_, twips) != twips) announceFormats(wholeText());
}

Long RichTextBox::SelTabCount() const {
    return static_cast<Long>(tabs_.size());
}

void RichTextBox::SetSelTabCount(Long count) {
    if (count < 0) throw std::out_of_range("SelTabCount is negative");
    tabs_.resize(static_cast<std::size_t>(std::min(count, kMaxTabStops)));
}

Long RichTextBox::SelTabs(Long index) const {
    if (index < 0) throw std::out_of_range("The index of SelTabs is negative");
    return index < SelTabCount() ? tabs_[static_cast<std::size_t>(index)] : 0;
}

void RichTextBox::SetSelTabs(Long index, Long twips) {
    if (index < 0) throw std::out_of_range("The index of SelTabs is negative");
    if (index < SelTabCount()) tabs_[static_cast<std::size_t>(index)] = twips;
}

// --- Rich text -----------------------------------------------------------------------------------

std::string RichTextBox::TextRTF() const {
    return writeRtf(richText(wholeText()), characters_);
}

std::string RichTextBox::SelRTF() const {
    return writeRtf(richText(wholeBreaks(selection())), characters_);
}

bool RichTextBox::SetTextRTF(std::string_view rtf) {
    if (looksLikeRtf(rtf)) return insertRtf(wholeText(), rtf, false);
    SetText(rtf);
    return true;
}

bool RichTextBox::SetSelRTF(std::string_view rtf) {
    if (looksLikeRtf(rtf)) return insertRtf(wholeBreaks(selection()), rtf, true);
    SetSelText(rtf);
    return true;
}

bool RichTextBox::insertRtf(Range removed, std::string_view rtf, bool caretBehind) {
    const std::optional<RichText> rich = readRtf(rtf, characters_);
    if (!rich) return false;
    const std::string_view text = cutToRoom(rich->text, roomWithout(removed));
    RunBuilder runs(rich->runs.size());
    std::size_t room = text.size();
    for (const FormatRun& run : rich->runs) {
        runs.append(std::min<std::size_t>(run.length, room), run.format);
        room -= std::min<std::size_t>(run.length, room);
    }
    edit(removed, text, runs.runs(), removed.begin() + (caretBehind ? text.size() : 0));
    return true;
}

RichText RichTextBox::richText(Range range) const {
    RunBuilder runs;
    formats_.visit(range, [&](Range run, CharFormat format) {
        runs.append(run.length(), format);
        return true;
    });
    return {rope_.bytes(range), runs.take()};
}

}  // namespace brindlex
