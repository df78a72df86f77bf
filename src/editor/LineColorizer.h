#pragma once

#include <vector>

#include "editor/SyntaxLists.h"
#include "editor/WordClass.h"
#include "platform/text/RichTextBox.h"

namespace brindlex {

/// The colours of all bytes of `lines`, which begins at a line's start and ends at the end of a
/// line's text. Line breaks keep their colour.
///
/// A line is a unit: nothing is carried over to the next one. Words end at a blank, a tab, the
/// comment mark, the string mark and the end of the line; a comment and an unclosed string run to
/// the end of the line. Marks may have any length and are compared exactly; the list of comments is
/// the comment mark. The cost is one pass over the bytes.
std::vector<ColorRun> colorsOfLines(const Rope& rope, Range lines, const SyntaxLists& lists,
                                    const ClassColors& colors);

}  // namespace brindlex
