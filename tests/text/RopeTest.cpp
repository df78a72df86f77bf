#include "text/Rope.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <new>
#include <string>
#include <utility>
#include <vector>

#include "text/Random.h"

namespace {

/// The bytes that are allocated with `new` at this moment.
std::size_t allocatedNow = 0;

// In front of each block stands its size, in as much room as the alignment that `new` promises.
constexpr std::size_t kHeader = alignof(std::max_align_t);

}  // namespace

void* operator new(std::size_t size) {
    void* const block = std::malloc(size + kHeader);
    if (!block) throw std::bad_alloc();
    *static_cast<std::size_t*>(block) = size;
    allocatedNow += size;
    return static_cast<char*>(block) + kHeader;
}

void operator delete(void* memory) noexcept {
    if (!memory) return;
    void* const block = static_cast<char*>(memory) - kHeader;
    allocatedNow -= *static_cast<std::size_t*>(block);
    std::free(block);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace brindlex {
namespace {

template <typename RopeType>
class RopeTest : public ::testing::Test {};

using RopeTypes = ::testing::Types<BasicRope<4, 4>, BasicRope<5, 7>, BasicRope<16, 4>, Rope>;
TYPED_TEST_SUITE(RopeTest, RopeTypes);

/// Everything that the rope says of its text, asked at one place and as a whole.
template <typename RopeType>
void expectSame(const RopeType& rope, const std::string& text, std::size_t place) {
    rope.checkInvariants();
    ASSERT_EQ(rope.bytes(), text);
    ASSERT_EQ(rope.size(), text.size());
    const auto at = text.begin() + static_cast<std::ptrdiff_t>(place);
    const auto line = std::count(text.begin(), at, '\n');
    ASSERT_EQ(rope.lineOf(Offset(place)), LineIndex(static_cast<std::size_t>(line)));
    const std::size_t start = place == 0 ? 0 : text.rfind('\n', place - 1) + 1;
    ASSERT_EQ(rope.lineStart(rope.lineOf(Offset(place))), Offset(start));
    ASSERT_EQ(rope.breakCount(), std::count(text.begin(), text.end(), '\n'));
    if (place == text.size()) return;
    ASSERT_EQ(rope.at(Offset(place)), text[place]);
}

/// Edits at one place for a while, as a user does, then elsewhere.
class Edits {
  public:
    explicit Edits(std::uint64_t seed) : random(seed) {}

    Range range(std::size_t size) {
        if (random.oneIn(4)) caret_ = random.below(size + 1);
        caret_ = std::min(caret_, size);
        const std::size_t most = random.oneIn(15) ? size : random.oneIn(2) ? 0 : 6;
        return Range::at(Offset(caret_), std::min(random.below(most + 1), size - caret_));
    }
    std::string text() {
        const std::size_t most = random.oneIn(20) ? 1500 : random.oneIn(3) ? 0 : 5;
        std::string result = random.text(random.below(most + 1), "abc\r\n\n");
        caret_ += result.size();
        return result;
    }

    test::Random random;

  private:
    std::size_t caret_ = 0;
};

TYPED_TEST(RopeTest, BehavesAsAStringAndKeepsItsCopies) {
    for (const std::uint64_t seed : test::seeds(12)) {
        Edits edits(seed);
        test::Journal journal(seed);
        TypeParam rope;
        std::string text;
        std::vector<std::pair<TypeParam, std::string>> copies;
        for (int step = 0; step < 500; ++step) {
            const Range range = edits.range(text.size());
            const std::string bytes = edits.text();
            journal.add("replace", range, bytes);
            if (edits.random.oneIn(3)) copies.emplace_back(rope, text);
            rope.replace(range, bytes);
            text.replace(range.begin().value(), range.length(), bytes);
            expectSame(rope, text, edits.random.below(text.size() + 1));
            if (::testing::Test::HasFatalFailure()) FAIL() << journal.text();
        }
        const TypeParam builtAtOnce(text);
        expectSame(builtAtOnce, text, text.size() / 2);
        ASSERT_TRUE(builtAtOnce == rope) << journal.text();
        for (const auto& [copy, itsText] : copies) {
            expectSame(copy, itsText, itsText.size() / 2);
            ASSERT_EQ(copy == rope, itsText == text) << journal.text();
        }
    }
}

TEST(RopeMemory, AKeptCopyCostsTheChangedPathAlone) {
    for (const std::size_t size : {0UL, 100'000UL, 10'000'000UL}) {
        Rope rope(test::Random(size).text(size, "some letters\n"));
        std::vector<Rope> kept;
        constexpr std::size_t kSteps = 2000;
        kept.reserve(kSteps);
        const std::size_t before = allocatedNow;
        std::size_t most = 0;
        for (std::size_t step = 0; step < kSteps; ++step) {
            kept.push_back(rope);
            const std::size_t live = allocatedNow;
            rope.replace(Range::at(Offset(size / 2 + step), 0), "x");
            most = std::max(most, allocatedNow - live);
        }
        EXPECT_LE((allocatedNow - before) / kSteps, 1200U) << size;
        // Now and then a chunk is full and becomes two.
        EXPECT_LE(most, 2048U) << size;
    }
}

}  // namespace
}  // namespace brindlex
