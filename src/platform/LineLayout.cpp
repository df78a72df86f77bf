#include "platform/LineLayout.h"

#include <atomic>

namespace brindlex {

std::uint64_t LineLayout::nextSerial() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

std::size_t LineLayout::rowOf(std::size_t column) const {
    std::size_t low = 0;
    std::size_t high = rowCount();
    while (high - low > 1) {
        const std::size_t middle = (low + high) / 2;
        (row(middle).begin <= column ? low : high) = middle;
    }
    return low;
}

std::size_t LineLayout::rowAt(qreal y) const {
    std::size_t low = 0;
    std::size_t high = rowCount();
    while (high - low > 1) {
        const std::size_t middle = (low + high) / 2;
        (row(middle).top <= y ? low : high) = middle;
    }
    return low;
}

qreal LineLayout::height() const {
    const Row last = row(rowCount() - 1);
    return last.top + last.height;
}

}  // namespace brindlex
