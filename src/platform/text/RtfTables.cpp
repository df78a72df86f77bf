#include "platform/text/RtfTables.h"

#include <algorithm>
#include <utility>

#include "platform/text/Rtf.h"
#include "platform/text/RtfCharsets.h"

namespace brindlex {

void RtfFontTable::begin(std::int32_t number) {
    const auto next = static_cast<std::uint32_t>(fonts_.size());
    const auto [entry, isNew] = indices_.try_emplace(number, next);
    if (isNew) fonts_.emplace_back();
    open_ = entry->second;
    fonts_[open_] = {};
}

void RtfFontTable::setCharset(std::int32_t charset) {
    if (open_ != 0) fonts_[open_].codePage = rtfCodePageOf(charset);
}

void RtfFontTable::append(char byte) {
    if (open_ != 0 && fonts_[open_].name.size() < kMaxRtfFontName) fonts_[open_].name += byte;
}

std::uint32_t RtfFontTable::indexOf(std::int32_t number) const {
    const auto found = indices_.find(number);
    return found == indices_.end() ? 0 : found->second;
}

const RtfFont& RtfFontTable::font(std::uint32_t index) const {
    return fonts_[index == 0 ? indexOf(default_) : index];
}

void RtfColorTable::setPart(unsigned shift, std::int32_t value) {
    const auto part = static_cast<ColorRef>(std::clamp(value, 0, 255));
    open_ = (open_ & ~(ColorRef{255} << shift)) | (part << shift);
}

void RtfColorTable::endEntry() {
    colors_.push_back(std::exchange(open_, 0));
}

ColorRef RtfColorTable::color(std::int32_t number) const {
    const auto index = static_cast<std::size_t>(number);
    return number >= 0 && index < colors_.size() ? colors_[index] : 0;
}

std::uint32_t RtfTabs::added(std::uint32_t list, std::int32_t twips) {
    const std::uint32_t count = list == 0 ? 1 : stops_[list - 1].count + 1;
    if (count > kMaxRtfTabs) return list;
    stops_.push_back({twips, list, count});
    return static_cast<std::uint32_t>(stops_.size());
}

std::vector<std::int32_t> RtfTabs::stops(std::uint32_t list) const {
    std::vector<std::int32_t> result;
    for (std::uint32_t at = list; at != 0; at = stops_[at - 1].previous) {
        result.push_back(stops_[at - 1].twips);
    }
    std::sort(result.begin(), result.end());
    result.erase(std::unique(result.begin(), result.end()), result.end());
    return result;
}

}  // namespace brindlex
