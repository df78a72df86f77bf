#include "platform/text/ColorRuns.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <vector>

namespace brindlex {

namespace {

/// The ids of formats in other colours. A script has a handful of colours, so that a small hash
/// table in front spares nearly every look-up of a whole format.
class ColoredIds {
  public:
    explicit ColoredIds(FormatRuns<CharFormat>& formats) : formats_(formats) {}

    FormatId idOf(FormatId base, ColorRef color) {
        if (color == ColorRun::kKeep) return base;
        std::size_t slot = ((color + base) * 0x9E3779B1U) >> kHashShift;
        while (!entries_[slot].isFree) {
            const Entry& entry = entries_[slot];
            if (entry.base == base && entry.color == color) return entry.id;
            slot = (slot + 1) % kSlots;
        }
        return remember(slot, base, color);
    }

  private:
    static constexpr std::size_t kSlots = 64;
    static constexpr unsigned kHashShift = 26;  // leaves a number below kSlots
    struct Entry {
        FormatId base = 0;
        ColorRef color = 0;
        FormatId id = 0;
        bool isFree = true;
    };

    FormatId remember(std::size_t slot, FormatId base, ColorRef color) {
        CharFormat format = formats_.format(base);
        format.color = color;
        const FormatId id = formats_.idOf(format);
        if (used_ < kSlots / 2) {
            entries_[slot] = {base, color, id, false};
            ++used_;
        }
        return id;
    }

    FormatRuns<CharFormat>& formats_;
    std::array<Entry, kSlots> entries_;
    std::size_t used_ = 0;
};

/// Hands out colour runs in parts of any length.
class ColorCursor {
  public:
    explicit ColorCursor(std::span<const ColorRun> runs) : runs_(runs) {}

    /// At most `most` bytes of one colour, at least one: there must be some left, and `most` > 0.
    ColorRun take(std::size_t most) {
        while (used_ == runs_[next_].length) {
            ++next_;
            used_ = 0;
        }
        const ColorRun& run = runs_[next_];
        const auto length =
            static_cast<std::uint32_t>(std::min<std::size_t>(most, run.length - used_));
        used_ += length;
        return {length, run.color};
    }

  private:
    std::span<const ColorRun> runs_;
    std::size_t next_ = 0;
    std::uint32_t used_ = 0;
};

std::size_t totalLength(std::span<const ColorRun> runs) {
    return std::accumulate(runs.begin(), runs.end(), std::size_t{0},
                           [](std::size_t sum, const ColorRun& run) { return sum + run.length; });
}

}  // namespace

UnitRange applyColors(FormatRuns<CharFormat>& formats, std::size_t begin,
                      std::span<const ColorRun> runs) {
    begin = std::min(begin, formats.length());
    const UnitRange units{begin, begin + std::min(totalLength(runs), formats.length() - begin)};
    ColoredIds ids(formats);
    ColorCursor colors(runs);
    std::vector<FormatRun> result;
    result.reserve(runs.size() + 1);
    UnitRange changed;
    formats.visit(units, [&](std::size_t at, std::size_t end, FormatId before) {
        while (at < end) {
            const ColorRun part = colors.take(end - at);
            const FormatId after = ids.idOf(before, part.color);
            appendRun(result, part.length, after);
            if (after != before) changed = {changed.empty() ? at : changed.begin, at + part.length};
            at += part.length;
        }
        return true;
    });
    if (!changed.empty()) formats.replace(units, result);
    return changed;
}

}  // namespace brindlex
