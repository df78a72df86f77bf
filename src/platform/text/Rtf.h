#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text/CharacterTable.h"
#include "platform/text/RichTextFragment.h"

namespace brindlex {

/// The font that RTF names for characters without one of their own.
struct RtfBaseFont {
    std::string name = "Courier New";
    int halfPoints = 20;
};

/// What RTF does not carry beyond: larger sizes, further bytes and further tab stops are cut.
inline constexpr std::int32_t kMaxRtfHalfPoints = 3276;
inline constexpr std::size_t kMaxRtfFontName = 255;
inline constexpr std::size_t kMaxRtfTabs = 64;

/// Whether a text claims to be RTF: it begins with "{\rtf".
bool looksLikeRtf(std::string_view bytes);

/// Rich Text Format, version 1.9.1, as far as a RichTextFragment can hold it. What is written is
/// read back equal, within the limits above, if tab stops rise, colours have 24 bits and a font or
/// size equal to the base is left unset. The result is ASCII.
///
/// Every line but the last ends with \par, so the text has as many line breaks as \par. What RTF
/// cannot say stands in two control words of our own, which other programs pass over:
/// \brindlextwipsN, the offset from the base line where it is no whole number of half points, and
/// \brindlexlf, the format of an LF that differs from that of its CR.
///
/// Cost: O(size).
std::string writeRtf(const RichTextFragment& fragment, const CharacterTable& characters,
                     const RtfBaseFont& baseFont);

/// Reads RTF. Unknown control words and destinations, hidden text, pictures, notes, headers and
/// the like are skipped; table cells end with a tab, rows with a line break. A font or a size equal
/// to that of `baseFont`, and a size that is not named, become "the control's own".
///
/// A byte \'hh whose code page (its font's, else the document's) is that of `characters` is taken
/// as it is; any other code page of single bytes counts as 1252. A character that `characters`
/// lacks gives what the RTF offers in its place, else "?". CR and LF among the characters are line
/// breaks.
///
/// Nothing when the RTF is damaged: it does not begin with "{\rtf", its groups do not balance,
/// something other than white space and NUL follows the last group, a \bin runs past the end, or a
/// \' comes without two hex digits.
///
/// Cost: O(size), in time and memory; nesting takes no stack.
std::optional<RichTextFragment> readRtf(std::string_view rtf, const CharacterTable& characters,
                                        const RtfBaseFont& baseFont);

}  // namespace brindlex
