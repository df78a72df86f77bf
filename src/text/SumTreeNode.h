#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>
#include <utility>

namespace brindlex {

/// The nodes of a SumTree: leaves that hold items, and inner nodes that hold nodes of one height
/// less. A node counts its owners and may have many; whoever wants to change a node needs it alone.
template <typename Traits, std::size_t kChunkItems, std::size_t kFanOut>
struct SumTreeNodes {
    using Item = typename Traits::Item;
    using Summary = typename Traits::Summary;
    using Items = std::span<const Item>;

    static_assert(std::is_trivially_copyable_v<Item>);
    static_assert(kChunkItems >= 4 && kChunkItems <= UINT16_MAX);
    static_assert(kFanOut >= 4 && kFanOut <= UINT16_MAX);

    struct Leaf;
    struct Inner;

    struct Node {
        explicit Node(std::uint16_t nodeHeight) : height(nodeHeight) {}
        bool isLeaf() const { return height == 0; }
        const Leaf& leaf() const { return static_cast<const Leaf&>(*this); }
        const Inner& inner() const { return static_cast<const Inner&>(*this); }
        Leaf& leaf() { return static_cast<Leaf&>(*this); }
        Inner& inner() { return static_cast<Inner&>(*this); }

        std::uint32_t owners = 0;  // not atomic: a tree and its copies stay on one thread
        std::uint16_t height;      // 0: a leaf
        std::uint16_t count = 0;   // of items or of children
        Summary summary{};         // of everything below
    };

    /// One share in a node, or none. The last one to go deletes the node; the depth of that is the
    /// height of the tree.
    class Ref {
      public:
        Ref() = default;
        explicit Ref(Node* node) : node_(node) { ++node_->owners; }
        Ref(const Ref& other) : node_(other.node_) {
            if (node_) {
                ++node_->owners;
            }
        }
        Ref(Ref&& other) noexcept : node_(std::exchange(other.node_, nullptr)) {}
        Ref& operator=(Ref other) noexcept {
            std::swap(node_, other.node_);
            return *this;
        }
        ~Ref() {
            if (node_ && --node_->owners == 0) {
                destroy(node_);
            }
        }

        explicit operator bool() const { return node_ != nullptr; }
        const Node* operator->() const { return node_; }
        const Node& operator*() const { return *node_; }
        bool operator==(const Ref&) const = default;

        /// The node, to be changed: replaced by a copy of itself if others own it too.
        Node& own() {
            if (node_->owners > 1) {
                *this = Ref(copyOf(*node_));
            }
            return *node_;
        }

      private:
        static Node* copyOf(const Node& node) {
            return node.isLeaf() ? static_cast<Node*>(new Leaf(node.leaf()))
                                 : static_cast<Node*>(new Inner(node.inner()));
        }
        static void destroy(Node* node) {
            if (node->isLeaf()) {
                delete &node->leaf();
            } else {
                delete &node->inner();
            }
        }

        Node* node_ = nullptr;
    };

    struct Leaf : Node {
        // The array stays unset behind `count`: clearing it would cost more than filling it.
        Leaf() : Node(0) {}
        Leaf(const Leaf& other) : Node(0) {
            append(other.view());
            this->summary = other.summary;
        }
        Leaf& operator=(const Leaf&) = delete;

        Items view() const { return {items.data(), this->count}; }
        void refresh() { this->summary = Traits::summarize(view()); }

        void append(Items more) {
            std::copy(more.begin(), more.end(), items.begin() + this->count);
            this->count = static_cast<std::uint16_t>(this->count + more.size());
        }

        /// Puts `more` in the place of the items [first, last). The result fits.
        void replace(std::size_t first, std::size_t last, Items more) {
            Item* const begin = items.data();
            const std::size_t tail = this->count - last;
            moveItems(begin + last, tail, begin + first + more.size());
            std::copy(more.begin(), more.end(), begin + first);
            this->count = static_cast<std::uint16_t>(first + more.size() + tail);
            refresh();
        }

        std::array<Item, kChunkItems> items;

      private:
        static void moveItems(const Item* from, std::size_t count, Item* to) {
            if (to < from) {
                std::copy(from, from + count, to);
            } else {
                std::copy_backward(from, from + count, to + count);
            }
        }
    };

    struct Inner : Node {
        explicit Inner(std::uint16_t nodeHeight) : Node(nodeHeight) {}
        Inner(const Inner& other) : Node(other.height) {
            std::copy_n(other.children.begin(), other.count, children.begin());
            this->count = other.count;
            this->summary = other.summary;
        }
        Inner& operator=(const Inner&) = delete;

        std::span<const Ref> view() const { return {children.data(), this->count}; }
        void refresh() {
            this->summary = {};
            for (const Ref& child : view()) {
                this->summary += child->summary;
            }
        }

        std::array<Ref, kFanOut> children;
    };
};

}  // namespace brindlex
