#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>

#include "editor/KELP_RTBSyntax.h"
#include "editor/ScriptSyntax.h"
#include "text/Random.h"

namespace brindlex::test {
namespace {

using Editor = KELP_RTBSyntax;
using Colors = std::u32string;  // one for each byte

constexpr ColorRef kUntouched = 0x123456;
const std::string kAlphabet = "aAbB\xC4\xE4//\"\"' \t ,";

// The colouring as a user's eye would do it: over plain strings, words searched for in the lists.
// Each class has its own number as its colour, see giveRandomSyntax.

WordClass naiveClassOf(const Editor& editor, const std::string& word) {
    const CharacterTable& characters = editor.rtb().codePage().characters();
    const std::string delimiter = editor.Syntax_Delimiter();
    const std::pair<std::string, WordClass> lists[] = {
        {editor.Syntax_CommentChar(), ClassComment},
        {editor.Syntax_ReservedWords(), ClassReserved},
        {editor.Syntax_ProceduresORFunctions(), ClassProcedure},
        {editor.Syntax_LogicalOperators(), ClassLogical},
        {editor.Syntax_Operators(), ClassOperator},
        {editor.Syntax_Objects(), ClassObject},
        {editor.Syntax_Constants(), ClassConstant},
    };
    for (const auto& [list, wordClass] : lists)
        if (characters.toLower(list).find(characters.toLower(delimiter + word + delimiter)) !=
            std::string::npos)
            return wordClass;
    return ClassNormal;
}

/// Paints a line of the text, which begins at `start`.
void paintLine(const Editor& editor, const std::string& line, std::size_t start, Colors& colors) {
    const std::string commentMark = editor.Syntax_CommentChar();
    const std::string stringMark = editor.Syntax_StringChar();
    const auto taken = [&](std::size_t at) { return line.substr(at, stringMark.size()); };
    const auto isBlank = [&](std::size_t at) { return taken(at) == " " || taken(at) == "\t"; };
    const auto isComment = [&](std::size_t at) {
        return line.compare(at, commentMark.size(), commentMark) == 0;
    };
    const auto paint = [&](std::size_t from, std::size_t to, WordClass wordClass) {
        colors.replace(start + from, to - from, to - from, static_cast<char32_t>(wordClass));
    };
    for (std::size_t at = 0, end = 0; at < line.size(); at = end) {
        end = at + 1;
        if (isComment(at)) {
            end = line.size();
            paint(at, end, ClassComment);
        } else if (taken(at) == stringMark) {
            while (end < line.size() && taken(end) != stringMark) ++end;
            const bool closed = end < line.size();
            paint(at, closed ? end + stringMark.size() : end, ClassString);
            if (closed) ++end;
        } else if (isBlank(at)) {
            paint(at, end, ClassNormal);
        } else {
            const auto ends = [&] {
                return isComment(end) || taken(end) == stringMark || isBlank(end);
            };
            while (end < line.size() && !ends()) ++end;
            paint(at, end, naiveClassOf(editor, line.substr(at, end - at)));
        }
    }
}

/// The colours of all bytes of the control's text.
Colors colorsOf(const Editor& editor) {
    Colors colors;
    for (std::size_t i = 0; i < editor.box().length(); ++i)
        colors += editor.box().formatAt(Offset(i)).color;
    return colors;
}

/// Colours all bytes, beside all rules and without an event.
void paintAll(Editor& editor, ColorRef color) {
    const ColorRun run{static_cast<std::uint32_t>(editor.box().length()), color};
    if (run.length != 0) editor.box().colorRuns(Offset(), {&run, 1});
}

template <std::size_t kCount>
std::string oneOf(Random& random, const char* const (&choices)[kCount]) {
    return choices[random.below(kCount)];
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
    Long color = 0;  // of the classes in the order of WordClass
    for (const auto setColor :
         {&Editor::SetColorOf_Comments, &Editor::SetColorOf_Strings,
          &Editor::SetColorOf_ReservedWords, &Editor::SetColorOf_ProceduresORFunctions,
          &Editor::SetColorOf_Normal, &Editor::SetColorOf_Operators,
          &Editor::SetColorOf_LogicalOperators, &Editor::SetColorOf_Constants,
          &Editor::SetColorOf_Objects})
        (editor.*setColor)(color++);
    editor.SetSyntax_CommentChar(
        oneOf(random, {"//", "'", "", "/", "\"", "a", "/\"", " ", " a ", "\r\n", "/\r"}));
    editor.SetSyntax_StringChar(
        oneOf(random, {"\"", "\"", "'", "", "''", "\"\"", "a b", "/", " ", "'\r"}));
    editor.SetSyntax_Delimiter(oneOf(random, {" ", " ", ",", "\r\n", "", "ab", "Aa", ", "}));
    for (const auto setList :
         {&Editor::SetSyntax_ReservedWords, &Editor::SetSyntax_ProceduresORFunctions,
          &Editor::SetSyntax_LogicalOperators, &Editor::SetSyntax_Operators,
          &Editor::SetSyntax_Objects, &Editor::SetSyntax_Constants})
        (editor.*setList)(randomList(random, editor.Syntax_Delimiter()));
}

TEST(Colouring, AWholeTextTakesTheColoursOfItsTokens) {
    for (const std::uint64_t seed : seeds(6)) {
        Random random(seed);
        Editor editor;
        for (int round = 0; round < 60; ++round) {
            giveRandomSyntax(random, editor);
            // long ones are coloured in several batches
            std::string text;
            for (std::size_t left = round == 0 ? 10'000 : random.below(40); left > 0; --left)
                text += random.text(random.oneIn(30) ? 700 : random.below(12), kAlphabet) + "\r\n";
            text += random.text(random.below(12), kAlphabet);
            SCOPED_TRACE(testing::PrintToString(seed) + ' ' + testing::PrintToString(text));
            editor.SetText(text);
            const bool paintedOver = random.oneIn(2);
            if (paintedOver) {
                paintAll(editor, kUntouched);
                editor.ReColorize();
            }
            Colors expected(text.size(), paintedOver ? kUntouched : 0);
            for (std::size_t start = 0, end = 0; end < text.size(); start = end + 2) {
                end = std::min(text.find("\r\n", start), text.size());
                paintLine(editor, text.substr(start, end - start), start, expected);
            }
            ASSERT_EQ(colorsOf(editor), expected);
        }
    }
}

TEST(Colouring, AnEditColoursTheLinesThatItTouched) {
    for (const std::uint64_t seed : seeds(6)) {
        Random random(seed);
        Editor editor;
        applyScriptSyntax(editor, {"5", "1", "2", "3", "4"});
        for (int edit = 0; edit < 500; ++edit) {
            const Rope before = editor.box().rope();
            editor.SetSelStart(static_cast<Long>(random.below(before.size() + 1)));
            editor.SetSelLength(static_cast<Long>(random.below(before.size() < 300 ? 5 : 100)));
            editor.SetSelText(
                oneOf(random, {"", "\"", "/", "//", "set", "wait ", "\r\n", "x\r\nset\r\n"}));
            if (before == editor.box().rope()) continue;  // only the caret has moved
            ASSERT_EQ(editor.PrevSelStart(), editor.SelStart());
            ASSERT_EQ(editor.CurSelStart(), editor.SelStart());
            const std::string text = editor.Text();
            const auto shown = [&] {  // a line break shows no colour
                Colors colors = colorsOf(editor);
                for (std::size_t i = 0; i < text.size(); ++i)
                    if (text[i] < ' ') colors[i] = 0;
                return colors;
            };
            const Colors found = shown();
            editor.ReColorize();
            ASSERT_EQ(found, shown()) << seed << ' ' << testing::PrintToString(text);
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
    const std::pair<const char*, const char*> rows[] = {
        {"trigger x", "333333355"},
        {"WAIT inc", "33335444"},
        {"set\"a\"set//", "44422244411"},
        {"set{ \"//", "55555222"},
        {"togglespeaker default", "333333333333355555555"},
    };
    for (const auto& [line, colors] : rows) {
        editor.SetText(line);
        std::string found;
        for (const char32_t color : colorsOf(editor)) found += std::to_string(color);
        EXPECT_EQ(found, colors) << line;
    }
    applyScriptSyntax(editor, {"no number", "9", "9", "", "9"});
    EXPECT_EQ(editor.ColorOf_Normal(), 5);
    EXPECT_EQ(editor.ColorOf_ReservedWords(), 3);
    EXPECT_EQ(editor.ColorOf_Comments(), 9);
    EXPECT_EQ(scriptKeywords().size(), 120U) << "for completion";
}

}  // namespace
}  // namespace brindlex::test
