#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/text/SumTree.h"
#include "platform/text/Units.h"

namespace brindlex {

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
    explicit BasicRope(std::string_view bytes);

    std::size_t size() const;
    std::size_t breakCount() const;
    bool empty() const { return size() == 0; }
    /// `offset` lies before the end.
    char at(Offset offset) const;
    /// The number of breaks in front of an offset, which is at most size().
    LineIndex lineOf(Offset offset) const;
    /// The offset behind the break that ends line - 1; `line` is at most breakCount().
    Offset lineStart(LineIndex line) const;
    /// Puts `bytes` in the place of `range`, which lies within the text.
    void replace(Range range, std::string_view bytes);
    std::string bytes(Range range) const;
    std::string bytes() const;

    /// Calls `visit(std::string_view)` for the stretches of memory that make up `range`, in order,
    /// without a copy, until `visit` returns false.
    template <typename Visit>
    void visitPieces(Range range, Visit&& visit) const;
    /// The same from the end of `range` to its start.
    template <typename Visit>
    void visitPiecesBackward(Range range, Visit&& visit) const;

    bool operator==(const BasicRope& other) const;
    /// Recomputes every sum; aborts with a message on a difference.
    void checkInvariants() const;
};

using Rope = BasicRope<512, 8>;

}  // namespace brindlex
