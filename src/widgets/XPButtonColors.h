#pragma once

#include <QColor>
#include <cstdint>
#include <vector>

#include "system/ColorValue.h"

namespace brindlex {

/// A colour of the screen: 0x00BBGGRR, red in the low byte.
using Bgr = std::uint32_t;

inline constexpr Bgr kWhite = 0xFFFFFF;
inline constexpr Bgr kGrey = 0x808080;

/// Shifts red, green and blue by `shift` and clamps each to 0..255. Green and blue are taken to run
/// to 256. With `scaleBlue` blue moves in proportion to itself. `invert` gives the complement. With
/// `avoidExtremes` black and white are not accepted: the shift turns round (0 becomes 64), and what
/// no turn can help is given as it is. Bits above the low 24 count for nothing.
Bgr AdjustColor(Bgr color, int shift, bool scaleBlue = true, bool avoidExtremes = false,
                bool invert = false);

/// `count` colours from `from` to `to`, the first of them `from` itself. Linear in the count, which
/// may be 0 or less: no colours.
std::vector<Bgr> GradientColors(Bgr from, Bgr to, int count);

inline QColor qColor(Bgr color) {
    return ColorValue(color).rgb();
}

}  // namespace brindlex
