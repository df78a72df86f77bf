#include <gtest/gtest.h>

#include <QKeySequence>
#include <QTest>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "editor/KELP_RTBSyntax.h"
#include "editor/ScriptSyntax.h"
#include "support/MarkedText.h"

namespace brindlex::test {
namespace {

using Log = std::vector<std::string>;

/// A shown editor with the script language's syntax, whose events are written down.
class EditorEvents : public testing::Test {
  protected:
    EditorEvents() {
        applyScriptSyntax(editor, {"5", "1", "2", "3", "4"});
        editor.resize(600, 400);
        editor.show();
        editor.SetFocus();
        editor.setCommands(
            {[this] { log.emplace_back("undo"); }, [this] { log.emplace_back("copy"); },
             [this] { log.emplace_back("paste"); }, [this] { log.emplace_back("cut"); }});
        editor.onChange = [this] { log.emplace_back(editor.Colorizing() ? "Change!" : "Change"); };
        editor.onSelChange = [this] {
            log.push_back("SelChange " + std::to_string(editor.SelStart()));
        };
        editor.onKeyDown = [this](int& KeyCode, int Shift) {
            if (KeyCode == 17) return;  // the key Ctrl itself
            log.push_back("KeyDown " + std::to_string(KeyCode) + ' ' + std::to_string(Shift));
            if (KeyCode == consumed) KeyCode = 0;
        };
        editor.onKeyPress = [this](int& KeyAscii) {
            log.push_back("KeyPress " + std::to_string(KeyAscii));
            if (KeyAscii == '[') KeyAscii = '{';
        };
    }

    void put(const std::string& text) {
        putMarked(editor.box(), text);
        log.clear();
    }

    ColorRef colorAt(std::size_t offset) const {
        return editor.box().formatAt(Offset(offset)).color;
    }

    /// What an edit coloured is what the colouring of the whole text gives.
    void expectColoured() {
        EXPECT_FALSE(editor.Colorizing());
        EXPECT_TRUE(editor.rtb().redraw());
        editor.onChange = nullptr;
        const std::string found = editor.TextRTF();
        editor.ReColorize();
        EXPECT_EQ(found, editor.TextRTF());
    }

    KELP_RTBSyntax editor;
    Log log;
    int consumed = -1;
};

TEST_F(EditorEvents, ATypedCharacterReachesTheHostBeforeItIsColoured) {
    put("wai|");
    ColorRef seen = 0;
    editor.onChange = [&] {
        log.emplace_back("Change");
        seen = colorAt(0);
    };
    QTest::keyClick(&editor.rtb(), 't');
    EXPECT_EQ(log, (Log{"KeyDown 84 0", "KeyPress 116", "SelChange 4", "Change"}));
    EXPECT_EQ(seen, 5U);
    EXPECT_EQ(colorAt(0), 3U);
    EXPECT_EQ(editor.PrevSelStart(), 4);
    EXPECT_EQ(editor.CurSelStart(), 4);
}

TEST_F(EditorEvents, AssigningTextRaisesChangeForTheTextAndForTheColours) {
    put("one| two");
    editor.SetText("wait");
    EXPECT_EQ(log, (Log{"SelChange 0", "Change!", "SelChange 4", "Change", "SelChange 0"}));
    put("wai|t");
    EXPECT_TRUE(editor.SetTextRTF("{\\rtf1 set\\par wait}"));
    EXPECT_EQ(log, (Log{"SelChange 0", "Change!", "SelChange 9", "Change", "SelChange 0"}));
    EXPECT_EQ(colorAt(0), 4U);
    expectColoured();
}

TEST_F(EditorEvents, KeysOfTheControlsOwnAreNotTheHosts) {
    const struct {
        QString key;
        int consumed;
        Log log;
        std::string after;
    } rows[] = {
        {"Ctrl+V", -1, {"paste"}, "a^bc|d"},
        {"Ctrl+X", -1, {"cut"}, "a^bc|d"},
        {"Ctrl+F5", -1, {"KeyDown 116 2"}, "a^bc|d"},
        {"Tab", -1, {"KeyDown 9 0", "SelChange 2", "Change"}, "a\t|d"},
        {"Tab", 9, {"KeyDown 9 0"}, "a^bc|d"},
        {"X", 88, {"KeyDown 88 0"}, "a^bc|d"},
        {"[", -1, {"KeyDown 219 0", "KeyPress 91", "SelChange 2", "Change"}, "a{|d"},
        {"Del", -1, {"KeyDown 46 0", "SelChange 1", "Change"}, "a|d"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.key.toStdString());
        put("a^bc|d");
        consumed = row.consumed;
        const QKeyCombination key = QKeySequence::fromString(row.key)[0];
        QTest::keyClick(&editor.rtb(), key.key(), key.keyboardModifiers());
        EXPECT_EQ(log, row.log);
        EXPECT_EQ(marked(editor.box()), row.after);
    }
}

/// A control character may come without the key that made it.
TEST_F(EditorEvents, ControlCharactersRunTheCommands) {
    for (int character : {26, 3, 24, 22, 10}) editor.rtb().onKeyPress(character);
    EXPECT_EQ(log, (Log{"undo", "copy", "cut", "paste", "KeyPress 10"}));
    int character = 26;
    editor.setCommands({});
    editor.rtb().onKeyPress(character);
    EXPECT_EQ(character, 0);
    int key = 'Z';
    editor.rtb().onKeyDown(key, 3);
    EXPECT_EQ(log.back(), "KeyDown 90 3");
}

TEST_F(EditorEvents, AHostMayEditWithinChange) {
    const struct {
        const char* what;
        std::function<void(KELP_RTBSyntax&)> edit;
        std::string after;
    } rows[] = {
        {"insert the rest of a word and select it",
         [](KELP_RTBSyntax& e) {
             e.SetSelText("gger");
             e.SetSelStart(13);
             e.SetSelLength(4);
         },
         "set\r\ntrigger ^trig|ger\r\nwait"},
        {"insert lines", [](KELP_RTBSyntax& e) { e.SetSelText(" \"a\r\nwait //b\r\nset"); },
         "set\r\ntrigger tri \"a\r\nwait //b\r\nset|\r\nwait"},
        {"assign a shorter text", [](KELP_RTBSyntax& e) { e.SetText("//"); }, "|//"},
        {"empty the text", [](KELP_RTBSyntax& e) { e.SetText(""); }, "|"},
        {"colour it all", [](KELP_RTBSyntax& e) { e.ReColorize(); }, "set\r\ntrigger tri|\r\nwait"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        editor.onChange = nullptr;
        put("set\r\ntrigger tr|\r\nwait");
        editor.ReColorize();
        editor.onChange = [&, within = false]() mutable {
            if (!std::exchange(within, true)) row.edit(editor);
        };
        QTest::keyClick(&editor.rtb(), 'i');
        EXPECT_EQ(marked(editor.box()), row.after);
        expectColoured();
    }
}

}  // namespace
}  // namespace brindlex::test
