#pragma once

#include <cstddef>

namespace brindlex::test {

/// The bytes that are allocated with `new` at this moment and that have been since the start.
struct AllocationCount {
    std::size_t live = 0;
    std::size_t ever = 0;
};
AllocationCount allocationCount();

}  // namespace brindlex::test
