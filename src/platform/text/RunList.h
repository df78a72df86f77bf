#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "platform/text/FormatTable.h"
#include "platform/text/Invariant.h"
#include "platform/text/SumTree.h"

namespace brindlex {

/// `length` neighbouring units (bytes, or lines) of one format, as callers hand them in. A longer
/// run is several of these.
struct FormatRun {
    std::uint32_t length;
    FormatId format;
    bool operator==(const FormatRun&) const = default;
};

/// What the tree of a run list holds and sums up.
struct RunTraits {
    /// A run in eight bytes: up to 64 Gi units of one of 256 Mi formats.
    struct Item {
        Item() = default;
        Item(std::uint64_t units, FormatId id) : length(units), format(id) {}
        std::uint64_t length : 36;
        std::uint64_t format : 28;
    };
    static_assert(sizeof(Item) == sizeof(std::uint64_t));

    struct Summary {
        std::size_t length = 0;  // units
        bool operator==(const Summary&) const = default;
        Summary& operator+=(const Summary& other) {
            length += other.length;
            return *this;
        }
    };

    static Summary summarize(std::span<const Item> runs) {
        Summary sum;
        for (const Item& run : runs) {
            sum.length += run.length;
        }
        return sum;
    }

    static std::size_t indexOf(std::span<const Item> runs, std::size_t position) {
        std::size_t index = 0;
        for (std::size_t start = 0; start < position; ++index) {
            start += runs[index].length;
        }
        return index;
    }
};

/// Runs in a row, joined as they come: no two neighbours have one format, and none is empty.
class JoinedRuns {
  public:
    /// Makes room for so many runs, and for what they will stand between.
    explicit JoinedRuns(std::size_t expected) { runs_.reserve(expected + 2); }

    /// A run of length 0 is skipped.
    void append(std::size_t length, FormatId format) {
        if (length == 0) return;
        if (!runs_.empty() && runs_.back().format == format)
            runs_.back().length += length;
        else
            runs_.emplace_back(length, format);
        assert(runs_.back().length >= length && runs_.back().format == format);
    }
    /// `length` is not 0. Cost: O(runs).
    void prepend(std::size_t length, FormatId format) {
        if (!runs_.empty() && runs_.front().format == format)
            runs_.front().length += length;
        else
            runs_.emplace(runs_.begin(), length, format);
    }
    std::span<const RunTraits::Item> view() const { return runs_; }

  private:
    std::vector<RunTraits::Item> runs_;
};

/// The formats of a sequence of units, run-length coded: a balanced tree of chunks of runs, in
/// which neighbours of equal format are joined. A value like a rope: copying is O(1). With r runs,
/// at, replace and visit are O(log r) plus the runs that come, go or are visited.
template <std::size_t kChunkRuns, std::size_t kFanOut>
class BasicRunList {
  public:
    /// The run that holds a unit: where it begins and ends, and its format.
    struct Place {
        std::size_t begin;
        std::size_t end;
        FormatId format;
        bool operator==(const Place&) const = default;
    };

    std::size_t length() const { return tree_.summary().length; }
    /// `unit` lies before the end.
    Place at(std::size_t unit) const;
    /// Puts `count` units of one format in the place of [begin, end).
    void replace(std::size_t begin, std::size_t end, std::size_t count, FormatId format);
    /// Puts the runs, of any total length, in the place of [begin, end).
    void replace(std::size_t begin, std::size_t end, JoinedRuns runs);
    void replace(std::size_t begin, std::size_t end, std::span<const FormatRun> runs);
    /// Calls `visit(begin, end, format)` for the runs that touch [begin, end), cut to it, in order,
    /// until it returns false. `visit` must not change the list.
    template <typename Visit>
    void visit(std::size_t begin, std::size_t end, Visit&& visit) const;
    /// Recomputes every sum; aborts with a message on a difference.
    void checkInvariants() const;

  private:
    using Run = RunTraits::Item;

    SumTree<RunTraits, kChunkRuns, kFanOut> tree_;
};

template <std::size_t kChunkRuns, std::size_t kFanOut>
auto BasicRunList<kChunkRuns, kFanOut>::at(std::size_t unit) const -> Place {
    const auto place = tree_.template seek<&RunTraits::Summary::length>(unit);
    std::size_t begin = place.before.length;
    const Run* run = place.items.data();
    while (unit >= begin + run->length) {
        begin += run->length;
        ++run;
    }
    return {begin, begin + run->length, static_cast<FormatId>(run->format)};
}

template <std::size_t kChunkRuns, std::size_t kFanOut>
void BasicRunList<kChunkRuns, kFanOut>::replace(std::size_t begin, std::size_t end,
                                                std::size_t count, FormatId format) {
    JoinedRuns run(1);
    run.append(count, format);
    replace(begin, end, std::move(run));
}

template <std::size_t kChunkRuns, std::size_t kFanOut>
void BasicRunList<kChunkRuns, kFanOut>::replace(std::size_t begin, std::size_t end,
                                                std::span<const FormatRun> runs) {
    JoinedRuns joined(runs.size());
    for (const FormatRun& run : runs) joined.append(run.length, run.format);
    replace(begin, end, std::move(joined));
}

/// Replaces whole runs: the ones that hold the units on both sides of [begin, end) go too, and come
/// back as far as they stay.
template <std::size_t kChunkRuns, std::size_t kFanOut>
void BasicRunList<kChunkRuns, kFanOut>::replace(std::size_t begin, std::size_t end,
                                                JoinedRuns runs) {
    assert(begin <= end && end <= length());
    std::size_t from = begin;
    std::size_t to = end;
    if (begin > 0) {
        const Place left = at(begin - 1);
        from = left.begin;
        runs.prepend(begin - from, left.format);
    }
    if (end < length()) {
        const Place right = at(end);
        to = right.end;
        runs.append(to - end, right.format);
    }
    tree_.replace(from, to, runs.view());
}

template <std::size_t kChunkRuns, std::size_t kFanOut>
template <typename Visit>
void BasicRunList<kChunkRuns, kFanOut>::visit(std::size_t begin, std::size_t end,
                                              Visit&& visit) const {
    assert(end <= length());
    tree_.template visitLeaves<WalkOrder::Forward>(
        begin, end, [&](std::span<const Run> runs, std::size_t start) {
            for (const Run& run : runs) {
                const std::size_t from = std::max(begin, start);
                start += run.length;
                const std::size_t to = std::min(end, start);
                if (from < to && !visit(from, to, static_cast<FormatId>(run.format))) {
                    return false;
                }
            }
            return true;
        });
}

template <std::size_t kChunkRuns, std::size_t kFanOut>
void BasicRunList<kChunkRuns, kFanOut>::checkInvariants() const {
    tree_.checkInvariants();
    std::size_t previousEnd = 0;
    FormatId previous = 0;
    visit(0, length(), [&](std::size_t begin, std::size_t end, FormatId format) {
        checkInvariant(begin == previousEnd && begin < end, "no run is empty");
        checkInvariant(begin == 0 || format != previous, "neighbours of equal format are joined");
        previousEnd = end;
        previous = format;
        return true;
    });
    checkInvariant(previousEnd == length(), "the runs make up the list");
}

using RunList = BasicRunList<64, 8>;
extern template class BasicRunList<64, 8>;

}  // namespace brindlex
