#include <algorithm>
#include <limits>
#include <stdexcept>

#include "platform/text/LineEnds.h"
#include "platform/text/RichTextBox.h"

namespace brindlex {

namespace {

constexpr std::int32_t kTabDistance = 720;  // twips

std::int32_t toTwips(Long value) {
    using Limits = std::numeric_limits<std::int32_t>;
    return static_cast<std::int32_t>(std::clamp<Long>(value, Limits::min(), Limits::max()));
}

UnitRange unitsOf(Range range) {
    return {range.begin().value(), range.end().value()};
}

Range rangeOf(UnitRange units) {
    return {Offset(units.begin), Offset(units.end)};
}

void setTabCount(std::vector<std::int32_t>& tabs, std::size_t count) {
    if (count < tabs.size()) tabs.resize(count);
    while (tabs.size() < count)
        tabs.push_back(toTwips(Long{tabs.empty() ? 0 : tabs.back()} + kTabDistance));
}

}  // namespace

// --- Characters ----------------------------------------------------------------------------------

template <typename Value>
std::optional<Value> RichTextBox::characterField(Value CharFormat::*field) const {
    const auto read = [&](const CharFormat& format) { return format.*field; };
    const Range range = selection();
    if (!range.empty()) return charFormats_.common(unitsOf(range), read);
    return read(charFormats_.format(formatFor(wholePairs(rope_, range))));
}

template <typename Value>
void RichTextBox::setCharacterField(Value CharFormat::*field, Value value) {
    const Range range = selection();
    if (range.empty()) {
        CharFormat format = charFormats_.format(formatFor(wholePairs(rope_, range)));
        format.*field = value;
        nextFormat_ = charFormats_.idOf(format);
        return;
    }
    charFormats_.change(unitsOf(range), [&](CharFormat& format) { format.*field = value; });
    announceFormats(range);
}

std::optional<ColorRef> RichTextBox::SelColor() const {
    return characterField(&CharFormat::color);
}
void RichTextBox::SetSelColor(ColorRef color) {
    setCharacterField(&CharFormat::color, color);
}

std::optional<bool> RichTextBox::SelBold() const {
    return characterField(&CharFormat::bold);
}
void RichTextBox::SetSelBold(bool on) {
    setCharacterField(&CharFormat::bold, on);
}

std::optional<bool> RichTextBox::SelItalic() const {
    return characterField(&CharFormat::italic);
}
void RichTextBox::SetSelItalic(bool on) {
    setCharacterField(&CharFormat::italic, on);
}

std::optional<bool> RichTextBox::SelUnderline() const {
    return characterField(&CharFormat::underline);
}
void RichTextBox::SetSelUnderline(bool on) {
    setCharacterField(&CharFormat::underline, on);
}

std::optional<bool> RichTextBox::SelStrikethru() const {
    return characterField(&CharFormat::strikeThrough);
}
void RichTextBox::SetSelStrikethru(bool on) {
    setCharacterField(&CharFormat::strikeThrough, on);
}

std::optional<bool> RichTextBox::SelProtected() const {
    return characterField(&CharFormat::isProtected);
}
void RichTextBox::SetSelProtected(bool on) {
    setCharacterField(&CharFormat::isProtected, on);
}

std::optional<Long> RichTextBox::SelCharOffset() const {
    return characterField(&CharFormat::charOffset);
}
void RichTextBox::SetSelCharOffset(Long twips) {
    setCharacterField(&CharFormat::charOffset, toTwips(twips));
}

const CharFormat& RichTextBox::formatAt(Offset offset) const {
    const bool inText = offset.value() < rope_.size();
    return charFormats_.format(inText ? charFormats_.idAt(offset.value()) : FormatId{0});
}

void RichTextBox::colorRuns(Offset begin, std::span<const ColorRun> runs) {
    const UnitRange changed = applyColors(charFormats_, begin.value(), runs);
    if (!changed.empty()) announceFormats(rangeOf(changed));
}

Range RichTextBox::formatRangeAt(Offset offset) const {
    if (offset.value() >= rope_.size()) return {Offset(rope_.size()), Offset(rope_.size())};
    return rangeOf(charFormats_.around(offset.value()));
}

// --- Paragraphs ----------------------------------------------------------------------------------

UnitRange RichTextBox::selectedLines() const {
    const Range range = selection();
    const Offset last = range.empty() ? range.end() : range.end() - 1;
    return {rope_.lineOf(range.begin()).value(), rope_.lineOf(last).value() + 1};
}

template <typename Read>
auto RichTextBox::commonOfParagraphs(Read&& read) const {
    return paragraphFormats_.common(selectedLines(), std::forward<Read>(read));
}

void RichTextBox::changeParagraphs(const std::function<void(ParagraphFormat&)>& change) {
    const UnitRange lines = selectedLines();
    paragraphFormats_.change(lines, change);
    const bool toTheEnd = lines.end == paragraphFormats_.length();
    announceFormats({rope_.lineStart(LineIndex(lines.begin)),
                     toTheEnd ? Offset(rope_.size()) : rope_.lineStart(LineIndex(lines.end))});
}

std::optional<Alignment> RichTextBox::SelAlignment() const {
    return commonOfParagraphs([](const ParagraphFormat& format) { return format.alignment; });
}
void RichTextBox::SetSelAlignment(Alignment alignment) {
    changeParagraphs([&](ParagraphFormat& format) { format.alignment = alignment; });
}

std::optional<bool> RichTextBox::SelBullet() const {
    return commonOfParagraphs([](const ParagraphFormat& format) { return format.bullet; });
}
void RichTextBox::SetSelBullet(bool on) {
    changeParagraphs([&](ParagraphFormat& format) { format.bullet = on; });
}

std::optional<Long> RichTextBox::SelIndent() const {
    return commonOfParagraphs([](const ParagraphFormat& format) { return format.indent; });
}
void RichTextBox::SetSelIndent(Long twips) {
    changeParagraphs([&](ParagraphFormat& format) { format.indent = toTwips(twips); });
}

std::optional<Long> RichTextBox::SelHangingIndent() const {
    return commonOfParagraphs([](const ParagraphFormat& format) { return format.hangingIndent; });
}
void RichTextBox::SetSelHangingIndent(Long twips) {
    changeParagraphs([&](ParagraphFormat& format) { format.hangingIndent = toTwips(twips); });
}

std::optional<Long> RichTextBox::SelRightIndent() const {
    return commonOfParagraphs([](const ParagraphFormat& format) { return format.rightIndent; });
}
void RichTextBox::SetSelRightIndent(Long twips) {
    changeParagraphs([&](ParagraphFormat& format) { format.rightIndent = toTwips(twips); });
}

std::optional<Long> RichTextBox::SelTabCount() const {
    return commonOfParagraphs(
        [](const ParagraphFormat& format) { return static_cast<Long>(format.tabs.size()); });
}
void RichTextBox::SetSelTabCount(Long count) {
    if (count < 0) throw std::out_of_range("SelTabCount is negative");
    const auto stops = static_cast<std::size_t>(std::min(count, kMaxTabStops));
    changeParagraphs([&](ParagraphFormat& format) { setTabCount(format.tabs, stops); });
}

std::optional<Long> RichTextBox::SelTabs(Long index) const {
    if (index < 0) throw std::out_of_range("The index of SelTabs is negative");
    return commonOfParagraphs([&](const ParagraphFormat& format) {
        const auto at = static_cast<std::size_t>(index);
        return at < format.tabs.size() ? format.tabs[at] : 0;
    });
}
void RichTextBox::SetSelTabs(Long index, Long twips) {
    if (index < 0) throw std::out_of_range("The index of SelTabs is negative");
    changeParagraphs([&](ParagraphFormat& format) {
        const auto at = static_cast<std::size_t>(index);
        if (at >= format.tabs.size()) return;
        format.tabs[at] = toTwips(twips);
        std::sort(format.tabs.begin(), format.tabs.end());
    });
}

const ParagraphFormat& RichTextBox::paragraphAt(LineIndex line) const {
    const std::size_t last = paragraphFormats_.length() - 1;
    return paragraphFormats_.format(paragraphFormats_.idAt(std::min(line.value(), last)));
}

}  // namespace brindlex
