#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <utility>
#include <vector>

#include "editor/KELP_RTBSyntax.h"
#include "editor/ScriptSyntax.h"
#include "text/Random.h"

namespace brindlex::test {
namespace {

using testing::PrintToString;

constexpr ColorRef kUntouched = 0x123456;
const std::string kAlphabet = "aAbB\xC4\xE4//\"\"' \t ,";

using Editor = KELP_RTBSyntax;
using Colors = std::vector<ColorRef>;  // one for each byte

// The colouring as a user's eye would do it: byte by byte over plain strings, each token painted
// over what was painted before, words searched for in the lists. Each class has its own number as
// its colour, see giveRandomSyntax.

WordClass naiveClassOf(const Editor& editor, const std::string& word) {
    const CharacterTable& characters = editor.rtb().codePage().characters();
    const std::string delimiter = editor.Syntax_Delimiter();
    const std::string needle = characters.toLower(delimiter + word + delimiter);
    const std::array<std::pair<std::string, WordClass>, 7> lists = {{
        {editor.Syntax_CommentChar(), ClassComment},
        {editor.Syntax_ReservedWords(), ClassReserved},
        {editor.Syntax_ProceduresORFunctions(), ClassProcedure},
        {editor.Syntax_LogicalOperators(), ClassLogical},
        {editor.Syntax_Operators(), ClassOperator},
        {editor.Syntax_Objects(), ClassObject},
        {editor.Syntax_Constants(), ClassConstant},
    }};
    for (const auto& [list, wordClass] : lists) {
        if (characters.toLower(list).find(needle) != std::string::npos) return wordClass;
    }
    return ClassNormal;
}

void paintLine(const Editor& editor, const std::string& line, std::size_t offset, Colors& colors) {
    const std::string commentMark = editor.Syntax_CommentChar();
    const std::string stringMark = editor.Syntax_StringChar();
    enum { Between, InWord, InString } state = Between;
    std::size_t tokenStart = 0;
    const auto apply = [&](WordClass wordClass, std::size_t from, std::size_t length) {
        std::fill_n(colors.begin() + static_cast<std::ptrdiff_t>(offset + from), length,
                    static_cast<ColorRef>(wordClass));
    };
    std::size_t i = 0;
    const auto closeWord = [&] {
        if (state != InWord) return;
        const std::size_t length = i - tokenStart;
        apply(naiveClassOf(editor, line.substr(tokenStart, length)), tokenStart, length);
        state = Between;
    };
    for (; i < line.size(); ++i) {
        const std::string taken = line.substr(i, stringMark.size());
        if (state != InString && line.compare(i, commentMark.size(), commentMark) == 0) {
            closeWord();
            apply(ClassComment, i, line.size() - i);
            return;
        }
        if (taken == stringMark && state == InString) {
            apply(ClassString, tokenStart, i - tokenStart + stringMark.size());
            state = Between;
        } else if (taken == stringMark) {
            closeWord();
            state = InString;
            tokenStart = i;
        } else if (taken == " " || taken == "\t") {
            closeWord();
            apply(ClassNormal, i, 1);
        } else if (state == Between) {
            state = InWord;
            tokenStart = i;
        }
    }
    if (state == InString) apply(ClassString, tokenStart, i - tokenStart);
    closeWord();
}

/// Paints the lines of text[start, end).
void paint(const Editor& editor, std::size_t start, std::size_t end, Colors& colors) {
    const std::string text = editor.Text();
    for (std::size_t next = 0; start <= end; start = next + 2) {
        next = std::min(text.find("\r\n", start), end);
        paintLine(editor, text.substr(start, next - start), start, colors);
    }
}

/// The colours of all bytes of the control's text.
Colors colorsOf(const Editor& editor) {
    const RichTextBox& box = editor.box();
    Colors colors;
    box.visitFormats(Range(Offset(), Offset(box.length())),
                     [&colors](Range range, const CharFormat& format) {
                         colors.insert(colors.end(), range.length(), format.color);
                         return true;
                     });
    return colors;
}

/// Colours all bytes, beside all rules and without an event.
void paintAll(Editor& editor, ColorRef color) {
    RichTextBox& box = editor.box();
    const ColorRun run{static_cast<std::uint32_t>(box.length()), color};
    if (box.length() != 0) box.colorRuns(Offset(), {&run, 1});
}

template <typename Choices>
std::string oneOf(Random& random, const Choices& choices) {
    return choices[random.below(std::size(choices))];
}

/// Entries between delimiters, now and then thousands, or with something that spoils the rule.
std::string randomList(Random& random, const std::string& delimiter) {
    std::string list = random.oneIn(5) ? "" : delimiter;
    for (std::size_t entries = random.below(random.oneIn(20) ? 3000 : 6); entries > 0; --entries) {
        list += random.text(random.below(4), kAlphabet) + delimiter;
        if (random.oneIn(4)) list += delimiter.substr(0, delimiter.size() / 2);
    }
    return list;
}

/// Random marks and lists, and nine colours that all differ.
void giveRandomSyntax(Random& random, Editor& editor) {
    constexpr std::array kComments = {"//",  "'", "",    "/",    "\"", "a",
                                      "/\"", " ", " a ", "\r\n", "/\r"};
    constexpr std::array kStrings = {"\"", "\"", "'", "", "''", "\"\"", "a b", "/", " ", "'\r"};
    constexpr std::array kDelimiters = {" ", " ", ",", "\r\n", "", "ab", "Aa", ", "};
    Long color = 0;  // of the classes in the order of WordClass
    for (const auto setColor :
         {&Editor::SetColorOf_Comments, &Editor::SetColorOf_Strings,
          &Editor::SetColorOf_ReservedWords, &Editor::SetColorOf_ProceduresORFunctions,
          &Editor::SetColorOf_Normal, &Editor::SetColorOf_Operators,
          &Editor::SetColorOf_LogicalOperators, &Editor::SetColorOf_Constants,
          &Editor::SetColorOf_Objects}) {
        (editor.*setColor)(color++);
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
        Editor editor;
        for (int round = 0; round < 60; ++round) {
            giveRandomSyntax(random, editor);
            // long ones are coloured in several batches
            editor.SetText(randomText(random, round == 0 ? 10'000 : random.below(40)));
            const bool paintedOver = random.oneIn(2);
            if (paintedOver) {
                paintAll(editor, kUntouched);
                editor.ReColorize();
            }
            const std::string text = editor.Text();
            Colors expected(text.size(), paintedOver ? kUntouched : 0);
            paint(editor, 0, text.size(), expected);
            ASSERT_EQ(colorsOf(editor), expected)
                << "seed " << seed << ", round " << round << ", " << PrintToString(text);
            for (int words = 0; words < 50; ++words) {
                const std::string word = random.text(random.below(5), kAlphabet);
                ASSERT_EQ(editor.ClassifyWord(word), naiveClassOf(editor, word))
                    << "seed " << seed << ", round " << round << ", " << PrintToString(word);
            }
        }
    }
}

TEST(Colouring, AnEditColoursTheLinesThatItTouched) {
    for (const std::uint64_t seed : seeds(6)) {
        Random random(seed);
        Editor editor;
        applyScriptSyntax(editor, {"5", "1", "2", "3", "4"});
        for (int edit = 0; edit < 500; ++edit) {
            const std::size_t begin = random.below(editor.box().length() + 1);
            const std::size_t length = random.below(editor.box().length() < 300 ? 5 : 100);
            const char* pieces[] = {"", "\"", "/", "//", "set", "wait ", "\r\n", "x\r\nset\r\n"};
            const Rope before = editor.box().rope();
            editor.SetSelStart(static_cast<Long>(begin));
            editor.SetSelLength(static_cast<Long>(length));
            editor.SetSelText(oneOf(random, pieces));
            if (before == editor.box().rope()) continue;  // only the caret has moved
            ASSERT_EQ(editor.PrevSelStart(), editor.SelStart());
            ASSERT_EQ(editor.CurSelStart(), editor.SelStart());
            const auto shown = [&] {  // a line break shows no colour
                Colors colors = colorsOf(editor);
                for (std::size_t i = 0; i < colors.size(); ++i)
                    if (editor.box().rope().at(Offset(i)) < ' ') colors[i] = 0;
                return colors;
            };
            const Colors found = shown();
            editor.ReColorize();
            ASSERT_EQ(found, shown()) << seed << ' ' << PrintToString(editor.Text());
        }
        editor.SetText("x\r\ny\r\nz");
        editor.SetSelStart(4);
        paintAll(editor, kUntouched);
        editor.SetSelText("x");
        constexpr ColorRef k = kUntouched;
        EXPECT_EQ(colorsOf(editor), (Colors{k, k, k, 5, 5, k, k, k})) << "no other line";
    }
}

/// The words of the script language, in the user's colours.
TEST(Colouring, TheScriptLanguage) {
    Editor editor;
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
