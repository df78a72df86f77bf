#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "platform/text/FormatTable.h"
#include "platform/text/RunList.h"

namespace brindlex {

/// A half-open stretch of units.
struct UnitRange {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool empty() const { return begin == end; }
};

/// Adds `length` units of one format to the end of `runs`, joined with what stands there.
inline void appendRun(std::vector<FormatRun>& runs, std::size_t length, FormatId format) {
    constexpr std::size_t kMost = std::numeric_limits<std::uint32_t>::max();
    if (length > 0 && !runs.empty() && runs.back().format == format) {
        const std::size_t part = std::min(length, kMost - runs.back().length);
        runs.back().length += static_cast<std::uint32_t>(part);
        length -= part;
    }
    for (; length > 0; length -= std::min(length, kMost))
        runs.push_back({static_cast<std::uint32_t>(std::min(length, kMost)), format});
}

/// The formats of a sequence of units (bytes, or lines), each distinct format held once.
template <typename Format>
class FormatRuns {
  public:
    explicit FormatRuns(std::size_t length) { runs_.replace(0, 0, length, FormatId{0}); }

    std::size_t length() const { return runs_.length(); }
    /// `unit` lies before the end.
    FormatId idAt(std::size_t unit) const { return runs_.at(unit).format; }
    /// The run of one format that holds `unit`, which lies before the end.
    UnitRange around(std::size_t unit) const {
        const RunList::Place run = runs_.at(unit);
        return {run.begin, run.end};
    }
    /// Valid until the next idOf.
    const Format& format(FormatId id) const { return table_.format(id); }
    FormatId idOf(const Format& format) { return table_.idOf(format); }

    void replace(UnitRange units, std::size_t count, FormatId id) {
        runs_.replace(units.begin, units.end, count, id);
    }
    void replace(UnitRange units, std::span<const FormatRun> runs) {
        runs_.replace(units.begin, units.end, runs);
    }
    void replace(UnitRange units, JoinedRuns runs) {
        runs_.replace(units.begin, units.end, std::move(runs));
    }

    /// Calls `visit(begin, end, id)` for the runs that touch `units`, cut to them, in order, until
    /// it returns false.
    template <typename Visit>
    void visit(UnitRange units, Visit&& visit) const {
        runs_.visit(units.begin, units.end, std::forward<Visit>(visit));
    }
    std::vector<FormatRun> runs(UnitRange units) const {
        std::vector<FormatRun> result;
        result.reserve(16);  // enough for a line
        visit(units, [&](std::size_t begin, std::size_t end, FormatId id) {
            appendRun(result, end - begin, id);
            return true;
        });
        return result;
    }

    /// Gives each unit the format that `change(Format&)` makes of its present one.
    template <typename Change>
    void change(UnitRange units, Change&& change) {
        JoinedRuns changed(0);
        visit(units, [&](std::size_t begin, std::size_t end, FormatId id) {
            Format format = table_.format(id);
            change(format);
            changed.append(end - begin, table_.idOf(format));
            return true;
        });
        replace(units, std::move(changed));
    }

    /// What `read(const Format&)` gives for the units if it is the same for all of them; `units` is
    /// not empty.
    template <typename Read>
    auto common(UnitRange units, Read&& read) const {
        const auto first = read(format(idAt(units.begin)));
        bool same = true;
        visit(units, [&](std::size_t, std::size_t, FormatId id) {
            return same = read(format(id)) == first;
        });
        return same ? std::optional(first) : std::nullopt;
    }

    void checkInvariants() const { runs_.checkInvariants(); }

  private:
    FormatTable<Format> table_;
    RunList runs_;
};

}  // namespace brindlex
