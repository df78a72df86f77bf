#include "text/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

// In front of each block, and as large as the alignment that `new` promises.
constexpr std::size_t kHeader = alignof(std::max_align_t);

brindlex::test::AllocationCount count;

}  // namespace

brindlex::test::AllocationCount brindlex::test::allocationCount() {
    return count;
}

void* operator new(std::size_t size) {
    void* const block = std::malloc(size + kHeader);
    if (!block) throw std::bad_alloc();
    *static_cast<std::size_t*>(block) = size;
    count.live += size;
    count.ever += size;
    return static_cast<char*>(block) + kHeader;
}

void operator delete(void* memory) noexcept {
    if (!memory) return;
    void* const block = static_cast<char*>(memory) - kHeader;
    count.live -= *static_cast<std::size_t*>(block);
    std::free(block);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
