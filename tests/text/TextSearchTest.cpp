#include "platform/text/TextSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

#include "text/Random.h"

namespace brindlex {
namespace {

/// The plain way to look.
std::optional<Range> naiveFind(const std::string& text, Range range, const std::string& wanted,
                               SearchRules rules) {
    const auto& table = CharacterTable::latin1();
    const auto shown = [&](const std::string& part) {
        return rules.matchCase ? part : table.toLower(part);
    };
    const auto isWord = [&](std::size_t at) { return at < text.size() && table.isWord(text[at]); };
    std::optional<Range> found;
    for (Offset at = range.begin(); at + wanted.size() <= range.end(); at = at + 1) {
        const Range match = Range::at(at, wanted.size());
        if (shown(text.substr(at.value(), wanted.size())) != shown(wanted)) continue;
        if (rules.wholeWord && (isWord(at.value() - 1) || isWord(match.end().value()))) continue;
        if (!found || rules.direction == Direction::Backward) found = match;
    }
    return found;
}

TEST(TextSearch, FindsAcrossThePiecesOfALongText) {
    for (const std::uint64_t seed : test::seeds(3)) {
        test::Random random(seed);
        const std::string text = random.text(4000, "aaAb_ .\xE4\xC4");
        Rope rope;
        while (rope.size() < text.size()) {
            const std::size_t part = std::min(random.between(1, 300), text.size() - rope.size());
            const Offset end(rope.size());
            rope.replace({end, end}, std::string_view(text).substr(rope.size(), part));
        }
        for (int round = 0; round < 300; ++round) {
            const Offset begin(random.below(text.size()));
            const Range range{begin, Offset(random.between(begin.value(), text.size()))};
            const std::size_t length = random.between(1, random.oneIn(4) ? 700 : 5);
            const std::string wanted = text.substr(random.below(text.size() - length), length);
            const SearchRules rules{random.oneIn(2), random.oneIn(2),
                                    random.oneIn(2) ? Direction::Forward : Direction::Backward};
            ASSERT_EQ(findText(rope, CharacterTable::latin1(), range, wanted, rules),
                      naiveFind(text, range, wanted, rules))
                << "seed " << seed << " range " << range << " wanted " << wanted;
        }
    }
}

}  // namespace
}  // namespace brindlex
