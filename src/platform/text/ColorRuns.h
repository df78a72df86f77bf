#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/text/FormatRuns.h"
#include "platform/text/Formats.h"

namespace brindlex {

/// `length` bytes that take one colour, or keep theirs.
struct ColorRun {
    static constexpr ColorRef kKeep = 0xFFFFFFFF;
    std::uint32_t length;
    ColorRef color;
};

/// Colours the units from `begin` on, run by run, up to the end of the formats at most. Returns the
/// shortest stretch outside of which nothing changed. Cost: O(log n + runs before and after).
UnitRange applyColors(FormatRuns<CharFormat>& formats, std::size_t begin,
                      std::span<const ColorRun> runs);

}  // namespace brindlex
