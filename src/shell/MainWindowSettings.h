#pragma once

namespace brindlex {

class KELP_RTBSyntax;

/// Gives the editor of the main window what distinguishes it from a new one: no border, no wrapping
/// of lines, a selection that always shows, its font, and three colours.
void applyMainWindowSettings(KELP_RTBSyntax& editor);

}  // namespace brindlex
