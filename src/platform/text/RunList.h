#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/text/FormatTable.h"

namespace brindlex {

/// `length` neighbouring units (bytes, or lines) of one format.
struct FormatRun {
    std::uint32_t length;
    FormatId format;
    bool operator==(const FormatRun&) const = default;
};

/// The formats of a sequence of units, run-length coded: a balanced tree of chunks of runs, in
/// which neighbours of equal format are joined. With r runs, at, replace and find are O(log r) plus
/// the runs that come or go.
template <std::size_t kChunkRuns, std::size_t kFanOut>
class BasicRunList {
  public:
    /// The run that holds a unit: where it begins and ends, and its format.
    struct Place {
        std::size_t begin;
        std::size_t end;
        FormatId format;
    };

    std::size_t length() const;
    /// `unit` lies before the end.
    Place at(std::size_t unit) const;
    /// Puts `count` units of one format in the place of [begin, end).
    void replace(std::size_t begin, std::size_t end, std::size_t count, FormatId format);
    /// Puts the runs, of any total length, in the place of [begin, end).
    void replace(std::size_t begin, std::size_t end, std::span<const FormatRun> runs);
    /// Calls `visit(begin, end, format)` for the runs that touch [begin, end), cut to it, in order,
    /// until it returns false.
    template <typename Visit>
    void visit(std::size_t begin, std::size_t end, Visit&& visit) const;
    void checkInvariants() const;
};

using RunList = BasicRunList<64, 8>;

}  // namespace brindlex
