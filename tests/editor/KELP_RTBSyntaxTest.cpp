#include <gtest/gtest.h>

#include <QKeySequence>
#include <QTest>
#include <functional>
#include <string>
#include <tuple>
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
            if (KeyCode == 16 || KeyCode == 17) return;  // Shift and Ctrl themselves
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
    const std::tuple<QString, int, Log, std::string> rows[] = {
        {"Ctrl+V", -1, {"paste"}, "a^bc|d"},
        {"Ctrl+X", -1, {"cut"}, "a^bc|d"},
        {"Shift+Ins", -1, {"KeyDown 45 1", "paste"}, "a^bc|d"},
        {"Ctrl+F5", -1, {"KeyDown 116 2"}, "a^bc|d"},
        {"Tab", -1, {"KeyDown 9 0", "SelChange 2", "Change"}, "a\t|d"},
        {"Tab", 9, {"KeyDown 9 0"}, "a^bc|d"},
        {"X", 88, {"KeyDown 88 0"}, "a^bc|d"},
        {"[", -1, {"KeyDown 219 0", "KeyPress 91", "SelChange 2", "Change"}, "a{|d"},
        {"Del", -1, {"KeyDown 46 0", "SelChange 1", "Change"}, "a|d"},
    };
    for (const auto& [name, consumedKey, events, after] : rows) {
        put("a^bc|d");
        consumed = consumedKey;
        const QKeyCombination key = QKeySequence::fromString(name)[0];
        QTest::keyClick(&editor.rtb(), key.key(), key.keyboardModifiers());
        EXPECT_EQ(log, events) << name.toStdString();
        EXPECT_EQ(marked(editor.box()), after) << name.toStdString();
    }
}

TEST_F(EditorEvents, AHostMayEditWithinChange) {
    const std::pair<std::function<void(KELP_RTBSyntax&)>, std::string> rows[] = {
        {[](auto& e) {
             e.SetSelText("gger");  // the rest of a word, selected
             e.SetSelStart(13);
             e.SetSelLength(4);
         },
         "set\r\ntrigger ^trig|ger\r\nwait"},
        {[](auto& e) { e.SetSelText(" \"a\r\nwait //b\r\nset"); },
         "set\r\ntrigger tri \"a\r\nwait //b\r\nset|\r\nwait"},
        {[](auto& e) { e.SetText("//"); }, "|//"},
        {[](auto& e) { e.SetText(""); }, "|"},
        {[](auto& e) { e.ReColorize(); }, "set\r\ntrigger tri|\r\nwait"},
    };
    for (const auto& [edit, after] : rows) {
        editor.onChange = nullptr;
        put("|\r\nwait");
        editor.ReColorize();
        editor.onChange = [&, within = false]() mutable {
            if (!std::exchange(within, true)) edit(editor);
        };
        editor.SetSelText("set\r\ntrigger tri");
        EXPECT_EQ(marked(editor.box()), after);
        expectColoured();
    }
}

// --- Properties and lines ------------------------------------------------------------------------

/// Texts have their own names as values and numbers their places, where no other value is needed.
TEST(SyntaxProperties, RoundTripInTheirOrder) {
    const QStringList keys =
        QString(
            "AutoVerbMenu BackColor BorderStyle BulletIndent Enabled HideSelection Locked "
            "MaxLength MousePointer RightMargin Text Font hWnd ForeColor Syntax_ReservedWords "
            "Syntax_ProceduresORFunctions Syntax_Delimiter Syntax_LogicalOperators "
            "Syntax_Operators Syntax_Objects Syntax_Constants ColorOf_Comments "
            "ColorOf_ReservedWords ColorOf_ProceduresORFunctions ColorOf_LogicalOperators "
            "ColorOf_Operators ColorOf_Objects ColorOf_Constants ColorOf_Strings "
            "ColorOf_Normal Syntax_StringChar Syntax_CommentChar")
            .split(' ');
    const QHash<QString, QVariant> others = {{"AutoVerbMenu", true},
                                             {"Enabled", false},
                                             {"HideSelection", false},
                                             {"Locked", true},
                                             {"BorderStyle", 0},
                                             {"RightMargin", 1e5},
                                             {"Text", "a\r\n' b"},
                                             {"Font", QFont("Courier New", 13)},
                                             {"Syntax_Constants", QString(QChar(0xE4))}};
    const auto valueOf = [&](const QString& key) {
        const QVariant plain = key.startsWith("Syntax_") ? QVariant(key) : keys.indexOf(key);
        return others.value(key, plain);
    };
    PropertyBag stored;
    for (const QString& key : keys) stored.writeProperty(key, valueOf(key), QVariant());
    KELP_RTBSyntax editor;
    editor.SetColorOf_Comments(9999);
    editor.ReadProperties(stored);
    // The text is coloured before the syntax is read.
    EXPECT_EQ(editor.box().formatAt(Offset(3)).color, 9999U);
    EXPECT_EQ(editor.ColorOf_Objects(), keys.indexOf("ColorOf_Objects"));
    EXPECT_EQ(editor.Syntax_Operators(), "Syntax_Operators");
    EXPECT_EQ(editor.Syntax_Constants(), "\xE4");

    PropertyBag written;
    editor.WriteProperties(written);
    const std::vector<QString> writtenKeys = written.keys();
    EXPECT_EQ(QStringList(writtenKeys.begin(), writtenKeys.end()), keys);
    for (const QString& key : keys)
        EXPECT_EQ(written.readProperty(key, QVariant()), valueOf(key)) << key.toStdString();

    editor.ReadProperties(PropertyBag());  // the defaults
    PropertyBag left;
    editor.WriteProperties(left);
    EXPECT_LE(left.keys().size(), 1U) << "the font";
    EXPECT_EQ(editor.ColorOf_Comments(), 49152);
    EXPECT_EQ(editor.Syntax_Delimiter(), "\r\n");
}

TEST(LineHelpers, CountFromOneAndFromTheLinesStart) {
    const std::tuple<std::string, Long, Long, Long, std::string> rows[] = {
        {"abc\r\n", 4, 1, 4, "abc"},  // between CR and LF
        {"abc\r\n", 5, 2, 0, ""},
        {std::string(70000, 'x'), 70000, 1, 70000, std::string(70000, 'x')},
        {"abc\r\n\r\nx", 2, 1, 2, "abc"},
    };
    KELP_RTBSyntax editor;
    for (const auto& [text, caret, line, column, lineText] : rows) {
        editor.SetText(text);
        editor.SetSelStart(caret);
        EXPECT_EQ(editor.GetCurrentLine(), line);
        EXPECT_EQ(editor.GetColumn(), column);
        EXPECT_EQ(editor.GetLineText(), lineText);
    }
    const Long numbers[] = {-1, 4, 6, -2, -2};
    for (Long line = 0; line < 5; ++line) EXPECT_EQ(editor.GetCharNr(line), numbers[line]);
}

}  // namespace
}  // namespace brindlex::test
