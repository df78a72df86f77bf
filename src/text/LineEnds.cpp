#include "text/LineEnds.h"

#include <algorithm>

namespace brindlex {

namespace {

/// Whether each LF behind the first byte follows a CR, and each CR before the last one has an LF.
bool hasOnlyPairsWithin(std::string_view text) {
    constexpr std::size_t kBlock = 4096;
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

bool hasOnlyPairs(std::string_view text) {
    return !text.starts_with('\n') && !text.ends_with('\r') && hasOnlyPairsWithin(text);
}

bool hasOnlyPairs(const Rope& rope) {
    bool paired = true;
    bool afterCr = false;
    rope.visitPieces(Range::at(Offset(0), rope.size()), [&](std::string_view piece) {
        paired = afterCr == piece.starts_with('\n') && hasOnlyPairsWithin(piece);
        afterCr = piece.ends_with('\r');
        return paired;
    });
    return paired && !afterCr;
}

bool isPair(std::string_view text, std::size_t at) {
    return text.substr(at, kLineBreak.size()) == kLineBreak;
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
        end = std::copy(kLineBreak.begin(), kLineBreak.end(), end);
        begin = at + (isPair(text, at) ? kLineBreak.size() : 1);
        if (lf < begin) lf = text.find('\n', begin);
    }
    end = std::copy(text.data() + begin, text.data() + text.size(), end);
    out.resize(static_cast<std::size_t>(end - out.data()));
    return out;
}

}  // namespace

std::string_view withCrLf(std::string_view text, std::string& storage) {
    if (hasOnlyPairs(text)) return text;
    storage = pairedCopy(text);
    return storage;
}

Rope withCrLf(const Rope& rope) {
    if (hasOnlyPairs(rope)) return rope;
    constexpr std::size_t kBatch = 16 * 1024;
    Rope result;
    std::string batch;
    std::string storage;
    const auto append = [&](std::size_t count) {
        const std::string_view paired = withCrLf(std::string_view(batch).substr(0, count), storage);
        result.replace(Range::at(Offset(result.size()), 0), paired);
        batch.erase(0, count);
    };
    rope.visitPieces(Range::at(Offset(0), rope.size()), [&](std::string_view piece) {
        batch += piece;
        // An LF that belongs to a CR at the end is yet to come.
        if (batch.size() >= kBatch) append(batch.size() - (batch.ends_with('\r') ? 1 : 0));
        return true;
    });
    append(batch.size());
    return result;
}

std::string_view cutToRoom(std::string_view text, std::size_t room) {
    if (text.size() <= room) return text;
    return text.substr(0, text[room] == '\n' ? room - 1 : room);
}

bool splitsBreak(const Rope& rope, Offset offset) {
    return offset.value() < rope.size() && rope.at(offset) == '\n';
}

Offset inFrontOfBreak(const Rope& rope, Offset offset) {
    return splitsBreak(rope, offset) ? offset - 1 : offset;
}

Range wholeBreaks(const Rope& rope, Range range) {
    const Offset begin = inFrontOfBreak(rope, range.begin());
    if (range.empty()) return {begin, begin};
    return {begin, splitsBreak(rope, range.end()) ? range.end() + 1 : range.end()};
}

}  // namespace brindlex
