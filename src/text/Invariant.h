#pragma once

#include <cstdio>
#include <cstdlib>

namespace brindlex {

/// Aborts with a message when something that the code itself guarantees does not hold. For
/// checkInvariants(), in every kind of build.
inline void checkInvariant(bool holds, const char* what) {
    if (holds) {
        return;
    }
    std::fprintf(stderr, "Broken invariant: %s\n", what);
    std::abort();
}

}  // namespace brindlex
