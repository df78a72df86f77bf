#include "view/input/CaretMotion.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindlex {
namespace {

/// In each row '|' stands where moves by words stop.
TEST(CaretMotion, StopsAtWordsAndNeverWithinALineBreak) {
    for (const std::string row : {"|wait  |500 |{|\r\n|next_Z9\xE9 |(); \t|\r\n|\r\n|",
                                  "|\t |a|.|b\t|\r\n|  |_|!|", "|  |\r\n|a|", "|"}) {
        // wide ones cross the pieces that the rope is made of
        for (const std::size_t width : {1U, 700U}) {
            SCOPED_TRACE(testing::PrintToString(row) + " times " + std::to_string(width));
            std::string text;
            std::vector<Offset> stops;
            for (const char c : row) {
                if (c == '|')
                    stops.emplace_back(text.size());
                else
                    text.append(c == '\r' || c == '\n' ? 1 : width, c);
            }
            const Rope rope(text);
            const CaretMotion motion(rope, CharacterTable::latin1());
            std::vector<Offset> forward = {Offset(0)};
            for (Offset at; at.value() < text.size();) forward.push_back(at = motion.nextWord(at));
            EXPECT_EQ(forward, stops);
            std::vector<Offset> backward = {Offset(text.size())};
            for (Offset at(text.size()); at.value() > 0;)
                backward.insert(backward.begin(), at = motion.previousWord(at));
            EXPECT_EQ(backward, stops);
            for (Offset at; at.value() < text.size(); at = motion.next(at)) {
                const bool isBreak = text[at.value()] == '\r';
                ASSERT_EQ(motion.next(at), at + (isBreak ? 2 : 1));
                ASSERT_EQ(motion.previous(motion.next(at)), at);
                const Range word = motion.wordAt(at);
                if (isBreak) continue;
                ASSERT_TRUE(word.begin() <= at && at < word.end()) << at << word;
                ASSERT_EQ(motion.wordAt(word.begin()), word);
            }
        }
    }
}

TEST(CaretMotion, LeavesTheMiddleOfALineBreak) {
    const Rope rope("a\r\nb");
    const CaretMotion motion(rope, CharacterTable::latin1());
    const Offset middle(2);
    EXPECT_EQ(motion.snapped(middle), Offset(1));
    EXPECT_EQ(motion.next(middle), Offset(3));
    EXPECT_EQ(motion.previous(middle), Offset(1));
    EXPECT_EQ(motion.lineStart(middle), Offset(0));
    EXPECT_EQ(motion.lineEnd(middle), Offset(1));
    EXPECT_EQ(motion.snapped(Offset(99)), Offset(4));
}

}  // namespace
}  // namespace brindlex
