#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "text/RichTextBox.h"
#include "view/layout/LayoutContext.h"

namespace brindlex {

/// Room that is left in front of a column for text that is not in the box.
struct LineGap {
    std::size_t column = 0;
    qreal width = 0;
};

/// A line cut into blocks of about blockBytes() bytes, so that a place in a line of megabytes is
/// found, and an edit followed, without a walk through all of it. A block is measured, from the
/// widths of its bytes, when a place in or behind it is first asked for. An edit costs the blocks
/// that it touches to measure, and an addition for each block behind them.
///
/// Columns are 0-based and count bytes from the start of the line; places are pixels from there.
class LineBlocks {
  public:
    /// Where no letter runs from right to left.
    static constexpr std::size_t kBytes = 128;

    /// Columns [begin, end), and the left edge of the first.
    struct Block {
        std::size_t begin;
        std::size_t end;
        qreal left;
    };

    /// The first three must outlive this object; their owner keeps `content` at the line's range in
    /// the text. Cost: an entry for each block.
    LineBlocks(const Rope& text, const Range& content, const LayoutContext& context, LineGap gap);

    /// To be called after a change of the text, and of the line's range, at a column.
    void edited(std::size_t column, std::size_t removed, std::size_t inserted);

    /// The block that holds a column; the last one for the end of the line.
    Block at(std::size_t column) const;
    /// The block that covers a place; the first or the last one for a place outside of the line.
    Block covering(qreal x) const;
    /// The end of the line; an estimate for blocks that were not measured yet.
    qreal width() const;

  private:
    /// `lead` is the width up to the first tab, `rest` the width behind it, which is the same
    /// wherever the line's tab stops put the tab's end.
    struct Widths {
        std::uint32_t length = 0;
        bool measured = false;
        bool hasTab = false;
        qreal lead = 0;
        qreal rest = 0;
    };
    struct Start {
        std::size_t column = 0;
        qreal x = 0;
    };

    std::size_t blockBytes() const;
    void appendBlocks(std::vector<Widths>& blocks, std::size_t bytes) const;
    void measure(std::size_t index) const;
    void measureNext() const;
    template <typename IsBehind>
    Block lastNotBehind(IsBehind&& isBehind) const;

    const Rope& text_;
    const Range& content_;
    const LayoutContext& context_;
    LineGap gap_;
    mutable std::vector<Widths> blocks_;  ///< never empty
    mutable std::vector<Start> starts_;   ///< of the first blocks, and the end of the last of them
};

}  // namespace brindlex
