#include <gtest/gtest.h>

#include <algorithm>
#include <array>

#include "editor/NaiveColouring.h"
#include "editor/ScriptSyntax.h"
#include "text/Random.h"

namespace brindlex::test {
namespace {

using testing::PrintToString;

constexpr ColorRef kUntouched = 0x123456;
const std::string kAlphabet = "aAbB\xC4\xE4//\"\"' \t ,";

template <typename Choices>
std::string oneOf(Random& random, const Choices& choices) {
    return choices[random.below(std::size(choices))];
}

/// Entries between delimiters, with now and then something that spoils the rule.
std::string randomList(Random& random, const std::string& delimiter) {
    std::string list = random.oneIn(5) ? "" : delimiter;
    for (std::size_t entries = random.below(6); entries > 0; --entries) {
        list += random.text(random.below(4), kAlphabet) + delimiter;
        if (random.oneIn(4)) list += delimiter.substr(0, delimiter.size() / 2);
    }
    return list;
}

/// Random marks and lists, and nine colours that all differ.
void giveRandomSyntax(Random& random, KELP_RTBSyntax& editor) {
    using Editor = KELP_RTBSyntax;
    constexpr std::array kComments = {"//",  "'", "",    "/",    "\"", "a",
                                      "/\"", " ", " a ", "\r\n", "/\r"};
    constexpr std::array kStrings = {"\"", "\"", "'", "", "''", "\"\"", "a b", "/", " ", "'\r"};
    constexpr std::array kDelimiters = {" ", " ", ",", "\r\n", "", "ab", "Aa", ", "};
    Long color = 0;
    for (const auto setColor :
         {&Editor::SetColorOf_Comments, &Editor::SetColorOf_Strings,
          &Editor::SetColorOf_ReservedWords, &Editor::SetColorOf_ProceduresORFunctions,
          &Editor::SetColorOf_Normal, &Editor::SetColorOf_Operators,
          &Editor::SetColorOf_LogicalOperators, &Editor::SetColorOf_Constants,
          &Editor::SetColorOf_Objects}) {
        (editor.*setColor)(++color);
    }
    editor.SetSyntax_CommentChar(oneOf(random, kComments));
    editor.SetSyntax_StringChar(oneOf(random, kStrings));
    editor.SetSyntax_Delimiter(oneOf(random, kDelimiters));
    for (const auto setList :
         {&Editor::SetSyntax_ReservedWords, &Editor::SetSyntax_ProceduresORFunctions,
          &Editor::SetSyntax_LogicalOperators, &Editor::SetSyntax_Operators,
          &Editor::SetSyntax_Objects, &Editor::SetSyntax_Constants}) {
        (editor.*setList)(randomList(random, editor.Syntax_Delimiter()));
    }
}

std::string randomText(Random& random, std::size_t lines) {
    std::string text;
    for (; lines > 0; --lines) {
        text += random.text(random.oneIn(30) ? 700 : random.below(12), kAlphabet) + "\r\n";
    }
    return text + random.text(random.below(12), kAlphabet);
}

TEST(Colouring, AWholeTextTakesTheColoursOfItsTokens) {
    for (const std::uint64_t seed : seeds(6)) {
        Random random(seed);
        KELP_RTBSyntax editor;
        for (int round = 0; round < 60; ++round) {
            giveRandomSyntax(random, editor);
            editor.SetText(randomText(random, random.below(40)));
            const bool paintedOver = random.oneIn(2);
            if (paintedOver) {
                paintAll(editor, kUntouched);
                editor.ReColorize();
            }
            const std::string text = editor.Text();
            std::vector<ColorRef> expected(text.size(), paintedOver ? kUntouched : 0);
            NaiveColouring(editor).paint(text, 0, text.size(), expected);
            ASSERT_EQ(colorsOf(editor), expected)
                << "seed " << seed << ", round " << round << ", " << PrintToString(text);
            for (int words = 0; words < 50; ++words) {
                const std::string word = random.text(random.below(5), kAlphabet);
                ASSERT_EQ(editor.ClassifyWord(word), NaiveColouring(editor).classOf(word))
                    << "seed " << seed << ", round " << round << ", " << PrintToString(word);
            }
        }
    }
}

/// Before each colouring the host paints all text over, so that what the colouring touches, and
/// what it leaves, both show.
TEST(Colouring, AnEditColoursTheLinesThatItTouched) {
    for (const std::uint64_t seed : seeds(6)) {
        Random random(seed);
        KELP_RTBSyntax editor;
        giveRandomSyntax(random, editor);
        editor.SetText(randomText(random, 12));
        std::vector<ColorRef> expected;
        editor.onChange = [&] {
            const Long before = editor.PrevSelStart();
            if (random.oneIn(4)) {  // also between CR and LF
                editor.SetSelStart(static_cast<Long>(random.below(editor.Text().size() + 1)));
            }
            paintAll(editor, kUntouched);
            expected.assign(editor.Text().size(), kUntouched);
            NaiveColouring(editor).paintChange(
                editor.Text(), static_cast<std::size_t>(std::min(before, editor.PrevSelStart())),
                static_cast<std::size_t>(editor.SelStart()), expected);
        };
        for (int edit = 0; edit < 300; ++edit) {
            expected.clear();
            const auto length = editor.Text().size();
            const std::size_t from = random.below(length + 2);
            if (random.oneIn(2)) {
                editor.SetSelStart(static_cast<Long>(from));
                editor.SetSelLength(static_cast<Long>(random.oneIn(2) ? random.below(30) : 0));
            }
            if (random.oneIn(3)) {
                const auto caret = static_cast<std::size_t>(editor.SelStart());
                const std::size_t end = std::min(caret + random.below(20), length);
                editor.rtb().box().userReplace(Range(Offset(caret), Offset(end)), "");
            } else {
                editor.SetSelText(randomText(random, random.oneIn(3) ? random.below(4) : 0));
            }
            if (expected.empty()) continue;  // nothing changed, or nothing is left
            ASSERT_EQ(editor.PrevSelStart(), editor.SelStart());
            ASSERT_EQ(editor.CurSelStart(), editor.SelStart());
            ASSERT_EQ(colorsOf(editor), expected)
                << "seed " << seed << ", edit " << edit << ", " << PrintToString(editor.Text());
        }
    }
}

TEST(Colouring, LongListsKeepTheirWordsApart) {
    KELP_RTBSyntax editor;
    editor.SetSyntax_Delimiter(" ");
    std::string even = " ";
    std::string odd = " ";
    for (int word = 0; word < 2000; ++word) {
        (word % 2 == 0 ? even : odd) += std::to_string(word) + "w ";
    }
    editor.SetSyntax_ReservedWords(even);
    editor.SetSyntax_Objects(odd + even);
    for (int word = 0; word < 2000; ++word) {
        ASSERT_EQ(editor.ClassifyWord(std::to_string(word) + 'W'),
                  word % 2 == 0 ? ClassReserved : ClassObject);
    }
    EXPECT_EQ(editor.ClassifyWord("2000w"), ClassNormal);
}

/// The words of the script language, in the user's colours.
TEST(Colouring, TheScriptLanguage) {
    KELP_RTBSyntax editor;
    editor.SetColorOf_Normal(77);
    applyScriptSyntax(editor, {"5", "1", "2", "3", "4"});
    const struct {
        std::string line;
        std::vector<ColorRef> colors;
    } rows[] = {
        {"trigger x", {3, 3, 3, 3, 3, 3, 3, 5, 5}},
        {"WAIT inc", {3, 3, 3, 3, 5, 4, 4, 4}},
        {"set\"a\"set//", {4, 4, 4, 2, 2, 2, 4, 4, 4, 1, 1}},
        {"set{ \"//", {5, 5, 5, 5, 5, 2, 2, 2}},
        {"togglespeaker", std::vector<ColorRef>(13, 3)},
        {"default", std::vector<ColorRef>(7, 5)},
    };
    for (const auto& row : rows) {
        editor.SetText(row.line);
        EXPECT_EQ(colorsOf(editor), row.colors) << row.line;
    }
    applyScriptSyntax(editor, {"no number", "9", "9", "", "9"});
    EXPECT_EQ(editor.ColorOf_Normal(), 5);
    EXPECT_EQ(editor.ColorOf_ReservedWords(), 3);
    EXPECT_EQ(editor.ColorOf_Comments(), 9);
}

TEST(Colouring, KeywordsForCompletion) {
    const std::vector<std::string> words = scriptKeywords();
    const auto count = [&words](const char* word) { return std::ranges::count(words, word); };
    EXPECT_EQ(words.size(), 120U);
    EXPECT_EQ(count(""), 4);
    EXPECT_EQ(count("wait"), 2);
    EXPECT_EQ(count("random"), 3);
    EXPECT_LT(std::ranges::find(words, "togglespeaker"), std::ranges::find(words, "bitreset"));
}

}  // namespace
}  // namespace brindlex::test
