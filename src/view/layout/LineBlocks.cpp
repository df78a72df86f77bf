#include "view/layout/LineBlocks.h"

#include <algorithm>

namespace brindlex {

LineBlocks::LineBlocks(const Rope& text, const Range& content, const LayoutContext& context,
                       LineGap gap)
    : text_(text), content_(content), context_(context), gap_(gap), starts_{Start{}} {
    appendBlocks(blocks_, content.length());
}

/// Letters from right to left are put in order block by block, so only a line of more than 10,000
/// bytes has more than one of those. A line of up to two blocks' bytes is one block.
std::size_t LineBlocks::blockBytes() const {
    return context_.hasRightToLeft() ? 5000 : kBytes;
}

/// Appends one block at least.
void LineBlocks::appendBlocks(std::vector<Widths>& blocks, std::size_t bytes) const {
    const std::size_t blockLength = blockBytes();
    do {
        Widths block;
        block.length = static_cast<std::uint32_t>(bytes <= 2 * blockLength ? bytes : blockLength);
        bytes -= block.length;
        blocks.push_back(block);
    } while (bytes > 0);
}

void LineBlocks::edited(std::size_t column, std::size_t removed, std::size_t inserted) {
    // by the lengths alone: the bytes of blocks that are not measured are no longer what they were
    const auto known =
        std::partition_point(starts_.begin() + 1, starts_.end(),
                             [&](const Start& start) { return start.column <= column; });
    std::size_t first = static_cast<std::size_t>(known - starts_.begin()) - 1;
    std::size_t begin = starts_[first].column;
    if (first == blocks_.size()) begin -= blocks_[--first].length;
    while (first + 1 < blocks_.size() && begin + blocks_[first].length <= column)
        begin += blocks_[first++].length;
    std::size_t behind = first + 1;
    std::size_t bytes = blocks_[first].length;
    while (bytes < column - begin + removed) bytes += blocks_[behind++].length;
    std::vector<Widths> made;
    appendBlocks(made, bytes - removed + inserted);
    const auto at = blocks_.begin() + static_cast<std::ptrdiff_t>(first);
    const auto kept = std::min(made.size(), behind - first);
    std::copy_n(made.begin(), kept, at);
    blocks_.erase(at + static_cast<std::ptrdiff_t>(kept),
                  at + static_cast<std::ptrdiff_t>(behind - first));
    blocks_.insert(blocks_.begin() + static_cast<std::ptrdiff_t>(first + kept),
                   made.begin() + static_cast<std::ptrdiff_t>(kept), made.end());
    starts_.resize(std::min(starts_.size(), first + 1));
}

void LineBlocks::measure(std::size_t index) const {
    Widths& block = blocks_[index];
    std::size_t column = starts_[index].column;
    const auto add = [&](qreal width) { (block.hasTab ? block.rest : block.lead) += width; };
    const auto addGapAt = [&](std::size_t place) {
        if (place == gap_.column) add(gap_.width);
    };
    block.measured = true;
    text_.visitPieces(Range::at(content_.begin() + column, block.length),
                      [&](std::string_view piece) {
                          for (const char byte : piece) {
                              addGapAt(column++);
                              if (byte != '\t')
                                  add(context_.advance(static_cast<unsigned char>(byte)));
                              else if (block.hasTab)
                                  block.rest = context_.nextTabStop(block.rest);
                              else
                                  block.hasTab = true;
                          }
                          return true;
                      });
    if (index + 1 == blocks_.size()) addGapAt(column);
}

void LineBlocks::measureNext() const {
    const std::size_t index = starts_.size() - 1;
    const Widths& block = blocks_[index];
    if (!block.measured) measure(index);
    const Start start = starts_.back();
    const qreal lead = start.x + block.lead;
    starts_.push_back({start.column + block.length,
                       block.hasTab ? context_.nextTabStop(lead) + block.rest : lead});
}

template <typename IsBehind>
LineBlocks::Block LineBlocks::lastNotBehind(IsBehind&& isBehind) const {
    while (starts_.size() <= blocks_.size() && !isBehind(starts_.back())) measureNext();
    const auto behind = std::partition_point(starts_.begin() + 1, starts_.end(),
                                             [&](const Start& start) { return !isBehind(start); });
    const std::size_t found = static_cast<std::size_t>(behind - starts_.begin()) - 1;
    const std::size_t index = std::min(found, blocks_.size() - 1);
    const Start& start = starts_[index];
    return {start.column, start.column + blocks_[index].length, start.x};
}

LineBlocks::Block LineBlocks::at(std::size_t column) const {
    return lastNotBehind([column](const Start& start) { return start.column > column; });
}

LineBlocks::Block LineBlocks::covering(qreal x) const {
    return lastNotBehind([x](const Start& start) { return start.x > x; });
}

qreal LineBlocks::width() const {
    const Start& known = starts_.back();
    return known.x +
           static_cast<qreal>(content_.length() - known.column) * context_.averageAdvance();
}

}  // namespace brindlex
