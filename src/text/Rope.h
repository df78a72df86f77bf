#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "text/SumTree.h"
#include "text/Units.h"

namespace brindlex {

/// What the tree of a rope sums up.
struct RopeTraits {
    using Item = char;

    struct Summary {
        std::size_t length = 0;  // bytes
        std::size_t breaks = 0;  // LF bytes
        bool operator==(const Summary&) const = default;
        Summary& operator+=(const Summary& other) {
            length += other.length;
            breaks += other.breaks;
            return *this;
        }
    };

    static Summary summarize(std::span<const char> bytes) {
        return {bytes.size(), countBreaks(bytes)};
    }
    static std::size_t indexOf(std::span<const char>, std::size_t position) { return position; }

    static std::size_t countBreaks(std::span<const char> bytes) {
        // Counted block by block in a byte, which vectorises to as many lanes as there are bytes.
        constexpr std::size_t kBlock = 128;
        std::size_t breaks = 0;
        for (; bytes.size() >= kBlock; bytes = bytes.subspan(kBlock)) {
            std::uint8_t inBlock = 0;
            for (std::size_t i = 0; i < kBlock; ++i) {
                inBlock = static_cast<std::uint8_t>(inBlock + (bytes[i] == '\n' ? 1 : 0));
            }
            breaks += inBlock;
        }
        return breaks + static_cast<std::size_t>(std::count(bytes.begin(), bytes.end(), '\n'));
    }
};

/// A text as an immutable value: a balanced tree of shared chunks, with the counts of bytes and of
/// line breaks in each branch. Copying is O(1); a copy keeps its text whatever happens to the
/// other. A line break is an LF: a CR LF counts as two bytes and one break. Not for use on two
/// threads at once. With n bytes, replace, at, lineOf and lineStart are O(log n).
///
/// The sizes of chunks and branches are template parameters so that tests can run with tiny ones;
/// the program uses `Rope`.
template <std::size_t kChunkBytes, std::size_t kFanOut>
class BasicRope {
  public:
    BasicRope() = default;
    /// Cost: O(n).
    explicit BasicRope(std::string_view bytes) : tree_(std::span(bytes)) {}

    std::size_t size() const { return tree_.summary().length; }
    std::size_t breakCount() const { return tree_.summary().breaks; }
    bool empty() const { return size() == 0; }
    /// `offset` lies before the end.
    char at(Offset offset) const {
        const auto place = tree_.template seek<&Summary::length>(offset.value());
        return place.items[offset.value() - place.before.length];
    }
    /// The number of breaks in front of an offset, which is at most size().
    LineIndex lineOf(Offset offset) const;
    /// The offset behind the break that ends line - 1; `line` is at most breakCount().
    Offset lineStart(LineIndex line) const;
    /// Puts `bytes` in the place of `range`, which lies within the text. `bytes` must not be a view
    /// of this rope's own memory (a piece that a visit gave).
    void replace(Range range, std::string_view bytes) {
        tree_.replace(range.begin().value(), range.end().value(), std::span(bytes));
    }
    std::string bytes(Range range) const;
    std::string bytes() const { return bytes(Range::at(Offset(0), size())); }

    /// Calls `visit(std::string_view)` for the stretches of memory that make up `range`, in order,
    /// without a copy, until `visit` returns false. `visit` must not change the rope.
    template <typename Visit>
    void visitPieces(Range range, Visit&& visit) const {
        visitPiecesIn<WalkOrder::Forward>(range, visit);
    }
    /// The same from the end of `range` to its start.
    template <typename Visit>
    void visitPiecesBackward(Range range, Visit&& visit) const {
        visitPiecesIn<WalkOrder::Backward>(range, visit);
    }

    bool operator==(const BasicRope& other) const;
    /// Recomputes every sum; aborts with a message on a difference.
    void checkInvariants() const { tree_.checkInvariants(); }

  private:
    using Tree = SumTree<RopeTraits, kChunkBytes, kFanOut>;
    using Summary = RopeTraits::Summary;

    template <WalkOrder kOrder, typename Visit>
    void visitPiecesIn(Range range, Visit& visit) const;

    Tree tree_;
};

template <std::size_t kChunkBytes, std::size_t kFanOut>
LineIndex BasicRope<kChunkBytes, kFanOut>::lineOf(Offset offset) const {
    assert(offset.value() <= size());
    if (offset.value() == size()) {
        return LineIndex(breakCount());
    }
    const auto place = tree_.template seek<&Summary::length>(offset.value());
    const auto inFront = place.items.first(offset.value() - place.before.length);
    return LineIndex(place.before.breaks + RopeTraits::countBreaks(inFront));
}

template <std::size_t kChunkBytes, std::size_t kFanOut>
Offset BasicRope<kChunkBytes, kFanOut>::lineStart(LineIndex line) const {
    assert(line.value() <= breakCount());
    if (line.value() == 0) {
        return Offset(0);
    }
    const auto place = tree_.template seek<&Summary::breaks>(line.value() - 1);
    const std::string_view chunk(place.items.data(), place.items.size());
    std::size_t behind = 0;
    for (std::size_t breaks = place.before.breaks; breaks < line.value(); ++breaks) {
        behind = chunk.find('\n', behind) + 1;
    }
    return Offset(place.before.length + behind);
}

template <std::size_t kChunkBytes, std::size_t kFanOut>
std::string BasicRope<kChunkBytes, kFanOut>::bytes(Range range) const {
    std::string result;
    result.reserve(range.length());
    visitPieces(range, [&](std::string_view piece) {
        result.append(piece);
        return true;
    });
    return result;
}

template <std::size_t kChunkBytes, std::size_t kFanOut>
bool BasicRope<kChunkBytes, kFanOut>::operator==(const BasicRope& other) const {
    if (tree_.sameAs(other.tree_)) {
        return true;
    }
    if (!(tree_.summary() == other.tree_.summary())) {
        return false;
    }
    bool equal = true;
    Offset compared;
    visitPieces(Range::at(Offset(0), size()), [&](std::string_view piece) {
        const Range range = Range::at(compared, piece.size());
        compared = range.end();
        other.visitPieces(range, [&](std::string_view otherPiece) {
            equal = piece.starts_with(otherPiece);
            piece.remove_prefix(otherPiece.size());
            return equal;
        });
        return equal;
    });
    return equal;
}

template <std::size_t kChunkBytes, std::size_t kFanOut>
template <WalkOrder kOrder, typename Visit>
void BasicRope<kChunkBytes, kFanOut>::visitPiecesIn(Range range, Visit& visit) const {
    const std::size_t begin = range.begin().value();
    const std::size_t end = range.end().value();
    assert(end <= size());
    tree_.template visitLeaves<kOrder>(
        begin, end, [&](std::span<const char> chunk, std::size_t start) {
            const std::size_t from = std::max(begin, start);
            const std::size_t to = std::min(end, start + chunk.size());
            return visit(std::string_view(chunk.data() + (from - start), to - from));
        });
}

// While an older value of the rope is kept, each edit copies the path to its place. With these
// sizes that copy is about as small as it gets: 1.1 KiB in a text of 10 MB.
using Rope = BasicRope<512, 8>;
extern template class BasicRope<512, 8>;

}  // namespace brindlex
