#pragma once

#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "editor/WordLookup.h"
#include "text/Rope.h"
#include "text/Runs.h"

namespace brindlex {

/// The colour of each class.
using ClassColors = std::array<ColorRef, kWordClassCount>;

/// Cuts lines into words, strings, comments and blanks and gathers the colours of their bytes.
///
/// A line is a unit: nothing is carried over to the next one. Words end at a blank, a tab, the
/// comment mark, the string mark and the end of the line; a comment and an unclosed string run to
/// the end of the line. Marks may have any length and are compared exactly.
class LineColorizer {
  public:
    /// `words` must outlive the colorizer.
    LineColorizer(const WordLookup& words, const ClassColors& colors);

    /// The colours of all bytes of `lines`, which begins at a line's start and ends at the end of a
    /// line's text. Line breaks keep their colour. Valid until the next call. The cost is one pass
    /// over the bytes.
    std::span<const ColorRun> colorsOf(const Rope& rope, Range lines);

  private:
    void colorizeLine(std::string_view line);
    std::size_t colorizeMarked(std::string_view line, std::size_t at);
    std::size_t colorizeString(std::string_view line, std::size_t at);
    std::size_t colorizeBlanks(std::string_view line, std::size_t at);
    std::size_t colorizeWord(std::string_view line, std::size_t at);
    bool startsComment(std::string_view line, std::size_t at) const;
    bool startsString(std::string_view line, std::size_t at) const;
    bool isBlank(std::string_view line, std::size_t at) const;
    bool endsWord(std::string_view line, std::size_t at) const;
    std::size_t paint(std::size_t begin, std::size_t end, WordClass wordClass);
    void paint(std::size_t count, ColorRef color);

    const WordLookup& words_;
    std::string_view commentMark_;
    std::string_view stringMark_;
    ClassColors colors_;
    std::string text_;
    std::vector<ColorRun> runs_;
};

}  // namespace brindlex
