#include "platform/text/RichTextBox.h"

#include <gtest/gtest.h>

#include <functional>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/text/LineEnds.h"
#include "text/Random.h"

namespace brindlex {
namespace {

TEST(LineEnds, LongTextsOfAllMixesBecomePairs) {
    for (const std::uint64_t seed : test::seeds(4)) {
        test::Random random(seed);
        for (const char* alphabet : {"ab\n", "ab\r", "a\r\n", "\r", "abcdefgh\r\n"}) {
            const std::string text = random.text(random.below(20000), alphabet);
            const auto expected = std::regex_replace(text, std::regex("\r\n?|\n"), "\r\n");
            std::string storage;
            ASSERT_EQ(withCrLf(text, storage), expected) << "seed " << seed;
            ASSERT_EQ(withCrLf(expected, storage).data(), expected.data()) << "no copy";
        }
    }
}

TEST(CharacterTable, CaseAndWordsOfLatin1) {
    const CharacterTable& table = CharacterTable::latin1();
    EXPECT_EQ(table.byteOf(0x10041), -1) << "no A";
    EXPECT_EQ(table.toLower("AZaz[@`{09_ \xC0\xDE\xD7\xDF\xF7"),
              "azaz[@`{09_ \xE0\xFE\xD7\xDF\xF7");
    EXPECT_TRUE(table.equalIgnoringCase("Trigger \xC4", "tRIGGER \xE4"));
    EXPECT_FALSE(table.equalIgnoringCase("a", "ab"));
    EXPECT_FALSE(table.equalIgnoringCase("\xD7", "\xF7"));
    for (const char word : std::string("azAZ09_\xB5\xC0\xDF\xFF")) EXPECT_TRUE(table.isWord(word));
    for (const char other : std::string("@[`{/:\r\n\t -\x80\xA0\xD7\xF7") + '\0') {
        EXPECT_FALSE(table.isWord(other)) << other;
    }
}

TEST(RichTextBox, NegativeNumbersThrowAndLeaveTheBoxAsItWas) {
    RichTextBox box;
    box.SetText("abc");
    box.select(Offset(1), Offset(2));
    box.onChange = box.onSelChange = [] { ADD_FAILURE() << "an event"; };
    const std::vector<std::function<void()>> refused = {
        [&] { box.SetSelStart(-1); },      [&] { box.SetSelLength(-1); },
        [&] { box.SetMaxLength(-1); },     [&] { box.GetLineFromChar(-1); },
        [&] { box.Find("a", -1, {}, 0); }, [&] { box.Find("a", 0, -1, 0); },
        [&] { box.SetSelTabCount(-1); },   [&] { box.SetSelTabs(-1, 5); },
    };
    for (std::size_t i = 0; i < refused.size(); ++i)
        EXPECT_THROW(refused[i](), std::out_of_range) << "row " << i;
    EXPECT_EQ(box.selection(), Range(Offset(1), Offset(2)));
    EXPECT_EQ(box.MaxLength(), 0);
}

TEST(RichTextBox, LineQuestionsBeyondTheText) {
    RichTextBox box;
    EXPECT_EQ(box.GetLineIndex(1), -1);
    box.SetText("ab\r\n\r\ncd");
    EXPECT_EQ(box.GetLineIndex(3), -1);
    EXPECT_EQ(box.GetLineIndex(-2), -1);
    EXPECT_EQ(box.GetLineFromChar(1000), 2);
    EXPECT_EQ(box.lineContent(LineIndex(9)), Range(Offset(8), Offset(8)));
}

TEST(RichTextBox, TabStopsAreCountedAndRise) {
    RichTextBox box;
    box.SetSelTabCount(3);
    EXPECT_EQ(box.SelTabs(2), 2160);
    box.SetSelTabs(0, 2000);
    EXPECT_EQ(box.SelTabs(0), 1440);
    EXPECT_EQ(box.SelTabs(1), 2000);
    box.SetSelTabs(3, 5000);
    EXPECT_EQ(box.SelTabs(3), 0);
    box.SetSelTabCount(1000000000);
    EXPECT_EQ(box.SelTabCount(), RichTextBox::kMaxTabStops);
}

TEST(RichTextBox, RichTextComesBackAsItWent) {
    RichTextBox box;
    box.SetText("one\r\ntwo\r\n\r\nthree");
    box.colorRuns(Offset(1), std::vector<ColorRun>{{3, 0xFF}, {7, 0x8000}});
    box.select(Offset(5), Offset(10));
    box.SetSelIndent(300);
    box.SetSelBold(true);
    RichTextBox other;
    EXPECT_TRUE(other.SetTextRTF(box.TextRTF()));
    EXPECT_EQ(other.Text(), box.Text());
    EXPECT_EQ(other.TextRTF(), box.TextRTF());
    EXPECT_EQ(other.SelStart(), 0);
    EXPECT_EQ(other.paragraphAt(LineIndex(1)).indent, 300);
    EXPECT_EQ(other.paragraphAt(LineIndex(3)).indent, 0);

    other.onChange = other.onSelChange = [] { ADD_FAILURE() << "an event"; };
    EXPECT_FALSE(other.SetTextRTF("{\\rtf1 damaged"));
    other.onChange = other.onSelChange = nullptr;
    other.select(Offset(13), Offset(14));
    EXPECT_TRUE(other.SetSelRTF(box.SelRTF()));
    EXPECT_EQ(other.Text(), "one\r\ntwo\r\n\r\nttwo\r\nree");
    EXPECT_EQ(other.SelStart(), 18);
    EXPECT_TRUE(other.formatAt(Offset(13)).bold);
    EXPECT_EQ(other.paragraphAt(LineIndex(3)).indent, 0)
        << "t stands in front, the line is not new";
    EXPECT_TRUE(other.SetSelRTF("plain\n"));
    EXPECT_EQ(other.SelStart(), 25);
    other.checkInvariants();
}

}  // namespace
}  // namespace brindlex
