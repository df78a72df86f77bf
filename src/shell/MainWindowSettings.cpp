#include "shell/MainWindowSettings.h"

#include "editor/KELP_RTBSyntax.h"

namespace brindlex {

void applyMainWindowSettings(KELP_RTBSyntax& editor) {
    QFont font(QStringLiteral("Courier New"));
    font.setPointSizeF(9.75);
    editor.SetBorderStyle(0);
    editor.SetBulletIndent(1);
    editor.SetHideSelection(false);
    editor.SetRightMargin(100000);
    editor.SetFont(font);
    editor.SetColorOf_Comments(32768);
    editor.SetColorOf_ProceduresORFunctions(128);
    editor.SetColorOf_Constants(128);
}

}  // namespace brindlex
