#include "platform/text/RunList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <utility>
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

template <typename RunListType>
Formats formatsOf(const RunListType& list, std::size_t begin, std::size_t end) {
    Formats formats;
    list.visit(begin, end, [&](std::size_t from, std::size_t to, FormatId format) {
        EXPECT_EQ(from, begin + formats.size());
        formats.insert(formats.end(), to - from, format);
        return true;
    });
    return formats;
}

/// The run around a unit, found by looking at its neighbours.
template <typename RunListType>
typename RunListType::Place placeIn(const Formats& model, std::size_t unit) {
    std::size_t begin = unit;
    while (begin > 0 && model[begin - 1] == model[unit]) {
        --begin;
    }
    std::size_t end = unit + 1;
    while (end < model.size() && model[end] == model[unit]) {
        ++end;
    }
    return {begin, end, model[unit]};
}

std::vector<FormatRun> randomRuns(test::Random& random, std::size_t most) {
    std::vector<FormatRun> runs;
    for (std::size_t count = random.below(most + 1); count > 0; --count) {
        runs.push_back(
            {static_cast<std::uint32_t>(random.below(6)), static_cast<FormatId>(random.below(3))});
    }
    return runs;
}

std::string lineOf(std::size_t begin, std::size_t end, const std::vector<FormatRun>& runs) {
    std::ostringstream line;
    line << "list.replace(" << begin << ", " << end << ", std::vector<FormatRun>{";
    for (const FormatRun& run : runs) {
        line << '{' << run.length << ", " << run.format << "}, ";
    }
    line << "});";
    return line.str();
}

TYPED_TEST(RunListTest, BehavesAsAVectorAndKeepsItsCopies) {
    for (const std::uint64_t seed : test::seeds(12)) {
        test::Random random(seed);
        test::Journal journal("TypeParam list;\nstd::vector<TypeParam> copies;");
        TypeParam list;
        Formats model;
        std::vector<std::pair<TypeParam, Formats>> copies;
        for (int step = 0; step < 500; ++step) {
            const std::size_t begin = random.below(model.size() + 1);
            const std::size_t most = random.oneIn(15) ? model.size() - begin : 8;
            const std::size_t end = std::min(model.size(), begin + random.below(most + 1));
            auto runs = randomRuns(random, random.oneIn(20) ? 300 : random.oneIn(2) ? 1 : 5);
            journal.add(lineOf(begin, end, runs));
            if (random.oneIn(5)) {
                journal.add("copies.push_back(list);");
                copies.emplace_back(list, model);
            }
            if (runs.size() == 1) {
                list.replace(begin, end, runs.front().length, runs.front().format);
            } else {
                list.replace(begin, end, runs);
            }
            const auto from = model.begin() + static_cast<std::ptrdiff_t>(begin);
            auto place = model.erase(from, from + static_cast<std::ptrdiff_t>(end - begin));
            for (const FormatRun& run : runs) {
                place = model.insert(place, run.length, run.format) + run.length;
            }

            list.checkInvariants();
            const std::size_t partBegin = random.below(model.size() + 1);
            const std::size_t partEnd = random.between(partBegin, model.size());
            const Formats part(model.begin() + static_cast<std::ptrdiff_t>(partBegin),
                               model.begin() + static_cast<std::ptrdiff_t>(partEnd));
            ASSERT_EQ(list.length(), model.size()) << seed << '\n' << journal.text();
            ASSERT_EQ(formatsOf(list, 0, model.size()), model) << seed << '\n' << journal.text();
            ASSERT_EQ(formatsOf(list, partBegin, partEnd), part) << seed << '\n' << journal.text();
            if (partBegin < model.size()) {
                ASSERT_EQ(list.at(partBegin), placeIn<TypeParam>(model, partBegin))
                    << seed << '\n'
                    << journal.text();
            }
        }
        for (const auto& [copy, itsModel] : copies) {
            ASSERT_EQ(formatsOf(copy, 0, copy.length()), itsModel) << seed;
        }
    }
}

TYPED_TEST(RunListTest, AVisitEndsWhenItIsTold) {
    TypeParam list;
    std::vector<FormatRun> runs;
    for (FormatId format = 0; format < 100; ++format) {
        runs.push_back({2, format});
    }
    list.replace(0, 0, runs);
    std::size_t visited = 0;
    list.visit(1, 200, [&](std::size_t, std::size_t, FormatId) { return ++visited < 30; });
    EXPECT_EQ(visited, 30U);
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
