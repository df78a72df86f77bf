#include <algorithm>
#include <utility>

#include "platform/text/LineEnds.h"
#include "platform/text/RichTextBox.h"

namespace brindlex {

namespace {

/// The first `length` units of what `source` (with `count` units of a format each) describes.
template <typename Format, typename Source, typename Count>
std::vector<FormatRun> runsOf(FormatRuns<Format>& formats, const std::vector<Source>& source,
                              Count Source::*count, std::size_t length) {
    std::vector<FormatRun> runs;
    for (const Source& part : source) {
        const std::size_t taken = std::min<std::size_t>(part.*count, length);
        appendRun(runs, taken, formats.idOf(part.format));
        length -= taken;
    }
    return runs;
}

/// Gives the first or the last unit of `runs`, whose lengths are not 0, another format.
void setFirst(std::vector<FormatRun>& runs, FormatId format) {
    if (--runs.front().length == 0)
        runs.front() = {1, format};
    else
        runs.insert(runs.begin(), {1, format});
}
void setLast(std::vector<FormatRun>& runs, FormatId format) {
    if (--runs.back().length == 0)
        runs.back() = {1, format};
    else
        runs.push_back({1, format});
}

std::size_t breaksIn(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

}  // namespace

void RichTextBox::setBaseFont(std::string name, int halfPoints) {
    baseFont_ = {std::move(name), halfPoints};
}

std::string RichTextBox::TextRTF() const {
    return writeRtf(fragmentOf(wholeText()), characters_, baseFont_);
}

std::string RichTextBox::SelRTF() const {
    return writeRtf(fragmentOf(wholePairs(rope_, selection())), characters_, baseFont_);
}

bool RichTextBox::SetTextRTF(std::string_view rtf) {
    if (!looksLikeRtf(rtf)) {
        SetText(rtf);
        return true;
    }
    const auto fragment = readRtf(rtf, characters_, baseFont_);
    if (!fragment) return false;
    nextFormat_.reset();
    insertFragment(wholeText(), *fragment, CaretPlace::Start);
    return true;
}

bool RichTextBox::SetSelRTF(std::string_view rtf) {
    if (!looksLikeRtf(rtf)) {
        SetSelText(rtf);
        return true;
    }
    const auto fragment = readRtf(rtf, characters_, baseFont_);
    if (!fragment) return false;
    insertFragment(wholePairs(rope_, selection()), *fragment, CaretPlace::Behind);
    return true;
}

void RichTextBox::insertFragment(Range removed, const RichTextFragment& fragment,
                                 CaretPlace place) {
    const std::string_view text = cutToRoom(fragment.text, roomWithout(removed));
    const auto characters = runsOf(charFormats_, fragment.characters,
                                   &RichTextFragment::Characters::length, text.size());
    auto paragraphs = runsOf(paragraphFormats_, fragment.paragraphs,
                             &RichTextFragment::Paragraphs::count, breaksIn(text) + 1);
    keepPartLines(removed, paragraphs);
    if (removed.empty() && text.empty()) {
        // No edit will bring the format of an empty line in.
        const std::size_t line = rope_.lineOf(removed.begin()).value();
        paragraphFormats_.replace({line, line + 1}, paragraphs);
        announceFormats(removed);
    }
    edit(removed, {.text = text, .characters = characters, .paragraphs = paragraphs},
         place == CaretPlace::Start ? removed.begin() : removed.begin() + text.size());
}

void RichTextBox::keepPartLines(Range removed, std::vector<FormatRun>& paragraphs) const {
    const LineIndex first = rope_.lineOf(removed.begin());
    const LineIndex last = rope_.lineOf(removed.end());
    if (removed.end() != lineContent(last).end())
        setLast(paragraphs, paragraphFormats_.idAt(last.value()));
    if (removed.begin() != rope_.lineStart(first))
        setFirst(paragraphs, paragraphFormats_.idAt(first.value()));
}

RichTextFragment RichTextBox::fragmentOf(Range range) const {
    RichTextFragment fragment;
    fragment.text = rope_.bytes(range);
    visitFormats(range, [&](Range run, const CharFormat& format) {
        // A break has one format: that of its CR.
        const bool splitsPair = rope_.at(run.begin()) == '\n';
        if (splitsPair) fragment.characters.back().length += 1;
        const std::size_t length = run.length() - (splitsPair ? 1 : 0);
        if (length == 0) return true;
        if (!fragment.characters.empty() && fragment.characters.back().format == format)
            fragment.characters.back().length += length;
        else
            fragment.characters.push_back({length, format});
        return true;
    });
    const UnitRange lines{rope_.lineOf(range.begin()).value(),
                          rope_.lineOf(range.end()).value() + 1};
    paragraphFormats_.visit(lines, [&](std::size_t begin, std::size_t end, FormatId id) {
        fragment.paragraphs.push_back({end - begin, paragraphFormats_.format(id)});
        return true;
    });
    return fragment;
}

}  // namespace brindlex
