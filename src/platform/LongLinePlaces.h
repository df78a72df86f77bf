#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/LineStyle.h"
#include "platform/text/RichTextBox.h"

namespace brindlex {

/// Where the columns of a long line stand, from the widths of its bytes. The line is kept as
/// blocks, each measured when a place in or behind it is first asked for; the places where blocks
/// start are summed up likewise. An edit costs the blocks that it touches to measure and an
/// addition for each block behind them.
///
/// Places are pixels from the start of the line's text; columns are 0-based and count bytes.
class LongLinePlaces {
  public:
    /// `tabs` are the tab stops of the paragraph, rising. Cost: none that grows with the bytes but
    /// the list of blocks.
    LongLinePlaces(const RichTextBox& box, const LineStyle& style, Range content,
                   std::vector<qreal> tabs);

    void setBegin(Offset begin) { begin_ = begin; }
    std::size_t length() const { return length_; }
    void edited(std::size_t column, std::size_t removed, std::size_t inserted);
    void formatChanged(std::size_t begin, std::size_t end);

    qreal xOf(std::size_t column) const;
    /// The column whose character covers `x`; the length for what lies behind the text.
    std::size_t columnCovering(qreal x) const;
    /// The end of the text; an estimate while there are blocks that nobody asked for.
    qreal width() const;
    /// The highest of the characters measured so far.
    qreal ascent() const { return ascent_; }
    qreal descent() const { return descent_; }

    /// Calls `visit(column, byte, left, right)` from a column on until it returns false.
    template <typename Visit>
    void visitFrom(std::size_t column, Visit&& visit) const;

  private:
    static constexpr std::uint32_t kBlockBytes = 2048;

    /// `lead` is the width up to the first tab. `rest` is the width behind it, if the text behind
    /// it begins at one of the even tab stops: then it is the same at each of them.
    struct Block {
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

    qreal nextStop(qreal x) const;
    void measure(std::size_t block) const;
    qreal endOf(std::size_t block, qreal x) const;
    /// Calls `visit(byte, width)` for the bytes of a range of columns until it returns false.
    template <typename Visit>
    void visitWidths(std::size_t begin, std::size_t end, Visit&& visit) const;
    /// Sums up the starts until `enough(start of the next block)`; gives the last block that
    /// starts in front of that.
    template <typename Enough>
    std::size_t blockBefore(Enough&& enough) const;
    std::size_t blockOf(std::size_t column) const;
    struct Found {
        std::size_t block;
        std::size_t column;  ///< at which the block starts
    };
    /// As blockOf, but without a look at the text, which may have changed.
    Found find(std::size_t column) const;
    void forget(std::size_t block);
    static void appendBlocks(std::vector<Block>& blocks, std::size_t bytes);

    const RichTextBox& box_;
    const LineStyle& style_;
    Offset begin_;
    std::size_t length_;
    std::vector<qreal> tabs_;
    mutable std::vector<Block> blocks_;
    mutable std::vector<Start> starts_;  ///< of the first blocks, as far as they are summed up
    mutable qreal ascent_;
    mutable qreal descent_;
};

template <typename Visit>
void LongLinePlaces::visitWidths(std::size_t begin, std::size_t end, Visit&& visit) const {
    box_.visitFormats({begin_ + begin, begin_ + end}, [&](Range run, const CharFormat& format) {
        const LineStyle::Advances& advances = style_.advances(format);
        const qreal offset = style_.fromTwips(format.charOffset);
        ascent_ = std::max(ascent_, advances.ascent + offset);
        descent_ = std::max(descent_, advances.descent - offset);
        bool going = true;
        box_.rope().visitPieces(run, [&](std::string_view piece) {
            for (std::size_t i = 0; going && i < piece.size(); ++i)
                going = visit(piece[i], advances.width[static_cast<unsigned char>(piece[i])]);
            return going;
        });
        return going;
    });
}

template <typename Visit>
void LongLinePlaces::visitFrom(std::size_t column, Visit&& visit) const {
    std::size_t at = std::min(column, length_);
    qreal left = xOf(at);
    visitWidths(at, length_, [&](char byte, qreal width) {
        const qreal right = byte == '\t' ? nextStop(left) : left + width;
        const bool going = visit(at++, byte, left, right);
        left = right;
        return going;
    });
}

}  // namespace brindlex
