#include <gtest/gtest.h>

#include "editor/KELP_RTBSyntax.h"
#include "editor/MainWindowSettings.h"

namespace brindlex::test {
namespace {

/// A store that says no of everything else, so that each key is written.
TEST(SyntaxProperties, RoundTripInTheirOrder) {
    const std::vector<std::pair<QString, QVariant>> properties = {
        {"AutoVerbMenu", true},
        {"BackColor", 0xABCDEF},
        {"BorderStyle", 0},
        {"BulletIndent", 120.0},
        {"Enabled", false},
        {"HideSelection", false},
        {"Locked", true},
        {"MaxLength", 500},
        {"MousePointer", 2},
        {"RightMargin", 100000.0},
        {"Text", "wait\r\n' it"},
        {"Font", QFont("Courier New", 13)},
        {"hWnd", 7},
        {"ForeColor", 255},
        {"Syntax_ReservedWords", " one "},
        {"Syntax_ProceduresORFunctions", " two "},
        {"Syntax_Delimiter", " "},
        {"Syntax_LogicalOperators", " three "},
        {"Syntax_Operators", " four "},
        {"Syntax_Objects", " five "},
        {"Syntax_Constants", QString(QChar(0xE4))},
        {"ColorOf_Comments", 1},
        {"ColorOf_ReservedWords", 2},
        {"ColorOf_ProceduresORFunctions", 3},
        {"ColorOf_LogicalOperators", 4},
        {"ColorOf_Operators", 5},
        {"ColorOf_Objects", 6},
        {"ColorOf_Constants", 7},
        {"ColorOf_Strings", 8},
        {"ColorOf_Normal", 9},
        {"Syntax_StringChar", "''"},
        {"Syntax_CommentChar", "//"},
    };
    PropertyBag stored;
    for (const auto& [key, value] : properties) stored.writeProperty(key, value, QVariant());
    KELP_RTBSyntax editor;
    editor.ReadProperties(stored);
    EXPECT_EQ(editor.ColorOf_Objects(), 6);
    EXPECT_EQ(editor.Syntax_Operators(), " four ");
    EXPECT_EQ(editor.Syntax_Constants(), "\xE4");

    PropertyBag written;
    editor.WriteProperties(written);
    const std::vector<QString> keys = written.keys();
    ASSERT_EQ(keys.size(), properties.size());
    for (std::size_t i = 0; i < keys.size(); ++i) {
        EXPECT_EQ(keys[i], properties[i].first);
        EXPECT_EQ(written.readProperty(keys[i], QVariant()), properties[i].second)
            << keys[i].toStdString();
    }
}

TEST(SyntaxProperties, AnEmptyStoreGivesTheDefaults) {
    KELP_RTBSyntax editor;
    applyMainWindowSettings(editor);
    editor.SetSyntax_Delimiter(" ");
    editor.SetText("' a");
    editor.ReadProperties(PropertyBag());
    editor.SetFont(KELP_RTBSyntax().Font());
    PropertyBag written;
    editor.WriteProperties(written);
    for (const QString& key : written.keys()) EXPECT_EQ(key, "Font");
    EXPECT_EQ(editor.ColorOf_Comments(), 49152);
    EXPECT_EQ(editor.Syntax_Delimiter(), "\r\n");
}

/// The colouring of the stored text comes before the syntax is read.
TEST(SyntaxProperties, TheTextIsColouredWithTheSyntaxFromBefore) {
    KELP_RTBSyntax editor;
    editor.SetColorOf_Comments(11);
    PropertyBag stored;
    stored.writeProperty("Text", QString("'a"), QString());
    stored.writeProperty("ColorOf_Comments", 22, 0);
    int changes = 0;
    editor.onChange = [&changes] { ++changes; };
    editor.ReadProperties(stored);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(editor.rtb().box().formatAt(Offset(0)).color, 11U);
    EXPECT_EQ(editor.ColorOf_Comments(), 22);
}

}  // namespace
}  // namespace brindlex::test
