#include "platform/text/TextSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <string>

#include "platform/text/RichTextBox.h"
#include "text/Random.h"

namespace brindlex {
namespace {

struct FindCase {
    const char* text;
    const char* wanted;
    std::optional<Long> start;
    std::optional<Long> end;
    Long options;
    Long expected;
};

class Find : public testing::TestWithParam<FindCase> {};

TEST_P(Find, SelectsTheMatchOrLeavesTheSelection) {
    const FindCase& row = GetParam();
    RichTextBox box;
    box.SetText(row.text);
    box.select(Offset(2), Offset(2));
    EXPECT_EQ(box.Find(row.wanted, row.start, row.end, row.options), row.expected);
    const bool selects = row.expected >= 0 && (row.options & FindNoHighlight) == 0;
    EXPECT_EQ(box.SelStart(), selects ? row.expected : 2);
    EXPECT_EQ(box.SelLength() > 0, selects);
}

constexpr std::nullopt_t kUnset = std::nullopt;

INSTANTIATE_TEST_SUITE_P(
    Rows, Find,
    testing::Values(FindCase{"aaaa", "aa", 0, 4, 0, 0}, FindCase{"aaaa", "aa", 2, 4, 0, 2},
                    FindCase{"aaaa", "aa", 3, 4, 0, -1},                 // wholly within the bounds
                    FindCase{"aaaa", "aa", 4, 1, 0, 2},                  // backward
                    FindCase{"aaaa", "aa", 2, 0, 0, 0},                  //
                    FindCase{"aaaa", "aa", 100, 3, 0, -1},               //
                    FindCase{"abcabc", "bc", kUnset, kUnset, 0, 4},      // from the caret
                    FindCase{"abcabc", "AB", kUnset, 0, 0, 0},           // backward from the caret
                    FindCase{"abcabc", "", 0, 6, 0, -1},                 //
                    FindCase{"Wait wait", "wait", 0, 9, 0, 0},           //
                    FindCase{"Wait wait", "wait", 0, 9, 4, 5},           //
                    FindCase{"\xC4pfel", "\xE4PFEL", 0, 5, 0, 0},        // letters of the code page
                    FindCase{"await wait_ wait", "wait", 0, 16, 2, 12},  //
                    FindCase{"wait", "wait", 0, 4, 2, 0},                //
                    FindCase{"wait1", "wait", 0, 4, 2, -1},  // a neighbour past the bound counts
                    FindCase{"aab aa", "aa", 0, 6, 2, 4},    //
                    FindCase{"one\r\ntwo", "e\nt", 0, 8, 0, 2},  // line breaks become CR LF
                    FindCase{"one two", "two", 0, 7, 8, 4},      // no highlight
                    FindCase{"ababac", "abac", 0, 6, 4, 2}));    // falls back within a match

TEST(Find, StaysWithinASelectionWithoutBounds) {
    RichTextBox box;
    box.SetText("abc abc");
    box.select(Offset(3), Offset(1));
    EXPECT_EQ(box.Find("abc", {}, {}, 0), -1);
    EXPECT_EQ(box.anchor(), Offset(3)) << "the selection as it was, with its direction";
    EXPECT_EQ(box.Find("abc", 1, {}, 0), 4);
}

/// The plain way to look.
std::optional<Range> naiveFind(const std::string& text, Range range, const std::string& wanted,
                               SearchRules rules) {
    const auto& table = CharacterTable::latin1();
    const auto shown = [&](std::string part) {
        return rules.matchCase ? part : table.toLower(part);
    };
    std::optional<Range> found;
    for (Offset at = range.begin(); at + wanted.size() <= range.end(); at = at + 1) {
        const Range match = Range::at(at, wanted.size());
        if (shown(text.substr(at.value(), wanted.size())) != shown(wanted)) continue;
        const std::size_t end = match.end().value();
        if (rules.wholeWord && at.value() > 0 && table.isWord(text[at.value() - 1])) continue;
        if (rules.wholeWord && end < text.size() && table.isWord(text[end])) continue;
        if (!found || rules.direction == Direction::Backward) found = match;
    }
    return found;
}

TEST(TextSearch, FindsAcrossThePiecesOfALongText) {
    for (const std::uint64_t seed : test::seeds(3)) {
        test::Random random(seed);
        const std::string text = random.text(4000, "aaAb_ .");
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

struct SetCase {
    const char* set;
    bool forward;
    bool negate;
    Long spanStart;
    Long spanLength;
    Long upTo;
};

class Sets : public testing::TestWithParam<SetCase> {};

TEST_P(Sets, BoundSpanAndUpTo) {
    const SetCase& row = GetParam();
    RichTextBox box;
    box.SetText("aab, bba");
    box.SetSelStart(3);
    box.Span(row.set, row.forward, row.negate);
    EXPECT_EQ(box.SelStart(), row.spanStart);
    EXPECT_EQ(box.SelLength(), row.spanLength);
    box.SetSelStart(3);
    box.UpTo(row.set, row.forward, row.negate);
    EXPECT_EQ(box.SelStart(), row.upTo);
    EXPECT_EQ(box.SelLength(), 0);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, Sets,
    testing::Values(SetCase{"ab", true, false, 3, 0, 5}, SetCase{"ab", true, true, 3, 2, 3},
                    SetCase{", ", true, false, 3, 2, 3}, SetCase{"ab, ", true, false, 3, 5, 3},
                    SetCase{"x", true, false, 3, 0, 3}, SetCase{"b", false, false, 2, 1, 3},
                    SetCase{"a", false, false, 3, 0, 2}, SetCase{"ab", false, false, 0, 3, 3},
                    SetCase{"b", false, true, 3, 0, 2}));

}  // namespace
}  // namespace brindlex
