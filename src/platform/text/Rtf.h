#pragma once

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

/// Whether a text claims to be RTF: it begins with "{\rtf".
bool looksLikeRtf(std::string_view bytes);

/// Rich Text Format, version 1.9.1, as far as a RichTextFragment can hold it: what is written is
/// read back equal.
std::string writeRtf(const RichTextFragment& fragment, const CharacterTable& characters,
                     const RtfBaseFont& baseFont);

/// Reads RTF. Unknown control words and destinations are skipped; a font equal to `baseFont`
/// becomes "the control's own". Nothing when the RTF is damaged (unbalanced groups, data after the
/// last group other than white space or NUL, a \bin past the end).
std::optional<RichTextFragment> readRtf(std::string_view rtf, const CharacterTable& characters,
                                        const RtfBaseFont& baseFont);

}  // namespace brindlex
