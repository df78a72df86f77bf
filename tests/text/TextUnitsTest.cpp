#include "text/TextUnits.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace brindlex {
namespace {

/// In each row '|' stands where moves by words stop.
TEST(TextUnits, StopsAtWordsAndNeverWithinALineBreak) {
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
            const TextUnits units(rope, CharacterTable::latin1());
            std::vector<Offset> forward = {Offset(0)};
            for (Offset at; at.value() < text.size();) forward.push_back(at = units.nextWord(at));
            EXPECT_EQ(forward, stops);
            std::vector<Offset> backward = {Offset(text.size())};
            for (Offset at(text.size()); at.value() > 0;)
                backward.insert(backward.begin(), at = units.previousWord(at));
            EXPECT_EQ(backward, stops);
            for (Offset at; at.value() < text.size(); at = units.next(at)) {
                const bool isBreak = text[at.value()] == '\r';
                ASSERT_EQ(units.next(at), at + (isBreak ? 2 : 1));
                ASSERT_EQ(units.previous(units.next(at)), at);
                if (!isBreak) continue;
                for (const Offset left :
                     {units.snapped(at + 1), units.previous(at + 1), units.lineEnd(at + 1)})
                    ASSERT_EQ(left, at) << "from its middle";
                ASSERT_EQ(units.next(at + 1), at + 2);
            }
        }
    }
}

}  // namespace
}  // namespace brindlex
