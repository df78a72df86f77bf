#include "platform/text/RichTextBox.h"

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "platform/text/LineEnds.h"
#include "text/Random.h"

namespace brindlex {
namespace {

Range range(std::size_t begin, std::size_t end) {
    return {Offset(begin), Offset(end)};
}

/// The handlers' calls, each with SelStart and length at that time.
class Events {
  public:
    explicit Events(RichTextBox& box) : box_(box) {
        box.onSelChange = [this] { add("SelChange"); };
        box.onChange = [this] { add("Change"); };
    }
    void add(const std::string& name) {
        list.push_back(name + ' ' + std::to_string(box_.SelStart()) + '/' +
                       std::to_string(box_.length()));
    }
    std::vector<std::string> list;

  private:
    RichTextBox& box_;
};

using Names = std::vector<std::string>;

// --- The border of line breaks -------------------------------------------------------------------

struct BreakCase {
    const char* text;
    Long start;
    Long length;
    const char* inserted;
    const char* expected;
    Long caret;
};

class LineBreaks : public testing::TestWithParam<BreakCase> {};

TEST_P(LineBreaks, StayWholeWhoeverEdits) {
    const BreakCase& row = GetParam();
    RichTextBox byProgram;
    byProgram.SetText(row.text);
    byProgram.SetSelStart(row.start);
    byProgram.SetSelLength(row.length);
    byProgram.SetSelText(row.inserted);
    EXPECT_EQ(byProgram.Text(), row.expected);
    EXPECT_EQ(byProgram.SelStart(), row.caret);
    byProgram.checkInvariants();

    RichTextBox byUser;
    byUser.SetText(row.text);
    const auto begin = static_cast<std::size_t>(row.start);
    byUser.userReplace(range(begin, begin + static_cast<std::size_t>(row.length)), row.inserted);
    EXPECT_EQ(byUser.Text(), row.expected);
    EXPECT_EQ(byUser.SelStart(), row.caret);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LineBreaks,
    testing::Values(
        BreakCase{"", 0, 0, "a\rb\nc\r\nd\n\re\r\r\n", "a\r\nb\r\nc\r\nd\r\n\r\ne\r\n\r\n", 19},
        BreakCase{"ab\r\ncd", 3, 0, "X", "abX\r\ncd", 3},      // between CR and LF
        BreakCase{"ab\r\ncd", 3, 0, "\n", "ab\r\n\r\ncd", 4},  // LF directly behind a CR
        BreakCase{"ab\r\ncd", 2, 0, "\r", "ab\r\n\r\ncd", 4},  // CR in front of a pair
        BreakCase{"ab\r\ncd", 2, 1, "", "abcd", 2},            // CR alone goes
        BreakCase{"ab\r\ncd", 3, 1, "", "abcd", 2},            // LF alone goes
        BreakCase{"ab\r\ncd", 3, 2, "\r", "ab\r\nd", 4},       // LF and more give way to CR
        BreakCase{"a\r\n\r\nb", 2, 2, "", "ab", 1},            // a half of either pair
        BreakCase{"a\r\n\r\nb", 1, 2, "", "a\r\nb", 1},        // one of two pairs
        BreakCase{"\r\n", 1, 0, "\n\r", "\r\n\r\n\r\n", 4}));

TEST(LineEnds, LongTextsOfAllMixesBecomePairs) {
    for (const std::uint64_t seed : test::seeds(4)) {
        test::Random random(seed);
        for (const char* alphabet : {"ab\n", "ab\r", "a\r\n", "\r", "abcdefgh\r\n"}) {
            const std::string text = random.text(random.below(20000), alphabet);
            std::string expected;
            for (std::size_t i = 0; i < text.size(); ++i) {
                const bool secondHalf = text[i] == '\n' && i > 0 && text[i - 1] == '\r';
                const bool isBreak = text[i] == '\r' || text[i] == '\n';
                if (!secondHalf) expected += isBreak ? "\r\n" : text.substr(i, 1);
            }
            std::string storage;
            ASSERT_EQ(withCrLf(text, storage), expected) << "seed " << seed;
            ASSERT_EQ(withCrLf(expected, storage).data(), expected.data()) << "no copy";
        }
    }
}

// --- What is refused or cut ----------------------------------------------------------------------

TEST(RichTextBox, MaxLengthCutsWhateverComesInAndNothingThatIsThere) {
    RichTextBox box;
    box.SetMaxLength(5);
    box.SetText("abcdefg");
    EXPECT_EQ(box.Text(), "abcde");
    box.SetText("abcd\r\n");
    EXPECT_EQ(box.Text(), "abcd") << "no half of a pair";
    box.SetText("abc");
    EXPECT_TRUE(box.userReplace(range(1, 2), "123456"));
    EXPECT_EQ(box.Text(), "a123c");
    Events events(box);
    EXPECT_TRUE(box.userReplace(range(5, 5), "x"));
    box.SetSelText("y");
    EXPECT_EQ(events.list, Names{"SelChange 5/5"}) << "no change, no Change";
    box.SetMaxLength(2);
    box.SetSelStart(1);
    box.SetSelLength(1);
    box.SetSelText("xyz");
    EXPECT_EQ(box.Text(), "a23c") << "a longer text shrinks but does not grow";
}

TEST(RichTextBox, UserEditsStopAtLocksAndProtectedCharacters) {
    RichTextBox box;
    box.SetText("0123456789");
    box.SetSelStart(3);
    box.SetSelLength(3);
    box.SetSelProtected(true);
    struct Row {
        Range range;
        bool allowed;
    };
    for (const Row& row :
         {Row{range(0, 3), true}, Row{range(2, 4), false}, Row{range(4, 4), false},
          Row{range(3, 3), true}, Row{range(6, 6), true}, Row{range(0, 10), false}}) {
        RichTextBox copy;
        copy.SetTextRTF(box.TextRTF());
        copy.SetSelStart(9);
        Events events(copy);
        EXPECT_EQ(copy.userReplace(row.range, "x"), row.allowed) << row.range;
        EXPECT_EQ(events.list.empty(), !row.allowed) << row.range;
    }
    EXPECT_TRUE(box.userReplace(range(6, 6), "typo"));
    EXPECT_TRUE(box.userReplace(range(6, 10), "")) << "what was typed beside it is free";
    EXPECT_FALSE(box.userMove(range(2, 4), Offset(9)));
    EXPECT_FALSE(box.userMove(range(0, 1), Offset(5)));
    box.SetLocked(true);
    EXPECT_FALSE(box.userReplace(range(0, 0), "x"));
    EXPECT_FALSE(box.userMove(range(0, 1), Offset(2)));
    box.SetSelStart(4);
    box.SetSelText("!");
    EXPECT_EQ(box.Text(), "0123!456789") << "the program may";
}

TEST(RichTextBox, NegativeNumbersThrowAndLeaveTheBoxAsItWas) {
    RichTextBox box;
    box.SetText("abc");
    box.select(Offset(1), Offset(2));
    Events events(box);
    const std::vector<std::function<void()>> refused = {
        [&] { box.SetSelStart(-1); },      [&] { box.SetSelLength(-1); },
        [&] { box.SetMaxLength(-1); },     [&] { box.GetLineFromChar(-1); },
        [&] { box.Find("a", -1, {}, 0); }, [&] { box.Find("a", 0, -1, 0); },
        [&] { box.SetSelTabCount(-1); },   [&] { box.SetSelTabs(-1, 5); },
    };
    for (std::size_t i = 0; i < refused.size(); ++i)
        EXPECT_THROW(refused[i](), std::out_of_range) << "row " << i;
    EXPECT_EQ(box.selection(), range(1, 2));
    EXPECT_EQ(box.MaxLength(), 0);
    EXPECT_TRUE(events.list.empty());
}

TEST(RichTextBox, LineQuestionsAtTheEdges) {
    RichTextBox box;
    EXPECT_EQ(box.GetLineCount(), 1);
    EXPECT_EQ(box.GetLineIndex(-1), 0);
    EXPECT_EQ(box.GetLineIndex(1), -1);
    box.SetText("ab\r\n\r\ncd");
    box.select(Offset(7), Offset(1));
    EXPECT_EQ(box.GetLineCount(), 3);
    EXPECT_EQ(box.GetLineIndex(-1), 0) << "the caret's line, not the selection's end";
    EXPECT_EQ(box.GetLineIndex(2), 6);
    EXPECT_EQ(box.GetLineIndex(3), -1);
    EXPECT_EQ(box.GetLineIndex(-2), -1);
    EXPECT_EQ(box.GetLineFromChar(3), 0) << "between CR and LF";
    EXPECT_EQ(box.GetLineFromChar(1000), 2);
    EXPECT_EQ(box.lineContent(LineIndex(0)), range(0, 2));
    EXPECT_EQ(box.lineContent(LineIndex(1)), range(4, 4));
    EXPECT_EQ(box.lineContent(LineIndex(2)), range(6, 8));
    EXPECT_EQ(box.lineContent(LineIndex(9)), range(8, 8));
}

// --- Events --------------------------------------------------------------------------------------

TEST(RichTextBox, HandlersMayEditAndSelect) {
    RichTextBox box;
    box.SetText("abc");
    Events events(box);
    box.onChange = [&, inner = false]() mutable {
        events.add("Change");
        if (inner) return;
        inner = true;
        box.SetSelText("igger");
        box.SetSelStart(2);
        box.SetSelLength(5);
    };
    box.select(Offset(1), Offset(1));
    EXPECT_TRUE(box.userReplace(range(1, 1), "r"));
    EXPECT_EQ(box.Text(), "ariggerbc");
    EXPECT_EQ(box.selection(), range(2, 7));
    EXPECT_EQ(events.list, (Names{"SelChange 1/3", "SelChange 2/4", "Change 2/4", "SelChange 7/9",
                                  "Change 7/9", "SelChange 2/9", "SelChange 2/9"}));

    box.onChange = [&] { events.add("Change"); };
    box.onSelChange = [&, inner = false]() mutable {
        events.add("SelChange");
        if (inner) return;
        inner = true;
        box.SetText("new");
    };
    events.list.clear();
    box.SetSelText("ule");
    EXPECT_EQ(box.Text(), "new");
    EXPECT_EQ(events.list, (Names{"SelChange 5/7", "SelChange 0/3", "Change 0/3", "Change 0/3"}));
}

TEST(RichTextBox, AMoveIsTwoEditsThatCanBeUndoneOneByOne) {
    RichTextBox box;
    box.SetText("one two three");
    Events events(box);
    EXPECT_TRUE(box.userMove(range(0, 4), Offset(8)));
    EXPECT_EQ(box.Text(), "two one three");
    EXPECT_EQ(box.selection(), range(4, 8));
    EXPECT_EQ(events.list, (Names{"SelChange 12/17", "Change 12/17", "SelChange 0/13",
                                  "Change 0/13", "SelChange 4/13"}));
}

TEST(RichTextBox, AMoveLosesNoTextToAHandler) {
    struct Row {
        Range edited;  // by the handler, after the insertion
        const char* expected;
    };
    for (const Row& row :
         {Row{range(0, 0), "<>two one three"}, Row{range(2, 2), "on<>e two one three"},
          Row{range(17, 17), "two one three<>"}, Row{range(9, 10), "two o<>e three"}}) {
        RichTextBox box;
        box.SetText("one two three");
        box.onChange = [&, first = true]() mutable {
            if (!std::exchange(first, false)) return;
            box.select(row.edited.begin(), row.edited.end());
            box.SetSelText("<>");
        };
        EXPECT_TRUE(box.userMove(range(0, 4), Offset(8)));
        EXPECT_EQ(box.Text(), row.expected) << row.edited;
    }
}

// --- Formats -------------------------------------------------------------------------------------

TEST(RichTextBox, InsertedTextTakesTheFormatOfItsPlace) {
    RichTextBox box;
    box.SetText("ab\r\ncd");
    const std::vector<ColorRun> colors = {{1, 1}, {1, 2}, {2, 3}, {1, 4}, {1, 5}};
    struct Row {
        std::size_t at;
        ColorRef expected;
    };
    for (const Row& row : {Row{0, 1}, Row{1, 1}, Row{2, 2}, Row{3, 2}, Row{4, 4}, Row{6, 5}}) {
        box.SetText("ab\r\ncd");
        box.colorRuns(Offset(0), colors);
        box.select(Offset(row.at), Offset(row.at));
        EXPECT_EQ(box.SelColor(), row.expected) << row.at;
        box.SetSelText("x");
        EXPECT_EQ(box.formatAt(box.caret() - 1).color, row.expected) << row.at;
    }
    box.SetText("new");
    EXPECT_EQ(box.formatAt(Offset(0)), CharFormat{}) << "a new text is plain";
}

TEST(RichTextBox, AFormatSetAtTheCaretWaitsForTextUntilTheCaretMoves) {
    RichTextBox box;
    box.SetText("ab");
    box.SetSelStart(1);
    box.SetSelBold(true);
    EXPECT_EQ(box.SelBold(), true);
    box.SetSelText("x");
    EXPECT_TRUE(box.formatAt(Offset(1)).bold);
    EXPECT_FALSE(box.formatAt(Offset(2)).bold);
    box.SetSelStart(3);
    box.SetSelColor(7);
    box.SetSelStart(0);
    box.SetSelStart(3);
    box.SetSelText("y");
    EXPECT_EQ(box.formatAt(Offset(3)).color, 0U);
    box.select(Offset(0), Offset(4));
    EXPECT_EQ(box.SelBold(), std::nullopt);
}

TEST(RichTextBox, ParagraphFormatsStayWithTheirLines) {
    RichTextBox box;
    box.SetText("a\r\nb\r\nc");
    box.select(Offset(3), Offset(6));  // the line b with its break, and nothing of c
    box.SetSelIndent(300);
    box.select(Offset(0), Offset(4));
    EXPECT_EQ(box.SelIndent(), std::nullopt);
    box.SetSelStart(6);
    EXPECT_EQ(box.SelIndent(), 0);
    box.userReplace(range(4, 4), "\r\n");
    EXPECT_EQ(box.paragraphAt(LineIndex(2)).indent, 300) << "a split line";
    box.userReplace(range(1, 3), "");
    EXPECT_EQ(box.paragraphAt(LineIndex(0)).indent, 0) << "a joined line is the first";
    box.SetSelStart(0);
    box.SetSelIndent(3);
    box.SetText("x\r\ny");
    EXPECT_EQ(box.paragraphAt(LineIndex(1)).indent, 3) << "a new text keeps the first line's";
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

// --- Rich text -----------------------------------------------------------------------------------

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

    Events events(other);
    EXPECT_FALSE(other.SetTextRTF("{\\rtf1 damaged"));
    EXPECT_TRUE(events.list.empty());
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
