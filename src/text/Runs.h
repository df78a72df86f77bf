#pragma once

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "text/Formats.h"

namespace brindlex {

/// `length` neighbouring bytes of one format.
struct FormatRun {
    std::uint32_t length;
    CharFormat format;
    bool operator==(const FormatRun&) const = default;
};

/// `length` bytes that are to take a colour, or to keep theirs.
struct ColorRun {
    static constexpr ColorRef kKeep = 0xFFFFFFFF;
    std::uint32_t length;
    ColorRef color;
};

/// Builds a row of runs in which none is empty and no two neighbours have the same format.
class RunBuilder {
  public:
    explicit RunBuilder(std::size_t expectedRuns = 0) { runs_.reserve(expectedRuns); }

    /// Length 0 adds nothing. A run is shorter than 4 GiB.
    void append(std::size_t length, CharFormat format) {
        assert(length <= std::numeric_limits<std::uint32_t>::max());
        if (length == 0) return;
        const auto added = static_cast<std::uint32_t>(length);
        if (runs_.empty() || runs_.back().format != format)
            runs_.push_back({added, format});
        else
            runs_.back().length += added;
    }
    const std::vector<FormatRun>& runs() const { return runs_; }
    std::vector<FormatRun> take() { return std::move(runs_); }

  private:
    std::vector<FormatRun> runs_;
};

}  // namespace brindlex
