#include "editor/LineColorizer.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "editor/RopeLines.h"

namespace brindlex {
namespace {

/// Room for the colours of ordinary scripts, in which a stretch of one colour takes five bytes or
/// more.
std::size_t expectedRuns(Range lines) {
    return lines.length() / 5 + 16;
}

/// Cuts lines into words, strings, comments and blanks and gathers the colours of their bytes, line
/// after line.
class LineColorizer {
  public:
    LineColorizer(const SyntaxLists& lists, const ClassColors& colors)
        : classifier_(lists.classifier()),
          bytes_(lists.bytes()),
          commentMark_(lists.list(ClassComment)),
          stringMark_(lists.stringMark()),
          colors_(colors) {}

    void colorizeLine(std::string_view line) {
        for (std::size_t at = 0; at < line.size();) at = colorizeToken(line, at);
    }

    /// The next bytes keep the colour that they have.
    void keep(std::size_t count) { paint(count, ColorRun::kKeep); }
    void reserve(std::size_t runs) { runs_.reserve(runs); }
    std::vector<ColorRun> take() { return std::move(runs_); }

  private:
    std::size_t colorizeToken(std::string_view line, std::size_t at) {
        if ((bytes_[line[at]].flags & kMayEndWord) == 0) return colorizeWord(line, at);
        if (startsComment(line, at)) return at + paintClass(line.size() - at, ClassComment);
        if (startsString(line, at)) return colorizeString(line, at);
        if (isBlank(line, at)) return colorizeBlanks(line, at);
        return colorizeWord(line, at);
    }

    bool startsComment(std::string_view line, std::size_t at) const {
        return (bytes_[line[at]].flags & kCommentFirst) != 0 &&
               line.substr(at).starts_with(commentMark_);
    }

    bool startsString(std::string_view line, std::size_t at) const {
        return (bytes_[line[at]].flags & kStringFirst) != 0 &&
               line.substr(at).starts_with(stringMark_);
    }

    /// A stretch as long as the string mark is compared with the blank. With a longer mark only the
    /// last byte of a line, where the stretch is cut, can be one.
    bool isBlank(std::string_view line, std::size_t at) const {
        return (bytes_[line[at]].flags & kBlank) != 0 &&
               (stringMark_.size() == 1 || at + 1 == line.size());
    }

    bool endsWord(std::string_view line, std::size_t at) const {
        return startsComment(line, at) || startsString(line, at) || isBlank(line, at);
    }

    /// A string closes at the first byte of the closing mark: the further bytes of a longer mark
    /// are looked at again, as words or as the beginning of the next string. The empty mark opens a
    /// string at one byte and closes it in front of the next, which no token takes.
    std::size_t colorizeString(std::string_view line, std::size_t at) {
        const std::size_t close = std::min(line.find(stringMark_, at + 1), line.size());
        if (close == line.size()) return at + paintClass(close - at, ClassString);
        if (!stringMark_.empty()) return at + paintClass(close + 1 - at, ClassString);
        paintClass(close - at, ClassString);
        keep(1);
        return close + 1;
    }

    std::size_t colorizeBlanks(std::string_view line, std::size_t at) {
        std::size_t end = at + 1;
        while (end < line.size() && isBlank(line, end) && !startsComment(line, end) &&
               !startsString(line, end)) {
            ++end;
        }
        return at + paintClass(end - at, ClassNormal);
    }

    std::size_t colorizeWord(std::string_view line, std::size_t at) {
        WordHash hash;
        bool holdsDelimiterByte = false;
        std::size_t end = at;
        for (; end < line.size(); ++end) {
            const ByteTraits byte = bytes_[line[end]];
            if (byte.flags != 0) {
                if (end > at && endsWord(line, end)) break;
                holdsDelimiterByte = holdsDelimiterByte || (byte.flags & kDelimiter) != 0;
            }
            hash.add(byte.lower);
        }
        const std::string_view word(line.data() + at, end - at);
        return at + paintClass(word.size(), classifier_.classOf(word, hash, holdsDelimiterByte));
    }

    std::size_t paintClass(std::size_t count, WordClass wordClass) {
        paint(count, colors_[wordClass]);
        return count;
    }

    void paint(std::size_t count, ColorRef color) {
        const auto length = static_cast<std::uint32_t>(count);
        if (!runs_.empty() && runs_.back().color == color)
            runs_.back().length += length;
        else
            runs_.push_back({length, color});
    }

    const WordClassifier& classifier_;
    const ByteTable& bytes_;
    std::string_view commentMark_;
    std::string_view stringMark_;
    ClassColors colors_;
    std::vector<ColorRun> runs_;
};

}  // namespace

std::vector<ColorRun> colorsOfLines(const Rope& rope, Range lines, const SyntaxLists& lists,
                                    const ClassColors& colors) {
    LineColorizer colorizer(lists, colors);
    colorizer.reserve(expectedRuns(lines));
    forEachLine(rope, lines, [&colorizer](std::string_view line, bool hasBreak) {
        colorizer.colorizeLine(line);
        if (hasBreak) colorizer.keep(2);
    });
    return colorizer.take();
}

}  // namespace brindlex
