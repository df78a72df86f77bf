#include "shell/TextDifference.h"

#include <algorithm>

namespace brindlex {

std::string TextDifference(const Rope& a, const Rope& b, Long position) {
    const Rope& longer = a.size() < b.size() ? b : a;
    const Rope& shorter = a.size() < b.size() ? a : b;
    const auto within = [&longer](Long offset) {
        return Offset(static_cast<std::size_t>(
            std::clamp(offset, Long{0}, static_cast<Long>(longer.size()))));
    };
    const auto count = static_cast<Long>(longer.size() - shorter.size());
    return longer.bytes({within(position - 1 - count), within(position - 1)});
}

}  // namespace brindlex
