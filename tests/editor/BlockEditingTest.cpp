#include <gtest/gtest.h>

#include <QCoreApplication>
#include <functional>
#include <string>
#include <tuple>
#include <utility>

#include "editor/KELP_RTBSyntax.h"
#include "editor/ScriptSyntax.h"
#include "support/MarkedText.h"

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
    const std::tuple<const Operation&, const char*, const char*> rows[] = {
        {kEnter, "\t\ta|", "\t\ta\r\n\t\t|"},
        {kEnter, "  a\r\n|\tb", "  a\r\n\r\n  |\tb"},
        {kEnter, "\t|\tb", "\t\r\n\t\t|\tb"},
        {kEnter, "a\r\n |", "a\r\n \r\n |"},
        {kEnter, " a^b\r\nc|d", " a\r\n |d"},
        {kEnter, "\ta\r|\n b", "\ta\r\n\t|\r\n b"},
        {kEnter, "^\ta|", "^\ta|"},
        {kBrace, "a\r\n\t|b", "a\r\n\t{\r\n\t\t|\r\n\t}b"},
        {kBrace, "\t |", "\t {\r\n\t|\r\n}"},
        {kBrace, "\ta^bc|", "\ta{\r\n\t|\r\n}bc"},
        {kBrace, "|a", "|a"},
        {kOtherKeys, "\ta|", "\ta|"},
        {kTab, "a\r\nb^c\r\nd\r\n|e", "a\r\n^\tbc\r\n\td\r\n|e"},
        {kTab, "a\r\nb^c|d", "a\r\nb\t|d"},
        {kTab, "^a\r\n|b", "\t|b"},
        {kBackTab, "\ta^\r\n  b|\r\nc", "^a\r\n b\r\n|c"},
        {kBackTab, "^\ta\r\n|\tb\r\n", "^a\r|\n\tb\r\n"},
        {kBackTab, "^\ta\r\n\tb\r\nc|\r\n", "a\r\nb\r\n|c\r\n"},
        {kBackTab, "|\ta\r\n", "|\ta\r\n"},
        {kBackTab, "x\r\n|\ta\r\nb", "x\r\n|a\r\nb"},
        {kBackTab, " a|\r\nb", "^a\r|\nb"},
        {kBackTab, "x\r\n a|", "x\r\n|a"},
        {kBackTab, "^\t|", "|"},
        {kBackTab, "ab|c\r\n", "|abc\r\n"},
        {kComment, "a\r\n\tb|c", "a\r\n//^\tb|c"},
        {kComment, "^a\r\n|b\r\nc", "^//a\r\n//|b\r\nc"},
        {kComment, "|", "^//|"},
        {kUnComment, "//a\r\n//b|", "//a\r\nb|"},
        {kUnComment, "^ \t// a\r\n\r\nb//c\r\n//|", "| \t a\r\n\r\nb//c\r\n"},
    };
    Editor editor;
    applyScriptSyntax(editor, {"5", "1", "2", "3", "4"});
    for (const auto& [operation, before, after] : rows) {
        putMarked(editor.box(), before);
        editor.ReColorize();
        operation(editor);
        const std::string coloured = editor.TextRTF();
        editor.ReColorize();
        EXPECT_EQ(coloured, editor.TextRTF()) << before;
        EXPECT_EQ(marked(editor.box()), after) << "from " << testing::PrintToString(before);
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
            editor.onChange = [&, within = false]() mutable {
                if (std::exchange(within, true)) return;
                host(editor);
                within = false;
            };
            operation(editor);
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
        editor.onChange = nullptr;
        editor.SetText(text);
        editor.SetSelLength(800);
        editor.LineScroll(-300);
        QCoreApplication::processEvents();
        std::size_t changes = 0;
        editor.onChange = [&] {
            QCoreApplication::processEvents();
            ++changes;
            EXPECT_FALSE(editor.rtb().redraw());
        };
        operation(editor);
        QCoreApplication::processEvents();
        EXPECT_GE(changes, 30U);
        EXPECT_TRUE(editor.rtb().redraw());
        EXPECT_GT(editor.rtb().firstVisibleLine().value(), 100U);
    }
}

}  // namespace
}  // namespace brindlex::test
