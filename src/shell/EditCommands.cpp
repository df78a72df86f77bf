#include "shell/EditCommands.h"

#include "editor/KELP_RTBSyntax.h"
#include "platform/CodePage.h"
#include "platform/Desktop.h"

namespace brindlex {

EditCommands::EditCommands(KELP_RTBSyntax& editor, Desktop& desktop)
    : editor_(editor), desktop_(desktop) {}

void EditCommands::funCut_Click() {
    funCopy_Click();
    editor_.SetSelText({});
}

void EditCommands::funCopy_Click() {
    std::string text = editor_.SelText();
    // Plain text on a clipboard of the toolkit has LF; the toolkit makes the system's of it.
    std::erase(text, '\r');
    desktop_.setClipboardText(CodePage::system().toUnicode(text));
}

void EditCommands::funPaste_Click() {
    editor_.SetSelText(CodePage::system().fromUnicode(desktop_.clipboardText()));
}

void EditCommands::insert(const QString& text) {
    const std::string bytes = CodePage::system().fromUnicode(text);
    const Long start = editor_.SelStart();
    editor_.SetSelText(bytes);
    editor_.SetSelStart(start);
    editor_.SetSelLength(static_cast<Long>(bytes.size()));
}

}  // namespace brindlex
