#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <optional>
#include <span>

#include "text/Invariant.h"
#include "text/Runs.h"
#include "text/SumTree.h"
#include "text/Units.h"

namespace brindlex {

/// What the tree of format runs holds and sums up.
struct FormatRunTraits {
    using Item = FormatRun;

    struct Summary {
        std::size_t length = 0;  // bytes
        bool operator==(const Summary&) const = default;
        Summary& operator+=(const Summary& other) {
            length += other.length;
            return *this;
        }
    };

    static Summary summarize(std::span<const FormatRun> runs) {
        Summary sum;
        for (const FormatRun& run : runs) sum.length += run.length;
        return sum;
    }

    static std::size_t indexOf(std::span<const FormatRun> runs, std::size_t position) {
        std::size_t index = 0;
        for (std::size_t start = 0; start < position; ++index) start += runs[index].length;
        return index;
    }
};

/// The format of each byte of a text, as a balanced tree of runs; neighbours of equal format are
/// one run. A text is shorter than 4 GiB. Ranges lie within the text.
///
/// With r runs each operation costs O(log r) and the runs that it removes, adds or visits.
class FormatRuns {
  public:
    /// A run, and where it stands.
    struct Place {
        Range range;
        CharFormat format;
        bool operator==(const Place&) const = default;
    };

    std::size_t length() const { return tree_.summary().length; }
    /// The run that holds a byte; `offset` lies before the end.
    Place at(Offset offset) const;
    /// Calls `visit(Range, CharFormat)` for the runs that touch `range`, cut to it, in order, until
    /// it returns false. `visit` must not change the formats.
    template <typename Visit>
    void visit(Range range, Visit&& visit) const;
    /// What `read(CharFormat)` gives for `range`, which is not empty, if it is the same throughout.
    template <typename Read>
    auto common(Range range, Read&& read) const;

    /// Puts `runs`, of any total length, in the place of `range`.
    void replace(Range range, std::span<const FormatRun> runs);
    /// Gives each byte the format that `changed(CharFormat)` makes of its present one.
    template <typename Changed>
    void change(Range range, Changed&& changed);
    /// Colours the bytes from `begin` on, up to the end of the text at most. Returns the shortest
    /// range outside of which nothing changed.
    Range color(Offset begin, std::span<const ColorRun> colors);

    /// Recomputes every sum; aborts with a message on a difference.
    void checkInvariants() const;

  private:
    /// New runs on their way into the tree, from a border between old ones on.
    struct Splice {
        Offset begin;
        RunBuilder runs;
    };
    Splice spliceAt(Offset offset, std::size_t expectedRuns) const;
    void finish(Splice splice, Offset end);

    SumTree<FormatRunTraits, 64, 8> tree_;
};

inline auto FormatRuns::at(Offset offset) const -> Place {
    const auto leaf = tree_.seek<&FormatRunTraits::Summary::length>(offset.value());
    Offset begin(leaf.before.length);
    const FormatRun* run = leaf.items.data();
    for (; offset >= begin + run->length; ++run) begin = begin + run->length;
    return {Range::at(begin, run->length), run->format};
}

template <typename Visit>
void FormatRuns::visit(Range range, Visit&& visit) const {
    assert(range.end().value() <= length());
    tree_.visitLeaves<WalkOrder::Forward>(
        range.begin().value(), range.end().value(),
        [&](std::span<const FormatRun> runs, std::size_t start) {
            Offset end(start);
            for (const FormatRun& run : runs) {
                const Offset from = std::max(range.begin(), end);
                end = end + run.length;
                const Offset to = std::min(range.end(), end);
                if (from < to && !visit(Range(from, to), run.format)) return false;
            }
            return true;
        });
}

template <typename Read>
auto FormatRuns::common(Range range, Read&& read) const {
    const auto first = read(at(range.begin()).format);
    bool same = true;
    visit(range, [&](Range, CharFormat format) { return same = read(format) == first; });
    return same ? std::optional(first) : std::nullopt;
}

inline void FormatRuns::replace(Range range, std::span<const FormatRun> runs) {
    Splice splice = spliceAt(range.begin(), runs.size());
    for (const FormatRun& run : runs) splice.runs.append(run.length, run.format);
    finish(std::move(splice), range.end());
}

template <typename Changed>
void FormatRuns::change(Range range, Changed&& changed) {
    Splice splice = spliceAt(range.begin(), 1);
    visit(range, [&](Range run, CharFormat format) {
        splice.runs.append(run.length(), changed(format));
        return true;
    });
    finish(std::move(splice), range.end());
}

inline Range FormatRuns::color(Offset begin, std::span<const ColorRun> colors) {
    std::size_t covered = 0;
    for (const ColorRun& run : colors) covered += run.length;
    begin = std::min(begin, Offset(length()));
    const Range range = Range::at(begin, std::min(covered, Offset(length()) - begin));
    Splice splice = spliceAt(begin, colors.size());
    Range changed;
    auto next = colors.begin();
    std::size_t used = 0;  // of the run `next`
    visit(range, [&](Range old, CharFormat before) {
        for (Offset at = old.begin(); at < old.end();) {
            for (; used == next->length; used = 0) ++next;
            const std::size_t count = std::min(old.end() - at, next->length - used);
            CharFormat after = before;
            if (next->color != ColorRun::kKeep) after.color = next->color & kColorMask;
            splice.runs.append(count, after);
            if (after.color != before.color)
                changed = {changed.empty() ? at : changed.begin(), at + count};
            at = at + count;
            used += count;
        }
        return true;
    });
    if (!changed.empty()) finish(std::move(splice), range.end());
    return changed;
}

/// Begins with what stays of the run in front of `offset`, which may join the first new one.
inline auto FormatRuns::spliceAt(Offset offset, std::size_t expectedRuns) const -> Splice {
    Splice splice{offset, RunBuilder(expectedRuns + 2)};
    if (offset > Offset(0)) {
        const Place before = at(offset - 1);
        splice.begin = before.range.begin();
        splice.runs.append(offset - splice.begin, before.format);
    }
    return splice;
}

/// Puts the new runs in the place of the old ones up to `end`.
inline void FormatRuns::finish(Splice splice, Offset end) {
    if (end < Offset(length())) {
        const Place behind = at(end);
        splice.runs.append(behind.range.end() - end, behind.format);
        end = behind.range.end();
    }
    tree_.replace(splice.begin.value(), end.value(), splice.runs.runs());
}

inline void FormatRuns::checkInvariants() const {
    tree_.checkInvariants();
    Place previous{};
    visit({Offset(0), Offset(length())}, [&](Range range, CharFormat format) {
        checkInvariant(range.begin() == previous.range.end() && !range.empty(), "no run is empty");
        checkInvariant(previous.range.empty() || format != previous.format,
                       "neighbours of equal format are one run");
        previous = {range, format};
        return true;
    });
    checkInvariant(previous.range.end().value() == length(), "the runs make up the text");
}

}  // namespace brindlex
