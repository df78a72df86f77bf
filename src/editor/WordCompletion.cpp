#include "editor/WordCompletion.h"

#include <algorithm>

namespace brindlex {
namespace {

bool endsWord(char byte) {
    return byte == ' ' || byte == '\t' || byte == '\n';
}

unsigned char value(char byte) {
    return static_cast<unsigned char>(byte);
}

/// Whether a set, as it stands between its brackets, is well formed and holds `byte`.
bool holds(std::string_view set, char byte) {
    const bool negated = set.size() > 1 && set.front() == '!';
    if (negated) set.remove_prefix(1);
    bool found = false;
    while (!set.empty()) {
        const bool isRange = set.size() > 2 && set[1] == '-';
        const char first = set[0];
        const char last = isRange ? set[2] : first;
        if (value(first) > value(last)) return false;
        found = found || (value(first) <= value(byte) && value(byte) <= value(last));
        set.remove_prefix(isRange ? 3 : 1);
    }
    return found != negated;
}

bool matches(char sign, char byte) {
    return sign == '?' || (sign == '#' ? byte >= '0' && byte <= '9' : sign == byte);
}

}  // namespace

std::string wordInFrontOf(const Rope& text, Offset caret) {
    std::string reversed;
    text.visitPiecesBackward({Offset(), caret}, [&reversed](std::string_view piece) {
        const std::size_t room = kLongestWord + 1 - reversed.size();
        piece.remove_prefix(piece.size() - std::min(piece.size(), room));
        const auto end = std::find_if(piece.rbegin(), piece.rend(), endsWord);
        reversed.append(piece.rbegin(), end);
        return end == piece.rend() && reversed.size() <= kLongestWord;
    });
    return {reversed.rbegin(), reversed.rend()};
}

bool beginsWith(std::string_view entry, std::string_view word) {
    if (word.size() > kLongestWord || word.find('*') != word.npos) return false;
    while (!word.empty()) {
        if (word.front() != '[') {
            if (entry.empty() || !matches(word.front(), entry.front())) return false;
            word.remove_prefix(1);
        } else {
            const std::size_t end = word.find(']');
            if (end == word.npos) return false;
            const std::string_view set = word.substr(1, end - 1);
            word.remove_prefix(end + 1);
            if (set.empty()) continue;
            if (entry.empty() || !holds(set, entry.front())) return false;
        }
        entry.remove_prefix(1);
    }
    return true;
}

}  // namespace brindlex
