#include "platform/text/ColorRuns.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

namespace brindlex {

namespace {

/// The ids of formats in other colours. A script has a handful of colours, so that a small hash
/// table in front spares nearly every look-up of a whole format.
class ColoredIds {
  public:
    explicit ColoredIds(FormatRuns<CharFormat>& formats) : formats_(formats) {}

    FormatId idOf(FormatId base, ColorRef color) {
        std::size_t slot = ((color + base) * 0x9E3779B1U) >> kHashShift;
        while (entries_[slot].base != base || entries_[slot].color != color) {
            if (entries_[slot].base == kNone) return remember(slot, base, color);
            slot = (slot + 1) % kSlots;
        }
        return entries_[slot].id;
    }

  private:
    static constexpr std::size_t kSlots = 64;
    static constexpr unsigned kHashShift = 26;  // leaves a number below kSlots
    static constexpr FormatId kNone = 0xFFFFFFFF;
    struct Entry {
        FormatId base = kNone;
        ColorRef color = 0;
        FormatId id = 0;
    };

    FormatId remember(std::size_t slot, FormatId base, ColorRef color) {
        const FormatId id = color == ColorRun::kKeep ? base : recolored(base, color);
        if (used_ < kSlots / 2) {
            entries_[slot] = {base, color, id};
            ++used_;
        }
        return id;
    }

    FormatId recolored(FormatId base, ColorRef color) {
        CharFormat format = formats_.format(base);
        format.color = color;
        return formats_.idOf(format);
    }

    FormatRuns<CharFormat>& formats_;
    std::array<Entry, kSlots> entries_;
    std::size_t used_ = 0;
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
    JoinedRuns colored(runs.size());
    UnitRange changed;
    std::size_t at = units.begin;
    ColorRun color{};  // what is left of the one in front of `runs`
    for (FormatRun before : formats.runs(units)) {
        while (before.length > 0) {
            while (color.length == 0) {
                color = runs.front();
                runs = runs.subspan(1);
            }
            const std::uint32_t length = std::min(before.length, color.length);
            const FormatId after = ids.idOf(before.format, color.color);
            colored.append(length, after);
            if (after != before.format)
                changed = {changed.empty() ? at : changed.begin, at + length};
            at += length;
            before.length -= length;
            color.length -= length;
        }
    }
    if (!changed.empty()) formats.replace(units, std::move(colored));
    return changed;
}

}  // namespace brindlex
