#include "platform/text/RunList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "text/Random.h"

namespace brindlex {
namespace {

using Formats = std::vector<FormatId>;  // of each unit

template <typename RunListType>
class RunListTest : public ::testing::Test {};

using RunListTypes =
    ::testing::Types<BasicRunList<4, 4>, BasicRunList<5, 7>, BasicRunList<16, 4>, RunList>;
TYPED_TEST_SUITE(RunListTest, RunListTypes);

/// The formats of [begin, end), or as far as `most` runs go.
template <typename RunListType>
Formats formatsOf(const RunListType& list, std::size_t begin, std::size_t end,
                  std::size_t most = SIZE_MAX) {
    Formats formats;
    std::size_t runs = 0;
    list.visit(begin, end, [&](std::size_t from, std::size_t to, FormatId format) {
        EXPECT_EQ(from, begin + formats.size());
        formats.insert(formats.end(), to - from, format);
        return ++runs < most;
    });
    EXPECT_LE(runs, most);
    EXPECT_TRUE(runs == most || formats.size() == end - begin);
    return formats;
}

/// The run around a unit, found by looking at its neighbours.
template <typename RunListType>
typename RunListType::Place placeIn(const Formats& model, std::size_t unit) {
    std::size_t begin = unit;
    while (begin > 0 && model[begin - 1] == model[unit]) --begin;
    std::size_t end = unit + 1;
    while (end < model.size() && model[end] == model[unit]) ++end;
    return {begin, end, model[unit]};
}

std::vector<FormatRun> randomRuns(test::Random& random) {
    const std::size_t most = random.oneIn(20) ? 300 : random.oneIn(2) ? 1 : 5;
    std::vector<FormatRun> runs(random.below(most + 1));
    for (FormatRun& run : runs) {
        run.length = static_cast<std::uint32_t>(random.below(6));
        run.format = static_cast<FormatId>(random.below(3));
    }
    return runs;
}

void replaceIn(Formats& model, std::size_t begin, std::size_t end,
               const std::vector<FormatRun>& runs) {
    const auto at = model.begin() + static_cast<std::ptrdiff_t>(begin);
    auto place = model.erase(at, at + static_cast<std::ptrdiff_t>(end - begin));
    for (const FormatRun& run : runs) {
        place = model.insert(place, run.length, run.format) + run.length;
    }
}

TYPED_TEST(RunListTest, BehavesAsAVector) {
    for (const std::uint64_t seed : test::seeds(12)) {
        test::Random random(seed);
        test::Journal journal(seed);
        TypeParam list;
        Formats model;
        for (int step = 0; step < 500; ++step) {
            const std::size_t begin = random.below(model.size() + 1);
            const std::size_t most = random.oneIn(15) ? model.size() - begin : 8;
            const std::size_t end = std::min(model.size(), begin + random.below(most + 1));
            const std::vector<FormatRun> runs = randomRuns(random);
            journal.add("replace", begin, end, runs);
            if (runs.size() == 1) {
                list.replace(begin, end, runs.front().length, runs.front().format);
            } else {
                list.replace(begin, end, runs);
            }
            replaceIn(model, begin, end, runs);

            list.checkInvariants();
            ASSERT_EQ(list.length(), model.size()) << journal.text();
            ASSERT_EQ(formatsOf(list, 0, model.size()), model) << journal.text();
            const std::size_t from = random.below(model.size() + 1);
            const std::size_t to = random.between(from, model.size());
            const Formats part = formatsOf(list, from, to, random.between(1, 40));
            ASSERT_TRUE(std::equal(part.begin(), part.end(),
                                   model.begin() + static_cast<std::ptrdiff_t>(from)))
                << journal.text();
            if (from == model.size()) continue;
            ASSERT_EQ(list.at(from), placeIn<TypeParam>(model, from)) << journal.text();
        }
    }
}

TEST(RunList, ARunMayBeLongerThanWhatOneHandsIn) {
    constexpr std::uint32_t kMost = UINT32_MAX;
    constexpr std::size_t kTotal = std::size_t{kMost} * 3 + 5;
    const std::vector<FormatRun> runs{{kMost, 7}, {kMost, 7}, {kMost, 7}};
    RunList list;
    list.replace(0, 0, runs);
    list.replace(10, 10, 5, 7);
    list.checkInvariants();
    EXPECT_EQ(list.at(kTotal / 2), (RunList::Place{0, kTotal, 7}));
    list.replace(kTotal / 2, kTotal / 2, 1, 8);
    EXPECT_EQ(list.at(kTotal), (RunList::Place{kTotal / 2 + 1, kTotal + 1, 7}));
}

}  // namespace
}  // namespace brindlex
