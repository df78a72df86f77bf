#pragma once

#include <QString>

namespace brindlex {

class Desktop;
class KELP_RTBSyntax;

/// The commands that put text into the script or take it out. Each works on the selection and on
/// plain text alone.
class EditCommands {
  public:
    EditCommands(KELP_RTBSyntax& editor, Desktop& desktop);

    void funCut_Click();
    void funCopy_Click();
    void funPaste_Click();
    void funDelete_Click();
    void funSelectAll_Click();
    /// Puts `text` in the place of the selection and leaves it selected.
    void insert(const QString& text);

  private:
    KELP_RTBSyntax& editor_;
    Desktop& desktop_;
};

}  // namespace brindlex
