#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>
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

/// The formats of a sequence of units, run-length coded: a balanced tree of chunks of runs, in
/// which neighbours of equal format are joined. A value like a rope: copying is O(1). With r runs,
/// at, replace and visit are O(log r) plus the runs that come, go or are visited.
template <std::size_t kChunkRuns, std::size_t kFanOut>
class BasicRunList {
    using Run = RunTraits::Item;

  public:
    /// The run that holds a unit: where it begins and ends, and its format.
    struct Place {
        std::size_t begin;
        std::size_t end;
        FormatId format;
        bool operator==(const Place&) const = default;
    };

    /// What will stand in the place of [begin, end), taken run by run and joined as it comes. The
    /// list changes when it is committed and must not change before.
    class Replacement {
      public:
        /// `runs` tells how many runs to make room for.
        Replacement(BasicRunList& list, std::size_t begin, std::size_t end, std::size_t runs);
        /// Runs of length 0 are skipped.
        void append(std::size_t length, FormatId format) {
            if (length == 0) return;
            if (!runs_.empty() && runs_.back().format == format)
                runs_.back().length += length;
            else
                runs_.emplace_back(length, format);
            assert(runs_.back().length >= length && runs_.back().format == format);
        }
        void commit();

      private:
        BasicRunList& list_;
        // Whole runs are replaced: the ones that hold the units on both sides go too, and come back
        // as far as they stay.
        std::size_t from_;
        std::size_t end_;
        std::vector<Run> runs_;
    };

    std::size_t length() const { return tree_.summary().length; }
    /// `unit` lies before the end.
    Place at(std::size_t unit) const;
    /// Puts `count` units of one format in the place of [begin, end).
    void replace(std::size_t begin, std::size_t end, std::size_t count, FormatId format);
    /// Puts the runs, of any total length, in the place of [begin, end). Runs of length 0 are
    /// skipped.
    void replace(std::size_t begin, std::size_t end, std::span<const FormatRun> runs);
    /// Calls `visit(begin, end, format)` for the runs that touch [begin, end), cut to it, in order,
    /// until it returns false. `visit` must not change the list.
    template <typename Visit>
    void visit(std::size_t begin, std::size_t end, Visit&& visit) const;
    /// Recomputes every sum; aborts with a message on a difference.
    void checkInvariants() const;

  private:
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
BasicRunList<kChunkRuns, kFanOut>::Replacement::Replacement(BasicRunList& list, std::size_t begin,
                                                            std::size_t end, std::size_t runs)
    : list_(list), from_(begin), end_(end) {
    assert(begin <= end && end <= list.length());
    runs_.reserve(runs + 2);
    if (begin > 0) {
        const Place left = list.at(begin - 1);
        from_ = left.begin;
        append(begin - from_, left.format);
    }
}

template <std::size_t kChunkRuns, std::size_t kFanOut>
void BasicRunList<kChunkRuns, kFanOut>::Replacement::commit() {
    std::size_t to = end_;
    if (end_ < list_.length()) {
        const Place right = list_.at(end_);
        to = right.end;
        append(to - end_, right.format);
    }
    list_.tree_.replace(from_, to, runs_);
}

template <std::size_t kChunkRuns, std::size_t kFanOut>
void BasicRunList<kChunkRuns, kFanOut>::replace(std::size_t begin, std::size_t end,
                                                std::size_t count, FormatId format) {
    Replacement replacement(*this, begin, end, 1);
    replacement.append(count, format);
    replacement.commit();
}

template <std::size_t kChunkRuns, std::size_t kFanOut>
void BasicRunList<kChunkRuns, kFanOut>::replace(std::size_t begin, std::size_t end,
                                                std::span<const FormatRun> runs) {
    Replacement replacement(*this, begin, end, runs.size());
    for (const FormatRun& run : runs) replacement.append(run.length, run.format);
    replacement.commit();
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
