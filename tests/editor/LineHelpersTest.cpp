#include <gtest/gtest.h>

#include "editor/KELP_RTBSyntax.h"

namespace brindlex::test {
namespace {

TEST(LineHelpers, CountFromOneAndFromTheLinesStart) {
    const struct {
        std::string text;
        Long caret, line, column;
        std::string lineText;
    } rows[] = {
        {"abc\r\n", 4, 1, 4, "abc"},  // between CR and LF
        {"abc\r\n", 5, 2, 0, ""},
        {"abc\r\ndef\r\n\r\ngh", 7, 2, 2, "def"},
        {std::string(70000, 'x'), 70000, 1, 70000, std::string(70000, 'x')},
        {"abc\r\n\r\nx", 0, 1, 0, "abc"},
    };
    KELP_RTBSyntax editor;
    for (const auto& row : rows) {
        editor.SetText(row.text);
        editor.SetSelStart(row.caret);
        EXPECT_EQ(editor.GetCurrentLine(), row.line);
        EXPECT_EQ(editor.GetColumn(), row.column);
        EXPECT_EQ(editor.GetLineText(), row.lineText);
    }
    const Long numbers[] = {-1, 4, 6, -2, -2};
    for (Long line = 0; line < 5; ++line) EXPECT_EQ(editor.GetCharNr(line), numbers[line]);
}

}  // namespace
}  // namespace brindlex::test
