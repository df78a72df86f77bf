#include "text/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

// In front of each block, and as large as the alignment that `new` promises.
constexpr std::size_t kHeader = alignof(std::max_align_t);

std::size_t live = 0;
std::size_t ever = 0;

}  // namespace

namespace brindlex::test {

AllocationCount allocationCount() {
    return {live, ever};
}

}  // namespace brindlex::test

void* operator new(std::size_t size) {
    void* const block = std::malloc(size + kHeader);
    if (!block) {
        throw std::bad_alloc();
    }
    *static_cast<std::size_t*>(block) = size;
    live += size;
    ever += size;
    return static_cast<char*>(block) + kHeader;
}

void operator delete(void* memory) noexcept {
    if (!memory) {
        return;
    }
    void* const block = static_cast<char*>(memory) - kHeader;
    live -= *static_cast<std::size_t*>(block);
    std::free(block);
}

void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
