#include "platform/text/RunList.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace brindlex {
namespace {

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
