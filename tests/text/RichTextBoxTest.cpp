#include "text/RichTextBox.h"

#include <gtest/gtest.h>

#include <functional>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

#include "text/LineEnds.h"
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
            ASSERT_TRUE(withCrLf(Rope(text)) == Rope(expected)) << "seed " << seed;
        }
    }
}

TEST(RichTextBox, NumbersBeyondTheTextAreCutAndNegativeOnesRefused) {
    RichTextBox box;
    box.SetText("abc");
    box.select(Offset(1), Offset(2));
    EXPECT_EQ(box.GetLineIndex(1), -1);
    EXPECT_EQ(box.GetLineIndex(-2), -1);
    EXPECT_EQ(box.GetLineFromChar(1000), 0);
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

TEST(RichTextBox, RichTextComesBackAsItWent) {
    RichTextBox box;
    box.SetText("one\r\ntwo\r\n\r\nthree");
    box.colorRuns(Offset(1), std::vector<ColorRun>{{3, 0xFF}, {7, 0x8000}});
    box.select(Offset(6), Offset(9));
    box.SetSelBold(true);
    RichTextBox other;
    EXPECT_TRUE(other.SetTextRTF(box.TextRTF()));
    EXPECT_EQ(other.Text(), box.Text());
    EXPECT_EQ(other.TextRTF(), box.TextRTF());
    EXPECT_EQ(other.SelStart(), 0);

    other.onChange = other.onSelChange = [] { ADD_FAILURE() << "an event"; };
    EXPECT_FALSE(other.SetTextRTF("{\\rtf1 damaged"));
    other.onChange = other.onSelChange = nullptr;
    other.SetMaxLength(20);
    other.select(Offset(13), Offset(14));
    EXPECT_TRUE(other.SetSelRTF(box.SelRTF()));
    EXPECT_EQ(other.Text(), "one\r\ntwo\r\n\r\ntwo\r\nree") << "a whole break, half selected";
    EXPECT_EQ(other.formatRangeAt(Offset(13)), Range(Offset(13), Offset(17)));
    EXPECT_TRUE(other.SetSelRTF("{\\rtf1 plain}"));
    EXPECT_EQ(other.SelStart(), 17) << "no room is left";
    other.checkInvariants();
}

}  // namespace
}  // namespace brindlex
