#include "text/Rope.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "text/LineEnds.h"
#include "text/Random.h"

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

TYPED_TEST(RopeTest, BehavesAsAStringAndKeepsItsCopies) {
    for (const std::uint64_t seed : test::seeds(12)) {
        test::Random random(seed);
        test::Journal journal(seed);
        TypeParam rope;
        std::string text;
        std::vector<std::pair<TypeParam, std::string>> copies;
        for (int step = 0; step < 500; ++step) {
            const std::size_t begin = random.below(text.size() + 1);
            const std::size_t most = random.oneIn(15) ? text.size() : random.below(7);
            const Range range = Range::at(Offset(begin), std::min(most, text.size() - begin));
            const std::string bytes =
                random.text(random.below(random.oneIn(20) ? 1500 : 6), "abc\r\n\n");
            journal.add("replace", range, bytes);
            if (random.oneIn(3)) copies.emplace_back(rope, text);
            rope.replace(range, bytes);
            text.replace(begin, range.length(), bytes);
            expectSame(rope, text, random.below(text.size() + 1));
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

TEST(LineEnds, LongTextsOfAllMixesBecomePairs) {
    for (const std::uint64_t seed : test::seeds(4)) {
        test::Random random(seed);
        for (const char* alphabet : {"ab\n", "ab\r", "a\r\n", "\r", "abcdefgh\r\n"}) {
            const std::string text = random.text(20'000 + random.below(40'000), alphabet);
            const auto expected = std::regex_replace(text, std::regex("\r\n?|\n"), "\r\n");
            std::string storage;
            ASSERT_EQ(withCrLf(text, storage), expected) << "seed " << seed;
            ASSERT_EQ(withCrLf(expected, storage).data(), expected.data()) << "no copy";
            ASSERT_TRUE(withCrLf(Rope(text)) == Rope(expected)) << "seed " << seed;
        }
    }
}

}  // namespace
}  // namespace brindlex
