#include "platform/text/LineEnds.h"

#include <algorithm>

namespace brindlex {

namespace {

bool hasOnlyPairs(std::string_view text) {
    constexpr std::size_t kBlock = 4096;
    if (text.empty()) return true;
    if (text.front() == '\n' || text.back() == '\r') return false;
    for (std::size_t begin = 1; begin < text.size(); begin += kBlock) {
        const std::size_t end = std::min(begin + kBlock, text.size());
        // No exit inside a block: this way the compiler compares many bytes at once.
        unsigned char broken = 0;
        for (std::size_t i = begin; i < end; ++i)
            broken |= static_cast<unsigned char>((text[i - 1] == '\r') != (text[i] == '\n'));
        if (broken != 0) return false;
    }
    return true;
}

bool isPair(std::string_view text, std::size_t at) {
    return text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
}

std::string pairedCopy(std::string_view text) {
    std::string out(
        text.size() + static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n') +
                                               std::count(text.begin(), text.end(), '\r')),
        '\0');
    char* end = out.data();
    std::size_t begin = 0;
    // Kept over the rounds: many CRs in front of a far LF must not search for it each time.
    std::size_t lf = text.find('\n');
    for (;;) {
        const std::size_t at = std::min(text.substr(0, lf).find('\r', begin), lf);
        if (at == std::string_view::npos) break;
        end = std::copy(text.data() + begin, text.data() + at, end);
        *end++ = '\r';
        *end++ = '\n';
        begin = at + (isPair(text, at) ? 2 : 1);
        if (lf < begin) lf = text.find('\n', begin);
    }
    end = std::copy(text.data() + begin, text.data() + text.size(), end);
    out.resize(static_cast<std::size_t>(end - out.data()));
    return out;
}

bool splitsPair(const Rope& rope, Offset offset) {
    return offset.value() < rope.size() && rope.at(offset) == '\n';
}

}  // namespace

std::string_view withCrLf(std::string_view text, std::string& storage) {
    if (hasOnlyPairs(text)) return text;
    storage = pairedCopy(text);
    return storage;
}

std::string_view cutToRoom(std::string_view text, std::size_t room) {
    if (text.size() <= room) return text;
    return text.substr(0, text[room] == '\n' ? room - 1 : room);
}

Offset inFrontOfPair(const Rope& rope, Offset offset) {
    return splitsPair(rope, offset) ? offset - 1 : offset;
}

Range wholePairs(const Rope& rope, Range range) {
    const Offset begin = inFrontOfPair(rope, range.begin());
    if (range.empty()) return {begin, begin};
    return {begin, splitsPair(rope, range.end()) ? range.end() + 1 : range.end()};
}

}  // namespace brindlex
