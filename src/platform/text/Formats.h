#pragma once

#include <compare>
#include <cstddef>
#include <cstdint>
#include <functional>
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

/// Mixes one more value into a hash.
template <typename Value>
void mixHash(std::size_t& hash, const Value& value) {
    constexpr std::size_t kGoldenRatio = 0x9E3779B9;
    hash ^= std::hash<Value>{}(value) + kGoldenRatio + (hash << 6) + (hash >> 2);
}

}  // namespace brindlex

template <>
struct std::hash<brindlex::CharFormat> {
    std::size_t operator()(const brindlex::CharFormat& format) const noexcept {
        const unsigned flags = (format.bold ? 1U : 0U) | (format.italic ? 2U : 0U) |
                               (format.underline ? 4U : 0U) | (format.strikeThrough ? 8U : 0U) |
                               (format.isProtected ? 16U : 0U);
        std::size_t mixed = std::hash<brindlex::ColorRef>{}(format.color);
        brindlex::mixHash(mixed, flags);
        brindlex::mixHash(mixed, format.charOffset);
        brindlex::mixHash(mixed, format.fontName);
        brindlex::mixHash(mixed, format.fontHalfPoints);
        return mixed;
    }
};

template <>
struct std::hash<brindlex::ParagraphFormat> {
    std::size_t operator()(const brindlex::ParagraphFormat& format) const noexcept {
        std::size_t mixed = std::hash<brindlex::Alignment>{}(format.alignment);
        brindlex::mixHash(mixed, format.indent);
        brindlex::mixHash(mixed, format.hangingIndent);
        brindlex::mixHash(mixed, format.rightIndent);
        brindlex::mixHash(mixed, format.bullet);
        for (const std::int32_t tab : format.tabs) {
            brindlex::mixHash(mixed, tab);
        }
        return mixed;
    }
};
