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
    desktop_.setClipboardText(editor_.rtb().codePage().toUnicode(text));
}

void EditCommands::funPaste_Click() {
    editor_.SetSelText(editor_.rtb().codePage().fromUnicode(desktop_.clipboardText()));
}

void EditCommands::funDelete_Click() {
    editor_.SetSelText({});
}

void EditCommands::funSelectAll_Click() {
    editor_.SetSelStart(0);
    editor_.SetSelLength(static_cast<Long>(editor_.box().length()));
}

void EditCommands::insert(const QString& text) {
    const RichTextBox& box = editor_.box();
    const std::size_t kept = box.length() - box.selection().length();
    editor_.SetSelText(editor_.rtb().codePage().fromUnicode(text));
    // Counted, for line ends in the text may have become longer.
    const auto inserted = static_cast<Long>(box.length() - kept);
    editor_.SetSelStart(editor_.SelStart() - inserted);
    editor_.SetSelLength(inserted);
}

}  // namespace brindlex
