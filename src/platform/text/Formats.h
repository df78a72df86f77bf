#pragma once

#include <compare>
#include <cstdint>
#include <string>
#include <vector>

namespace brindlex {

/// A colour 0x00BBGGRR: red in the low byte.
using ColorRef = std::uint32_t;

/// How characters look. A default-made value is plain black text in the control's own font.
struct CharFormat {
    ColorRef color = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThrough = false;
    bool isProtected = false;         ///< the user cannot change or remove the character
    std::int32_t charOffset = 0;      ///< twips above (negative: below) the base line
    std::string fontName{};           ///< empty: the control's font
    std::int32_t fontHalfPoints = 0;  ///< size in half points; 0: the control's size

    bool operator==(const CharFormat&) const = default;
};

enum class Alignment : std::int32_t { Left = 0, Right = 1, Center = 2 };

/// How a paragraph (a line with its line break) is set. Lengths are in twips.
struct ParagraphFormat {
    Alignment alignment = Alignment::Left;
    std::int32_t indent = 0;         ///< of the first line, from the left edge
    std::int32_t hangingIndent = 0;  ///< of the further lines, from `indent`
    std::int32_t rightIndent = 0;    ///< from the right edge
    bool bullet = false;
    std::vector<std::int32_t> tabs{};  ///< tab stops from the left edge, rising; empty: every 720

    bool operator==(const ParagraphFormat&) const = default;
};

}  // namespace brindlex
