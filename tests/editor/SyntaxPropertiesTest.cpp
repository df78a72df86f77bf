#include <gtest/gtest.h>

#include "editor/KELP_RTBSyntax.h"

namespace brindlex::test {
namespace {

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
    editor.ReadProperties(stored);
    EXPECT_EQ(editor.ColorOf_Objects(), keys.indexOf("ColorOf_Objects"));
    EXPECT_EQ(editor.Syntax_Operators(), "Syntax_Operators");
    EXPECT_EQ(editor.Syntax_Constants(), "\xE4");

    PropertyBag written;
    editor.WriteProperties(written);
    const std::vector<QString> writtenKeys = written.keys();
    EXPECT_EQ(QStringList(writtenKeys.begin(), writtenKeys.end()), keys);
    for (const QString& key : keys)
        EXPECT_EQ(written.readProperty(key, QVariant()), valueOf(key)) << key.toStdString();
}

TEST(SyntaxProperties, AnEmptyStoreGivesTheDefaults) {
    KELP_RTBSyntax editor;
    editor.SetColorOf_Comments(1);
    editor.SetBorderStyle(0);
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
    EXPECT_EQ(editor.box().formatAt(Offset(0)).color, 11U);
    EXPECT_EQ(editor.ColorOf_Comments(), 22);
}

}  // namespace
}  // namespace brindlex::test
