#pragma once

#include <cstdint>

namespace brindlex {

/// A colour 0x00BBGGRR: red in the low byte.
using ColorRef = std::uint32_t;
inline constexpr ColorRef kColorMask = 0xFFFFFF;

/// How a character looks. A default-made value is plain and black. Four bytes, so that a run of a
/// format takes eight; the flags are 0 or 1.
struct CharFormat {
    std::uint32_t color : 24 = 0;
    std::uint32_t bold : 1 = 0;
    std::uint32_t italic : 1 = 0;
    std::uint32_t underline : 1 = 0;
    std::uint32_t strikeThrough : 1 = 0;

    bool operator==(const CharFormat&) const = default;
};

}  // namespace brindlex
