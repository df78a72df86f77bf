#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

#include "text/Units.h"

namespace brindlex {

// The toolkit counts pixels, characters and lines in int; what is too large for it is cut.

inline int toInt(std::size_t value) {
    return static_cast<int>(std::min<std::size_t>(value, std::numeric_limits<int>::max()));
}

inline int toInt(Offset offset) {
    return toInt(offset.value());
}

/// Rounds down.
inline int toInt(double value) {
    using Int = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<double>(std::floor(value), Int::min(), Int::max()));
}

}  // namespace brindlex
