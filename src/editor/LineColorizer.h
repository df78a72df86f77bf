#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "editor/SyntaxLists.h"
#include "editor/WordClass.h"
#include "platform/text/RichTextBox.h"

namespace brindlex {

/// Cuts lines into words, strings, comments and blanks and gathers the colours of their bytes, line
/// after line. A line is a unit: nothing is carried over to the next one.
///
/// Words end at a blank, a tab, the comment mark, the string mark and the end of the line; a
/// comment and an unclosed string run to the end of the line. Marks are compared exactly. The cost
/// is one pass over the bytes.
class LineColorizer {
  public:
    /// The lists, whose list of comments is the comment mark, must outlive the colorizer and must
    /// not change meanwhile; `stringMark` likewise.
    LineColorizer(const SyntaxLists& lists, std::string_view stringMark, const ClassColors& colors);

    /// Colours the next line; `line` comes without its line break.
    void colorizeLine(std::string_view line);
    /// The next bytes keep the colour that they have.
    void keep(std::size_t count) { paint(count, ColorRun::kKeep); }
    void reserve(std::size_t runs) { runs_.reserve(runs); }
    std::span<const ColorRun> runs() const { return runs_; }

  private:
    /// What a byte can be, and its lower-case partner.
    struct ByteTraits {
        std::uint8_t lower = 0;
        std::uint8_t flags = 0;
    };

    ByteTraits traits(char byte) const { return traits_[static_cast<unsigned char>(byte)]; }
    bool startsComment(std::string_view line, std::size_t at) const;
    bool startsString(std::string_view line, std::size_t at) const;
    bool isBlank(std::string_view line, std::size_t at) const;
    bool endsWord(std::string_view line, std::size_t at) const;
    /// Colours the token at `at`; the result is where the next one begins.
    std::size_t colorizeToken(std::string_view line, std::size_t at);
    std::size_t colorizeString(std::string_view line, std::size_t at);
    std::size_t colorizeWord(std::string_view line, std::size_t at);
    std::size_t colorizeEmptyString(std::string_view line, std::size_t at);
    std::size_t paintClass(std::size_t count, WordClass wordClass);
    void paint(std::size_t count, ColorRef color);

    const WordClassifier& classifier_;
    std::string_view commentMark_;
    std::string_view stringMark_;
    ClassColors colors_;
    std::array<ByteTraits, 256> traits_;
    std::vector<ColorRun> runs_;
};

}  // namespace brindlex
