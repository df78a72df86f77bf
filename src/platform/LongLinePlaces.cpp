#include "platform/LongLinePlaces.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace brindlex {

LongLinePlaces::LongLinePlaces(const RichTextBox& box, const LineStyle& style, Range content,
                               std::vector<qreal> tabs)
    : box_(box),
      style_(style),
      begin_(content.begin()),
      length_(content.length()),
      tabs_(std::move(tabs)),
      starts_{Start{}},
      ascent_(style.advances({}).ascent),
      descent_(style.advances({}).descent) {
    appendBlocks(blocks_, length_);
}

void LongLinePlaces::appendBlocks(std::vector<Block>& blocks, std::size_t bytes) {
    for (std::size_t left = bytes; left > 0;) {
        Block block;
        block.length = static_cast<std::uint32_t>(std::min<std::size_t>(left, kBlockBytes));
        blocks.push_back(block);
        left -= block.length;
    }
}

// --- Changes -------------------------------------------------------------------------------------

void LongLinePlaces::edited(std::size_t column, std::size_t removed, std::size_t inserted) {
    length_ += inserted - removed;
    const Found first = find(column);
    forget(first.block);
    const std::size_t inFront = column - first.column;
    std::size_t end = first.block;
    std::size_t bytes = 0;
    while (end < blocks_.size() && (end == first.block || bytes < inFront + removed))
        bytes += blocks_[end++].length;
    bytes += inserted - removed;
    if (end == first.block + 1 && bytes > 0 && bytes <= 2 * kBlockBytes) {
        blocks_[first.block].length = static_cast<std::uint32_t>(bytes);
        return;
    }
    std::vector<Block> made;
    appendBlocks(made, bytes);
    const auto at = blocks_.begin() + static_cast<std::ptrdiff_t>(first.block);
    const auto behind = blocks_.begin() + static_cast<std::ptrdiff_t>(end);
    blocks_.insert(blocks_.erase(at, behind), made.begin(), made.end());
}

void LongLinePlaces::formatChanged(std::size_t begin, std::size_t end) {
    const Found first = find(begin);
    std::size_t column = first.column;
    forget(first.block);
    for (std::size_t block = first.block; block < blocks_.size() && column < end; ++block) {
        blocks_[block].measured = false;
        column += blocks_[block].length;
    }
}

LongLinePlaces::Found LongLinePlaces::find(std::size_t column) const {
    const auto behind =
        std::partition_point(starts_.begin() + 1, starts_.end(),
                             [&](const Start& start) { return start.column <= column; });
    Found found{static_cast<std::size_t>(behind - starts_.begin()) - 1, (behind - 1)->column};
    while (found.block + 1 < blocks_.size() && found.column + blocks_[found.block].length <= column)
        found.column += blocks_[found.block++].length;
    if (found.block >= blocks_.size() && found.block > 0)
        found.column -= blocks_[--found.block].length;
    return found;
}

void LongLinePlaces::forget(std::size_t block) {
    if (block < blocks_.size()) blocks_[block].measured = false;
    starts_.resize(std::min(starts_.size(), block + 1));
}

// --- Measuring -----------------------------------------------------------------------------------

qreal LongLinePlaces::nextStop(qreal x) const {
    const auto stop = std::upper_bound(tabs_.begin(), tabs_.end(), x);
    if (stop != tabs_.end()) return *stop;
    return (std::floor(x / style_.tabDistance()) + 1) * style_.tabDistance();
}

void LongLinePlaces::measure(std::size_t index) const {
    Block& block = blocks_[index];
    const std::size_t begin = starts_[index].column;
    const qreal distance = style_.tabDistance();
    block.lead = block.rest = 0;
    block.hasTab = false;
    visitWidths(begin, begin + block.length, [&](char byte, qreal width) {
        if (byte != '\t')
            (block.hasTab ? block.rest : block.lead) += width;
        else if (block.hasTab)
            block.rest = (std::floor(block.rest / distance) + 1) * distance;
        else
            block.hasTab = true;
        return true;
    });
    block.measured = true;
}

qreal LongLinePlaces::endOf(std::size_t index, qreal x) const {
    if (!blocks_[index].measured) measure(index);
    const Block& block = blocks_[index];
    if (!block.hasTab) return x + block.lead;
    const bool even = tabs_.empty() || x + block.lead >= tabs_.back();
    if (even) return nextStop(x + block.lead) + block.rest;
    const std::size_t begin = starts_[index].column;
    visitWidths(begin, begin + block.length, [&](char byte, qreal width) {
        x = byte == '\t' ? nextStop(x) : x + width;
        return true;
    });
    return x;
}

template <typename Enough>
std::size_t LongLinePlaces::blockBefore(Enough&& enough) const {
    while (starts_.size() <= blocks_.size() && !enough(starts_.back())) {
        const std::size_t block = starts_.size() - 1;
        const Start start = starts_.back();
        const qreal end = endOf(block, start.x);
        starts_.push_back({start.column + blocks_[block].length, end});
    }
    const auto behind = std::partition_point(starts_.begin(), starts_.end(),
                                             [&](const Start& start) { return !enough(start); });
    const std::size_t count = static_cast<std::size_t>(behind - starts_.begin());
    const std::size_t last = blocks_.empty() ? 0 : blocks_.size() - 1;
    return std::min(count > 0 ? count - 1 : 0, last);
}

std::size_t LongLinePlaces::blockOf(std::size_t column) const {
    return blockBefore([column](const Start& start) { return start.column > column; });
}

qreal LongLinePlaces::xOf(std::size_t column) const {
    const std::size_t wanted = std::min(column, length_);
    const std::size_t block = blockOf(wanted);
    qreal x = starts_[block].x;
    if (wanted > starts_[block].column)
        visitWidths(starts_[block].column, wanted, [&](char byte, qreal width) {
            x = byte == '\t' ? nextStop(x) : x + width;
            return true;
        });
    return x;
}

std::size_t LongLinePlaces::columnCovering(qreal x) const {
    if (x < 0) return 0;
    const std::size_t block = blockBefore([x](const Start& start) { return start.x > x; });
    std::size_t found = length_;
    visitFrom(starts_[block].column, [&](std::size_t column, char, qreal, qreal right) {
        if (right > x) found = column;
        return right <= x;
    });
    return found;
}

qreal LongLinePlaces::width() const {
    const Start& known = starts_.back();
    return known.x + static_cast<qreal>(length_ - known.column) * style_.averageAdvance();
}

}  // namespace brindlex
