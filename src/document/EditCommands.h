#pragma once

#include <QString>

namespace brindlex {

class Document;
class KELP_RTBSyntax;
struct Environment;

/// The commands that put text into the script or take it out. Each works on the selection and on
/// plain text alone.
class EditCommands {
  public:
    /// All outlive this object.
    EditCommands(const Environment& environment, KELP_RTBSyntax& editor, const Document& document)
        : environment_(environment), editor_(editor), document_(document) {}

    void funCut_Click();
    /// A selection that holds one half of a line break copies the whole break.
    void funCopy_Click();
    void funPaste_Click();
    void funDelete_Click();
    void funSelectAll_Click();
    void funInsMap_Click();
    void funInsTD_Click();
    /// Puts `text` in the place of the selection and selects it.
    void insert(const QString& text);

  private:
    const Environment& environment_;
    KELP_RTBSyntax& editor_;
    const Document& document_;
};

}  // namespace brindlex
