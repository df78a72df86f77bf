#pragma once

#include <string>
#include <vector>

#include "editor/KELP_RTBSyntax.h"

namespace brindlex::test {

/// The colouring as a user's eye would do it: byte by byte over plain strings, each token painted
/// over what was painted before, words searched for in the lists.
class NaiveColouring {
  public:
    /// Takes lists, marks and colours from the control.
    explicit NaiveColouring(const KELP_RTBSyntax& editor) : editor_(editor) {}

    WordClass classOf(const std::string& word) const;
    /// Paints the lines of text[start, end) over `colors`, which has one colour for each byte.
    void paint(const std::string& text, std::size_t start, std::size_t end,
               std::vector<ColorRef>& colors) const;
    /// Paints what a change touches that moved the caret from `before` to `caret`.
    void paintChange(const std::string& text, std::size_t before, std::size_t caret,
                     std::vector<ColorRef>& colors) const;

  private:
    void paintLine(const std::string& line, std::size_t offset,
                   std::vector<ColorRef>& colors) const;
    ColorRef colorOf(WordClass wordClass) const;

    const KELP_RTBSyntax& editor_;
};

/// The colours of all bytes of the control's text.
std::vector<ColorRef> colorsOf(const KELP_RTBSyntax& editor);
/// Colours all bytes, beside all rules and without an event.
void paintAll(KELP_RTBSyntax& editor, ColorRef color);

}  // namespace brindlex::test
