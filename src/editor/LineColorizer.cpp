#include "editor/LineColorizer.h"

#include <algorithm>
#include <cstdint>

#include "text/LineEnds.h"

namespace brindlex {

LineColorizer::LineColorizer(const WordLookup& words, const ClassColors& colors)
    : words_(words),
      commentMark_(words.syntax().commentMark()),
      stringMark_(words.syntax().stringMark),
      colors_(colors) {}

std::span<const ColorRun> LineColorizer::colorsOf(const Rope& rope, Range lines) {
    text_.clear();
    text_.reserve(lines.length() + WordLookup::kPadding);
    rope.visitPieces(lines, [this](std::string_view piece) {
        text_ += piece;
        return true;
    });
    text_.append(WordLookup::kPadding, '\0');
    runs_.assign(1, {0, ColorRun::kKeep});
    std::string_view rest(text_.data(), lines.length());
    for (std::size_t lf = rest.find('\n'); lf != rest.npos; lf = rest.find('\n')) {
        colorizeLine(rest.substr(0, lf + 1 - kLineBreak.size()));
        paint(kLineBreak.size(), ColorRun::kKeep);
        rest.remove_prefix(lf + 1);
    }
    colorizeLine(rest);
    return runs_;
}

/// Adds to the last run if it has the colour, or begins another.
inline void LineColorizer::paint(std::size_t count, ColorRef color) {
    if (runs_.back().color != color) runs_.push_back({0, color});
    runs_.back().length += static_cast<std::uint32_t>(count);
}

/// Paints a stretch of the line and returns its end.
inline std::size_t LineColorizer::paint(std::size_t begin, std::size_t end, WordClass wordClass) {
    paint(end - begin, colors_[wordClass]);
    return end;
}

inline std::size_t LineColorizer::colorizeBlanks(std::string_view line, std::size_t at) {
    std::size_t end = at + 1;
    while (end < line.size() && (words_.flags(line[end]) & kPlainBlank) != 0) ++end;
    return paint(at, end, ClassNormal);
}

inline std::size_t LineColorizer::colorizeWord(std::string_view line, std::size_t at) {
    bool holdsDelimiterByte = false;
    std::size_t end = at;
    for (; end < line.size(); ++end) {
        const std::uint8_t flags = words_.flags(line[end]);
        if (flags == 0) continue;
        if ((flags & kPlainBlank) != 0 || (end > at && endsWord(line, end))) break;
        holdsDelimiterByte = holdsDelimiterByte || (flags & kDelimiter) != 0;
    }
    const std::string_view word(line.data() + at, end - at);
    return paint(at, end, words_.classOfPadded(word, holdsDelimiterByte));
}

void LineColorizer::colorizeLine(std::string_view line) {
    for (std::size_t at = 0; at < line.size();) {
        const std::uint8_t flags = words_.flags(line[at]);
        if ((flags & kPlainBlank) != 0)
            at = colorizeBlanks(line, at);
        else if ((flags & kMayEndWord) != 0 && endsWord(line, at))
            at = colorizeMarked(line, at);
        else
            at = colorizeWord(line, at);
    }
}

/// A comment, a string, or the one blank that a long string mark leaves.
std::size_t LineColorizer::colorizeMarked(std::string_view line, std::size_t at) {
    if (startsComment(line, at)) return paint(at, line.size(), ClassComment);
    if (startsString(line, at)) return colorizeString(line, at);
    return paint(at, at + 1, ClassNormal);
}

bool LineColorizer::startsComment(std::string_view line, std::size_t at) const {
    return (words_.flags(line[at]) & kCommentFirst) != 0 &&
           line.substr(at).starts_with(commentMark_);
}

bool LineColorizer::startsString(std::string_view line, std::size_t at) const {
    return (words_.flags(line[at]) & kStringFirst) != 0 && line.substr(at).starts_with(stringMark_);
}

/// As many bytes as the string mark has are compared with one blank. So with a mark of several
/// bytes only the last byte of a line can match: no more are left to compare there.
bool LineColorizer::isBlank(std::string_view line, std::size_t at) const {
    return (words_.flags(line[at]) & kBlank) != 0 &&
           (stringMark_.size() == 1 || at + 1 == line.size());
}

bool LineColorizer::endsWord(std::string_view line, std::size_t at) const {
    return startsComment(line, at) || startsString(line, at) || isBlank(line, at);
}

/// A string ends with the first byte of its closing mark; the other bytes of a longer mark are read
/// again, as words or as the start of the next string. With the empty mark each string is one byte,
/// and the byte behind it keeps its colour.
std::size_t LineColorizer::colorizeString(std::string_view line, std::size_t at) {
    const std::size_t close = std::min(line.find(stringMark_, at + 1), line.size());
    if (close == line.size()) return paint(at, close, ClassString);
    if (!stringMark_.empty()) return paint(at, close + 1, ClassString);
    paint(at, close, ClassString);
    paint(1, ColorRun::kKeep);
    return close + 1;
}

}  // namespace brindlex
