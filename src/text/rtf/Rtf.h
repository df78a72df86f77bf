#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "text/CharacterTable.h"
#include "text/Runs.h"

namespace brindlex {

/// A text and its formats: the lengths of the runs add up to the length of the text, neighbours
/// differ, every line break is CR LF.
struct RichText {
    std::string text;
    std::vector<FormatRun> runs;
    bool operator==(const RichText&) const = default;
};

/// Whether a text claims to be RTF: it begins with "{\rtf".
bool looksLikeRtf(std::string_view bytes);

/// The text as Rich Text Format, in ASCII, with one \par for each line break. Reading it gives the
/// same again, except that an LF takes the format of its CR. Cost: O(size).
std::string writeRtf(const RichText& rich, const CharacterTable& characters);

/// Reads colours, bold, italic, underline, strike-through, line breaks and characters; everything
/// else is skipped, and so are pictures, notes, headers and the like with their text. Table cells
/// end with a tab, rows with a line break.
///
/// A byte \'hh is taken as it is if the document's code page is that of `characters`; any other
/// code page counts as 1252. A character that `characters` lacks becomes "?".
///
/// Nothing when the source is damaged: it does not begin with "{\rtf", its groups do not balance,
/// something other than white space and NUL follows the last group, a \bin runs past the end, or a
/// \' comes without two hex digits; nor when it is of 2 GiB or more.
///
/// Cost: O(size), in time and memory; nesting takes no stack.
std::optional<RichText> readRtf(std::string_view rtf, const CharacterTable& characters);

}  // namespace brindlex
