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

}  // namespace
}  // namespace brindlex::test
