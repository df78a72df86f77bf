#include <gtest/gtest.h>

#include "text/Random.h"

int main(int argc, char** argv) {
    ::testing::InitGoogleTest(&argc, argv);
    brindlex::test::Journal::printOnAbort();
    return RUN_ALL_TESTS();
}
