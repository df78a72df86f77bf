#pragma once

#include <algorithm>
#include <cassert>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

#include "text/Invariant.h"
#include "text/SumTreeNode.h"

namespace brindlex {

enum class WalkOrder { Forward, Backward };

/// A sequence of items as a value: a balanced tree of shared chunks, each node with a summary of
/// what is below it. Copying is O(1). On the way from the root to the place of a change, nodes that
/// other trees share are copied, and nodes that this tree alone owns are changed in place.
///
/// `Traits` says what the items are:
///   Item                       trivially copyable
///   Summary                    sums: default-made to zero, +=, ==, and a member `length`, the
///                              measure of the positions that this interface speaks of
///   summarize(span of items)   their Summary
///   indexOf(span, position)    the index of the item that begins at a position within the span;
///                              for the position behind the last item, the number of items
///
/// Neighbours below one parent that fit together into three quarters of a node are joined, and a
/// node that is too full is split into nodes that are half to three quarters full. So inserts and
/// deletes at one place do not split and join over and over, and the height stays O(log n): two
/// neighbours fill more than three quarters of a node. Chunks of many new items are filled to seven
/// eighths, which spares memory and leaves room for the first edits.
template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
class SumTree {
    using Nodes = SumTreeNodes<Traits, kChunkItems, kFanOut>;
    using Node = typename Nodes::Node;
    using Leaf = typename Nodes::Leaf;
    using Inner = typename Nodes::Inner;
    using Ref = typename Nodes::Ref;
    using Row = std::vector<Ref>;  // neighbours of one height

  public:
    using Item = typename Traits::Item;
    using Summary = typename Traits::Summary;
    using Items = std::span<const Item>;

    /// A leaf, and the summary of everything in front of it.
    struct Place {
        Items items;
        Summary before;
    };

    SumTree() = default;
    /// Cost: O(n).
    explicit SumTree(Items items) : root_(rootOf(makeLeaves({items}))) {}

    Summary summary() const { return root_ ? root_->summary : Summary{}; }
    /// Whether both are copies of one value that has not changed since: O(1).
    bool sameAs(const SumTree& other) const { return root_ == other.root_; }

    /// The leaf with number `target` of what `kDimension` (a member of Summary) counts, from 0;
    /// `target` is less than the sum. Cost: O(log n).
    template <auto kDimension>
    Place seek(std::size_t target) const;

    /// Puts `items` in the place of [begin, end), which are borders of items. `items` must not be a
    /// view of this tree's own chunks. Cost: O(log n + items).
    void replace(std::size_t begin, std::size_t end, Items items);

    /// Calls `visit(Items, position of the first)` for the leaves that touch [begin, end), until it
    /// returns false.
    template <WalkOrder kOrder, typename Visit>
    void visitLeaves(std::size_t begin, std::size_t end, Visit&& visit) const {
        if (root_ && begin < end) {
            visitNode<kOrder>(*root_, 0, begin, end, visit);
        }
    }

    /// Recomputes every sum; aborts with a message on a difference.
    void checkInvariants() const;

  private:
    static constexpr std::size_t capacity(const Node& node) {
        return node.isLeaf() ? kChunkItems : kFanOut;
    }
    static constexpr std::size_t fill(std::size_t capacity) { return capacity * 3 / 4; }
    static bool fitTogether(const Node& a, const Node& b) {
        return std::size_t{a.count} + b.count <= fill(capacity(a));
    }

    /// Splits `all` things into even parts of at most `most`.
    struct Shares {
        Shares(std::size_t all, std::size_t most) : total(all), parts((all + most - 1) / most) {}
        std::size_t of(std::size_t part) const {
            return total / parts + (part < total % parts ? 1 : 0);
        }
        std::size_t total;
        std::size_t parts;
    };

    struct ChildPlace {
        std::size_t index;
        std::size_t start;  // the position of its first item within the parent
    };

    static Row makeLeaves(std::initializer_list<Items> pieces);
    static Row makeParents(Row nodes);
    static Ref rootOf(Row row);
    static Ref innerOf(std::span<Ref> children);
    static void moveRow(Row row, Ref& first, Row& more);

    static void splice(Ref& node, std::size_t begin, std::size_t end, Items items, Row& more);
    static void spliceLeaf(Ref& node, std::size_t begin, std::size_t end, Items items, Row& more);
    static void spliceInner(Ref& node, std::size_t begin, std::size_t end, Items items, Row& more);
    static ChildPlace findChild(const Inner& inner, std::size_t begin, std::size_t end);
    static std::size_t tidy(std::span<Ref> nodes);
    static void absorb(Ref& left, const Node& right);
    static void setChildren(Inner& inner, std::size_t count);
    static Row spread(Inner& inner, std::size_t child, Row& behindChild);

    template <WalkOrder kOrder, typename Visit>
    static bool visitNode(const Node& node, std::size_t start, std::size_t begin, std::size_t end,
                          Visit& visit);
    static void checkNode(const Node& node);

    Ref root_;
};

// --- Looking ------------------------------------------------------------------------------------

template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
template <auto kDimension>
auto SumTree<Traits, kChunkItems, kFanOut>::seek(std::size_t target) const -> Place {
    assert(target < summary().*kDimension);
    Summary before{};
    const Node* node = &*root_;
    while (!node->isLeaf()) {
        const Ref* child = node->inner().children.data();
        while (target >= before.*kDimension + (*child)->summary.*kDimension) {
            before += (*child)->summary;
            ++child;
        }
        node = &**child;
    }
    return {node->leaf().view(), before};
}

template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
template <WalkOrder kOrder, typename Visit>
bool SumTree<Traits, kChunkItems, kFanOut>::visitNode(const Node& node, std::size_t start,
                                                      std::size_t begin, std::size_t end,
                                                      Visit& visit) {
    if (node.isLeaf()) {
        return visit(node.leaf().view(), start);
    }
    const auto visitChild = [&](const Node& child, std::size_t childStart) {
        const bool touches = childStart < end && childStart + child.summary.length > begin;
        return !touches || visitNode<kOrder>(child, childStart, begin, end, visit);
    };
    const auto children = node.inner().view();
    if constexpr (kOrder == WalkOrder::Forward) {
        for (const Ref& child : children) {
            if (!visitChild(*child, start)) {
                return false;
            }
            start += child->summary.length;
        }
    } else {
        start += node.summary.length;
        for (auto child = children.rbegin(); child != children.rend(); ++child) {
            start -= (*child)->summary.length;
            if (!visitChild(**child, start)) {
                return false;
            }
        }
    }
    return true;
}

// --- Building -----------------------------------------------------------------------------------

/// New leaves with the items of all pieces.
template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
auto SumTree<Traits, kChunkItems, kFanOut>::makeLeaves(std::initializer_list<Items> pieces) -> Row {
    std::size_t total = 0;
    for (const Items& piece : pieces) {
        total += piece.size();
    }
    if (total == 0) return {};
    constexpr std::size_t kMany = 2 * kChunkItems;
    const Shares shares(total, total > kMany ? kChunkItems * 7 / 8 : fill(kChunkItems));
    Row leaves;
    leaves.reserve(shares.parts);
    Leaf* leaf = nullptr;
    std::size_t room = 0;
    for (Items piece : pieces) {
        while (!piece.empty()) {
            if (room == 0) {
                room = shares.of(leaves.size());
                leaf = new Leaf;
                leaves.emplace_back(leaf);
            }
            const std::size_t count = std::min(room, piece.size());
            leaf->append(piece.first(count));
            piece = piece.subspan(count);
            room -= count;
            if (room == 0) {
                leaf->refresh();
            }
        }
    }
    return leaves;
}

/// New parents for the nodes.
template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
auto SumTree<Traits, kChunkItems, kFanOut>::makeParents(Row nodes) -> Row {
    const Shares shares(nodes.size(), fill(kFanOut));
    Row parents;
    parents.reserve(shares.parts);
    std::span<Ref> rest = nodes;
    while (!rest.empty()) {
        const std::size_t count = shares.of(parents.size());
        parents.push_back(innerOf(rest.first(count)));
        rest = rest.subspan(count);
    }
    return parents;
}

template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
auto SumTree<Traits, kChunkItems, kFanOut>::innerOf(std::span<Ref> children) -> Ref {
    auto* inner = new Inner(static_cast<std::uint16_t>(children.front()->height + 1));
    std::move(children.begin(), children.end(), inner->children.begin());
    setChildren(*inner, children.size());
    return Ref(inner);
}

/// The tree above a row of any length.
template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
auto SumTree<Traits, kChunkItems, kFanOut>::rootOf(Row row) -> Ref {
    if (row.empty()) {
        return {};
    }
    while (row.size() > kFanOut) {
        row = makeParents(std::move(row));
    }
    return row.size() == 1 ? row.front() : innerOf(row);
}

// --- Changing -----------------------------------------------------------------------------------

template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
void SumTree<Traits, kChunkItems, kFanOut>::replace(std::size_t begin, std::size_t end,
                                                    Items items) {
    assert(begin <= end && end <= summary().length);
    if (begin == 0 && end == summary().length) {
        root_ = rootOf(makeLeaves({items}));
        return;
    }
    if (begin == end && items.empty()) {
        return;
    }
    Row row;
    splice(root_, begin, end, items, row);
    if (!row.empty()) {
        row.insert(row.begin(), std::move(root_));
        root_ = rootOf(std::move(row));
    }
    while (!root_->isLeaf() && root_->count == 1) {
        root_ = Ref(root_->inner().children.front());
    }
}

/// Puts `items` in the place of [begin, end) of one node. The node becomes the first of what stands
/// there now, or nothing; `more`, empty before, takes the further nodes of its height.
template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
void SumTree<Traits, kChunkItems, kFanOut>::splice(Ref& node, std::size_t begin, std::size_t end,
                                                   Items items, Row& more) {
    if (items.empty() && begin == 0 && end == node->summary.length) {
        node = {};
    } else if (node->isLeaf()) {
        spliceLeaf(node, begin, end, items, more);
    } else {
        spliceInner(node, begin, end, items, more);
    }
}

template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
void SumTree<Traits, kChunkItems, kFanOut>::spliceLeaf(Ref& node, std::size_t begin,
                                                       std::size_t end, Items items, Row& more) {
    const Items old = node->leaf().view();
    const std::size_t first = Traits::indexOf(old, begin);
    const std::size_t last = Traits::indexOf(old, end);
    if (first + items.size() + (old.size() - last) <= kChunkItems) {
        node.own().leaf().replace(first, last, items);
    } else {
        moveRow(makeLeaves({old.first(first), items, old.subspan(last)}), node, more);
    }
}

template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
void SumTree<Traits, kChunkItems, kFanOut>::spliceInner(Ref& node, std::size_t begin,
                                                        std::size_t end, Items items, Row& more) {
    Inner& inner = node.own().inner();
    auto [child, start] = findChild(inner, begin, end);
    const std::size_t first = child;
    std::size_t done = start + inner.children[first]->summary.length;
    Row behindFirst;
    splice(inner.children[first], begin - start, std::min(end, done) - start, items, behindFirst);
    while (done < end) {
        Ref& next = inner.children[++child];
        const std::size_t length = next->summary.length;
        Row none;
        splice(next, 0, std::min(end - done, length), {}, none);
        done += length;
    }
    if (behindFirst.empty()) {
        setChildren(inner, tidy({inner.children.data(), inner.count}));
        if (inner.count == 0) {
            node = {};
        }
        return;
    }
    Row row = spread(inner, first, behindFirst);
    row.resize(tidy(row));
    if (row.size() <= kFanOut) {
        std::move(row.begin(), row.end(), inner.children.begin());
        setChildren(inner, row.size());
    } else {
        moveRow(makeParents(std::move(row)), node, more);
    }
}

/// The first child that a change of [begin, end) touches. When `begin` is the border between two
/// children, that is the second one if items are removed, else the first, so that no child is
/// copied without need.
template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
auto SumTree<Traits, kChunkItems, kFanOut>::findChild(const Inner& inner, std::size_t begin,
                                                      std::size_t end) -> ChildPlace {
    ChildPlace place{0, 0};
    for (const Ref& child : inner.view()) {
        const std::size_t childEnd = place.start + child->summary.length;
        if (begin < childEnd || (begin == childEnd && begin == end)) {
            break;
        }
        place = {place.index + 1, childEnd};
    }
    return place;
}

/// Moves the children out into a row, with `behindChild` behind one of them.
template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
auto SumTree<Traits, kChunkItems, kFanOut>::spread(Inner& inner, std::size_t child,
                                                   Row& behindChild) -> Row {
    Row row;
    row.reserve(inner.count + behindChild.size());
    const auto begin = std::make_move_iterator(inner.children.begin());
    const auto border = begin + static_cast<std::ptrdiff_t>(child + 1);
    row.insert(row.end(), begin, border);
    row.insert(row.end(), std::make_move_iterator(behindChild.begin()),
               std::make_move_iterator(behindChild.end()));
    row.insert(row.end(), border, begin + inner.count);
    return row;
}

/// Moves the nodes that are left to the front, joins the neighbours that fit together, and returns
/// how many there are now.
template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
std::size_t SumTree<Traits, kChunkItems, kFanOut>::tidy(std::span<Ref> nodes) {
    std::size_t kept = 0;
    for (Ref& place : nodes) {
        if (!place) {
            continue;
        }
        Ref node = std::move(place);
        if (kept > 0 && fitTogether(*nodes[kept - 1], *node)) {
            absorb(nodes[kept - 1], *node);
        } else {
            nodes[kept++] = std::move(node);
        }
    }
    return kept;
}

/// Appends what is in `right` to `left`, which has room for it.
template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
void SumTree<Traits, kChunkItems, kFanOut>::absorb(Ref& left, const Node& right) {
    Node& node = left.own();
    if (node.isLeaf()) {
        node.leaf().append(right.leaf().view());
        node.summary += right.summary;
        return;
    }
    Inner& inner = node.inner();
    std::copy_n(right.inner().children.begin(), right.count, inner.children.begin() + node.count);
    const std::size_t count = std::size_t{node.count} + right.count;
    setChildren(inner, tidy({inner.children.data(), count}));
}

/// Takes the first `count` places as the children.
template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
void SumTree<Traits, kChunkItems, kFanOut>::setChildren(Inner& inner, std::size_t count) {
    inner.count = static_cast<std::uint16_t>(count);
    inner.refresh();
}

template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
void SumTree<Traits, kChunkItems, kFanOut>::moveRow(Row row, Ref& first, Row& more) {
    first = std::move(row.front());
    more.assign(std::make_move_iterator(row.begin() + 1), std::make_move_iterator(row.end()));
}

// --- Checking -----------------------------------------------------------------------------------

template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
void SumTree<Traits, kChunkItems, kFanOut>::checkInvariants() const {
    if (root_) {
        checkInvariant(root_->isLeaf() || root_->count > 1, "the root has no single child");
        checkNode(*root_);
    }
}

template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
void SumTree<Traits, kChunkItems, kFanOut>::checkNode(const Node& node) {
    checkInvariant(node.owners > 0, "a node has an owner");
    checkInvariant(node.count > 0 && node.count <= capacity(node),
                   "a node is neither empty nor overfull");
    if (node.isLeaf()) {
        checkInvariant(node.summary == Traits::summarize(node.leaf().view()), "the sums of a leaf");
        return;
    }
    Summary sum{};
    const Node* previous = nullptr;
    for (const Ref& child : node.inner().view()) {
        checkInvariant(child->height + 1 == node.height, "the heights differ by one");
        checkInvariant(!previous || !fitTogether(*previous, *child), "neighbours are joined");
        checkNode(*child);
        sum += child->summary;
        previous = &*child;
    }
    checkInvariant(node.summary == sum, "the sums of a branch");
    for (std::size_t place = node.count; place < kFanOut; ++place) {
        checkInvariant(!node.inner().children[place], "an unused place holds nothing");
    }
}

}  // namespace brindlex
