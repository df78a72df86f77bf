#include <gtest/gtest.h>

#include <QCoreApplication>
#include <functional>
#include <string>
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
    const struct {
        std::string name;
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
        {"Brace", kBrace, "\t |", "\t {\r\n\t|\r\n}"},
        {"Brace", kBrace, "\ta^bc|", "\ta{\r\n\t|\r\n}bc"},
        {"Brace", kBrace, "|a", "|a"},
        {"other keys", kOtherKeys, "\ta|", "\ta|"},
        {"Tab", kTab, "a\r\nb^c\r\nd\r\n|e", "a\r\n^\tbc\r\n\td\r\n|e"},
        {"Tab", kTab, "a\r\nb^c|d", "a\r\nb\t|d"},
        {"Tab", kTab, "^a\r\n|b", "\t|b"},
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
        {"UnComment", kUnComment, "^ \t// a\r\n\r\nb//c\r\n//|", "| \t a\r\n\r\nb//c\r\n"},
    };
    Editor editor;
    applyScriptSyntax(editor, {"5", "1", "2", "3", "4"});
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name + testing::PrintToString(row.before));
        putMarked(editor.box(), row.before);
        editor.ReColorize();
        row.operation(editor);
        const std::string coloured = editor.TextRTF();
        editor.ReColorize();
        EXPECT_EQ(coloured, editor.TextRTF());
        EXPECT_EQ(marked(editor.box()), row.after) << "colouring leaves the selection";
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
