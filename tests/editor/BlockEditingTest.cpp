#include <gtest/gtest.h>

#include <QCoreApplication>
#include <functional>
#include <string>
#include <utility>

#include "editor/KELP_RTBSyntax.h"
#include "editor/ScriptSyntax.h"
#include "support/MarkedText.h"
#include "text/Random.h"

namespace brindlex::test {
namespace {

using Editor = KELP_RTBSyntax;
using Operation = std::function<void(Editor&)>;

const Operation kEnter = [](Editor& editor) { editor.AutoIndent(13); };
const Operation kBrace = [](Editor& editor) { editor.BlockIndent(123); };
const Operation kOtherKeys = [](Editor& editor) {
    editor.AutoIndent(123);
    editor.BlockIndent(13);
};
const Operation kTab = &Editor::MultiTab;
const Operation kBackTab = &Editor::BackTab;
const Operation kComment = &Editor::CommentBlock;
const Operation kUnComment = &Editor::UnCommentBlock;

TEST(BlockEditing, TextAndSelection) {
    const struct {
        const char* name;
        const Operation& operation;
        std::string before, after;
    } rows[] = {
        {"Enter", kEnter, "\t\ta|", "\t\ta\r\n\t\t|"},
        {"Enter", kEnter, "  a\r\n|\tb", "  a\r\n\r\n  |\tb"},
        {"Enter", kEnter, "\t|\tb", "\t\r\n\t\t|\tb"},
        {"Enter", kEnter, "a\r\n |", "a\r\n \r\n |"},
        {"Enter", kEnter, " a^b\r\nc|d", " a\r\n |d"},
        {"Enter", kEnter, "\ta\r|\n b", "\ta\r\n\t|\r\n b"},
        {"Enter", kEnter, "^\ta|", "^\ta|"},
        {"Brace", kBrace, "a\r\n\t|b", "a\r\n\t{\r\n\t\t|\r\n\t}b"},
        {"Brace", kBrace, "\t\t|", "\t\t{\r\n\t\t\t|\r\n\t\t}"},
        {"Brace", kBrace, "\t |", "\t {\r\n\t|\r\n}"},
        {"Brace", kBrace, "\ta^bc|", "\ta{\r\n\t|\r\n}bc"},
        {"Brace", kBrace, "|a", "|a"},
        {"other keys", kOtherKeys, "\ta|", "\ta|"},
        {"Tab", kTab, "a\r\nb^c\r\nd\r\n|e", "a\r\n^\tbc\r\n\td\r\n|e"},
        {"Tab", kTab, "a\r\nb^c|d", "a\r\nb\t|d"},
        {"Tab", kTab, "^a\r\n|b", "\t|b"},
        {"Tab", kTab, "|a", "\t|a"},
        {"BackTab", kBackTab, "\ta^\r\n  b|\r\nc", "^a\r\n b\r\n|c"},
        {"BackTab", kBackTab, "^\ta\r\n|\tb\r\n", "^a\r|\n\tb\r\n"},
        {"BackTab", kBackTab, "^\ta\r\n\tb\r\nc|\r\n", "a\r\nb\r\n|c\r\n"},
        {"BackTab", kBackTab, "|\ta\r\n", "|\ta\r\n"},
        {"BackTab", kBackTab, "x\r\n|\ta\r\nb", "x\r\n|a\r\nb"},
        {"BackTab", kBackTab, " a|\r\nb", "^a\r|\nb"},
        {"BackTab", kBackTab, "x\r\n a|", "x\r\n|a"},
        {"BackTab", kBackTab, "^\t|", "|"},
        {"BackTab", kBackTab, "ab|c\r\n", "|abc\r\n"},
        {"Comment", kComment, "a\r\n\tb|c", "a\r\n//^\tb|c"},
        {"Comment", kComment, "^a\r\n|b\r\nc", "^//a\r\n//|b\r\nc"},
        {"Comment", kComment, "|", "^//|"},
        {"UnComment", kUnComment, "//a\r\n//b|", "//a\r\nb|"},
    };
    Editor editor;
    for (const auto& row : rows) {
        putMarked(editor.box(), row.before);
        row.operation(editor);
        EXPECT_EQ(marked(editor.box()), row.after)
            << row.name << " on " << testing::PrintToString(row.before);
    }
}

/// Whatever the text and the selection: each line of the block becomes what its rule says, with a
/// Change of its own, and has the colours of its new text.
TEST(BlockEditing, EachLineIsAnEditOfItsOwn) {
    const struct {
        const Operation& operation;
        std::size_t unselected;  // from the end of the selection back to its last line
        std::string (*ofLine)(std::string);
    } rules[] = {
        {kTab, 1, [](std::string line) { return '\t' + line; }},
        {kBackTab, 1,
         [](std::string line) { return line.substr(line.find_first_of("\t ") == 0 ? 1 : 0); }},
        {kComment, 0, [](std::string line) { return "//" + line; }},
        {kUnComment, 0,
         [](std::string line) {
             const std::size_t mark = line.find_first_not_of("\t ");
             const bool isComment = mark != line.npos && line.compare(mark, 2, "//") == 0;
             return isComment ? line.erase(mark, 2) : line;
         }},
    };
    for (const std::uint64_t seed : seeds(4)) {
        Random random(seed);
        Editor editor;
        applyScriptSyntax(editor, {"5", "1", "2", "3", "4"});
        const RichTextBox& box = editor.box();
        for (int round = 0; round < 400; ++round) {
            editor.onChange = nullptr;
            const std::size_t longLine = random.oneIn(4) ? 700 : 0;
            editor.SetText(random.text(random.below(60), "\t  //ab\n\n") +
                           random.text(longLine, " \tset//") + random.text(5, "\n/b"));
            const std::string text = editor.Text();
            editor.box().select(Offset(random.below(text.size() + 1)),
                                Offset(random.below(text.size() + 1)));
            const auto& rule = rules[random.below(std::size(rules))];
            const Range selection = box.selection();
            const LineIndex first = box.rope().lineOf(selection.begin());
            const LineIndex last = box.rope().lineOf(
                selection.empty() ? selection.end() : selection.end() - rule.unselected);
            if (last <= first) continue;
            std::string expected = text.substr(0, box.lineContent(first).begin().value());
            Long expectedChanges = 0;
            for (LineIndex line = first; line <= last; line = line + 1) {
                const std::string before = box.rope().bytes(box.lineContent(line));
                const std::string after = rule.ofLine(before);
                expectedChanges += after != before ? 1 : 0;
                expected += after + (line < last ? "\r\n" : "");
            }
            expected += text.substr(box.lineContent(last).end().value());
            SCOPED_TRACE("seed " + std::to_string(seed) + ", " +
                         testing::PrintToString(marked(box)));
            Long changes = 0;
            editor.onChange = [&changes] { ++changes; };
            rule.operation(editor);
            ASSERT_EQ(editor.Text(), expected);
            ASSERT_EQ(changes, expectedChanges);
            const std::string coloured = editor.TextRTF();
            editor.ReColorize();
            ASSERT_EQ(coloured, editor.TextRTF());
        }
    }
}

TEST(BlockEditing, HandlersMayTakeTheLinesAway) {
    const Operation hosts[] = {
        [](Editor& editor) { editor.SetText(""); },
        [](Editor& editor) { editor.box().userReplace(Range(Offset(3), Offset(99)), ""); },
        [](Editor& editor) { editor.box().userReplace(Range(Offset(0), Offset(9)), ""); },
    };
    for (const Operation& operation : {kEnter, kBrace, kTab, kBackTab, kComment, kUnComment}) {
        for (const Operation& host : hosts) {
            Editor editor;
            putMarked(editor.box(), "\r\n\t^//a\r\n\t//b\r\n//c|");
            bool within = false;
            editor.onChange = [&] {
                if (std::exchange(within, true)) return;
                host(editor);
                within = false;
            };
            EXPECT_NO_THROW(operation(editor));
            EXPECT_TRUE(editor.rtb().redraw());
            editor.box().checkInvariants();
        }
    }
}

/// Also when a handler lets the event loop run.
TEST(BlockEditing, TheScreenFollowsOnceAtTheEnd) {
    std::string text;
    for (int line = 0; line < 300; ++line) text += " a\r\n";
    Editor editor;
    editor.resize(400, 300);
    editor.show();
    for (const Operation& operation : {kTab, kBackTab, kComment}) {
        for (const bool everything : {false, true}) {
            editor.onChange = nullptr;
            editor.SetText(text);
            editor.SetSelLength(everything ? 5000 : 800);
            editor.LineScroll(-300);
            QCoreApplication::processEvents();
            const std::size_t layouts = editor.rtb().layoutsMade();
            std::size_t changes = 0;
            editor.onChange = [&] {
                ++changes;
                QCoreApplication::processEvents();
                EXPECT_EQ(editor.rtb().layoutsMade(), layouts);
            };
            operation(editor);
            QCoreApplication::processEvents();
            EXPECT_GE(changes, 200U);
            EXPECT_GT(editor.rtb().layoutsMade(), layouts);
            const std::size_t top = editor.rtb().firstVisibleLine().value();
            EXPECT_EQ(top > 100, !everything) << top;
        }
    }
}

}  // namespace
}  // namespace brindlex::test
