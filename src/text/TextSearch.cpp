#include "text/TextSearch.h"

#include <algorithm>
#include <string>
#include <vector>

namespace brindlex {

namespace {

using FoldTable = std::array<char, 256>;

FoldTable foldTable(const CharacterTable& characters, bool matchCase) {
    FoldTable table;
    for (int byte = 0; byte < 256; ++byte) {
        const char character = static_cast<char>(byte);
        table[static_cast<std::size_t>(byte)] = matchCase ? character : characters.lower(character);
    }
    return table;
}

/// Looks for a pattern in bytes that come one by one (Knuth, Morris and Pratt): matches across the
/// pieces of a rope need no window, and no text makes it slower than linear.
class Matcher {
  public:
    /// `pattern` stands in the order in which the bytes will come.
    Matcher(std::string pattern, const FoldTable& fold)
        : fold_(fold), pattern_(std::move(pattern)) {
        for (char& byte : pattern_) byte = folded(byte);
        fallBack_.push_back(0);
        for (std::size_t i = 1; i < pattern_.size(); ++i)
            fallBack_.push_back(extended(fallBack_.back(), pattern_[i]));
    }

    /// Takes bytes up to the one that completes a match. `begin` is not `end`.
    template <typename Iterator>
    Iterator take(Iterator begin, Iterator end) {
        for (Iterator at = begin; at != end; ++at) {
            if (matched_ == 0) {
                at = std::find_if(at, end,
                                  [&](char byte) { return folded(byte) == pattern_.front(); });
                if (at == end) break;
            }
            matched_ = extended(matched_, folded(*at));
            if (isComplete()) return ++at;
        }
        return end;
    }
    bool isComplete() const { return matched_ == pattern_.size(); }
    /// Goes on behind a match that does not count; the next one may overlap it.
    void passOver() { matched_ = fallBack_[matched_ - 1]; }

  private:
    char folded(char byte) const { return fold_[static_cast<unsigned char>(byte)]; }
    /// How much of the pattern is matched when `byte` follows `matched` matched ones.
    std::size_t extended(std::size_t matched, char byte) const {
        while (matched > 0 && pattern_[matched] != byte) matched = fallBack_[matched - 1];
        return pattern_[matched] == byte ? matched + 1 : 0;
    }

    FoldTable fold_;
    std::string pattern_;
    std::vector<std::size_t> fallBack_;  // by matched length - 1: the longest border of that part
    std::size_t matched_ = 0;
};

bool standsAlone(const Rope& rope, const CharacterTable& characters, Range match) {
    const auto isWordAt = [&](Offset offset) { return characters.isWord(rope.at(offset)); };
    if (match.begin().value() > 0 && isWordAt(match.begin() - 1)) return false;
    return match.end().value() >= rope.size() || !isWordAt(match.end());
}

/// Calls `visit(begin, end)` with iterators over the pieces of `range` in the order of `direction`.
template <typename Visit>
void visitBytes(const Rope& rope, Range range, Direction direction, Visit&& visit) {
    if (direction == Direction::Forward)
        rope.visitPieces(range,
                         [&](std::string_view piece) { return visit(piece.begin(), piece.end()); });
    else
        rope.visitPiecesBackward(
            range, [&](std::string_view piece) { return visit(piece.rbegin(), piece.rend()); });
}

/// The offset that lies `count` bytes from the end of `range` where the search begins.
Offset reached(Range range, Direction direction, std::size_t count) {
    return direction == Direction::Forward ? range.begin() + count : range.end() - count;
}

}  // namespace

std::optional<Range> findText(const Rope& rope, const CharacterTable& characters, Range range,
                              std::string_view pattern, SearchRules rules) {
    if (pattern.empty() || pattern.size() > range.length()) return std::nullopt;
    const bool forward = rules.direction == Direction::Forward;
    Matcher matcher(forward ? std::string(pattern) : std::string(pattern.rbegin(), pattern.rend()),
                    foldTable(characters, rules.matchCase));
    std::optional<Range> found;
    std::size_t taken = 0;
    visitBytes(rope, range, rules.direction, [&](auto at, auto end) {
        while (at != end) {
            const auto next = matcher.take(at, end);
            taken += static_cast<std::size_t>(next - at);
            at = next;
            if (!matcher.isComplete()) continue;
            const Offset edge = reached(range, rules.direction, taken);
            const Range match = Range::at(forward ? edge - pattern.size() : edge, pattern.size());
            if (!rules.wholeWord || standsAlone(rope, characters, match)) {
                found = match;
                return false;
            }
            matcher.passOver();
        }
        return true;
    });
    return found;
}

CharacterSet::CharacterSet(std::string_view members, bool negate) {
    contains_.fill(negate);
    for (const char byte : members) contains_[static_cast<unsigned char>(byte)] = !negate;
}

std::optional<Offset> findCharacter(const Rope& rope, Offset from, const CharacterSet& set,
                                    Direction direction) {
    const Range range =
        direction == Direction::Forward ? Range{from, Offset(rope.size())} : Range{Offset(0), from};
    std::optional<Offset> found;
    std::size_t passed = 0;
    visitBytes(rope, range, direction, [&](auto begin, auto end) {
        const auto hit = std::find_if(begin, end, [&](char byte) { return set.contains(byte); });
        passed += static_cast<std::size_t>(hit - begin);
        if (hit != end) found = reached(range, direction, passed);
        return !found;
    });
    return found;
}

}  // namespace brindlex
