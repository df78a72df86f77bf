#include "editor/LineColorizer.h"

#include <algorithm>

namespace brindlex {
namespace {

enum ByteFlag : std::uint8_t {
    kBlank = 1,
    kCommentFirst = 2,
    kStringFirst = 4,
    kMayEndWord = kBlank | kCommentFirst | kStringFirst,
    kDelimiter = 8,
};

}  // namespace

LineColorizer::LineColorizer(const SyntaxLists& lists, std::string_view stringMark,
                             const ClassColors& colors)
    : classifier_(lists.classifier()),
      commentMark_(lists.list(ClassComment)),
      stringMark_(stringMark),
      colors_(colors) {
    const auto flag = [this](char byte, ByteFlag bit) {
        traits_[static_cast<unsigned char>(byte)].flags |= bit;
    };
    for (int value = 0; value < 256; ++value) {
        const char byte = static_cast<char>(value);
        traits_[static_cast<unsigned char>(byte)].lower =
            static_cast<std::uint8_t>(lists.characters().lower(byte));
        if (classifier_.isDelimiterByte(byte)) flag(byte, kDelimiter);
    }
    flag(' ', kBlank);
    flag('\t', kBlank);
    if (!commentMark_.empty()) flag(commentMark_.front(), kCommentFirst);
    if (!stringMark_.empty()) flag(stringMark_.front(), kStringFirst);
}

void LineColorizer::colorizeLine(std::string_view line) {
    for (std::size_t at = 0; at < line.size();) at = colorizeToken(line, at);
}

std::size_t LineColorizer::colorizeToken(std::string_view line, std::size_t at) {
    if (startsComment(line, at)) return at + paintClass(line.size() - at, ClassComment);
    if (stringMark_.empty()) return colorizeEmptyString(line, at);
    if (startsString(line, at)) return colorizeString(line, at);
    if (isBlank(line, at)) return at + paintClass(1, ClassNormal);
    return colorizeWord(line, at);
}

bool LineColorizer::startsComment(std::string_view line, std::size_t at) const {
    return commentMark_.empty() || ((traits(line[at]).flags & kCommentFirst) != 0 &&
                                    line.substr(at).starts_with(commentMark_));
}

bool LineColorizer::startsString(std::string_view line, std::size_t at) const {
    return (traits(line[at]).flags & kStringFirst) != 0 && line.substr(at).starts_with(stringMark_);
}

/// As many bytes as the string mark has are compared with the one blank, so behind a longer mark
/// only the last byte of a line can be a blank.
bool LineColorizer::isBlank(std::string_view line, std::size_t at) const {
    return (traits(line[at]).flags & kBlank) != 0 &&
           (stringMark_.size() == 1 || at + 1 == line.size());
}

bool LineColorizer::endsWord(std::string_view line, std::size_t at) const {
    return startsComment(line, at) || startsString(line, at) || isBlank(line, at);
}

/// A string closes at the first byte of the closing mark: the further bytes of a longer mark are
/// looked at again, as words or as the beginning of the next string.
std::size_t LineColorizer::colorizeString(std::string_view line, std::size_t at) {
    const std::size_t close = line.find(stringMark_, at + 1);
    const std::size_t end = close == std::string_view::npos ? line.size() : close + 1;
    return at + paintClass(end - at, ClassString);
}

/// The empty mark opens a string at one byte and closes it in front of the next, which no token
/// takes.
std::size_t LineColorizer::colorizeEmptyString(std::string_view line, std::size_t at) {
    paintClass(1, ClassString);
    if (at + 1 < line.size()) keep(1);
    return at + 2;
}

std::size_t LineColorizer::colorizeWord(std::string_view line, std::size_t at) {
    WordHash hash;
    unsigned flags = 0;
    std::size_t end = at;
    do {
        const ByteTraits byte = traits(line[end]);
        hash.add(byte.lower);
        flags |= byte.flags;
        ++end;
    } while (end < line.size() &&
             ((traits(line[end]).flags & kMayEndWord) == 0 || !endsWord(line, end)));
    const std::string_view word = line.substr(at, end - at);
    return at + paintClass(word.size(), classifier_.classOf(word, hash, (flags & kDelimiter) != 0));
}

std::size_t LineColorizer::paintClass(std::size_t count, WordClass wordClass) {
    paint(count, colors_[wordClass]);
    return count;
}

void LineColorizer::paint(std::size_t count, ColorRef color) {
    const auto length = static_cast<std::uint32_t>(count);
    if (!runs_.empty() && runs_.back().color == color)
        runs_.back().length += length;
    else
        runs_.push_back({length, color});
}

}  // namespace brindlex
