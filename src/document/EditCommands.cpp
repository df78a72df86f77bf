#include "document/EditCommands.h"

#include <QLocale>
#include <memory>
#include <string>
#include <utility>

#include "document/Document.h"
#include "document/Environment.h"
#include "editor/KELP_RTBSyntax.h"
#include "system/CodePage.h"
#include "system/Desktop.h"
#include "text/LineEnds.h"
#include "view/TextMimeData.h"

namespace brindlex {

void EditCommands::funCut_Click() {
    funCopy_Click();
    editor_.SetSelText({});
}

void EditCommands::funCopy_Click() {
    const RichTextBox& box = editor_.box();
    const Range range = box.wholeBreaks(box.selection());
    std::unique_ptr<TextMimeData> data;
    if (!range.empty())
        data = std::make_unique<TextMimeData>(box.rope(), range, editor_.rtb().codePage());
    environment_.desktop.setClipboard(std::move(data));
}

void EditCommands::funPaste_Click() {
    editor_.SetSelText(editor_.rtb().codePage().fromUnicode(environment_.desktop.clipboardText()));
}

void EditCommands::funDelete_Click() {
    editor_.SetSelText({});
}

void EditCommands::funSelectAll_Click() {
    editor_.SetSelStart(0);
    editor_.SetSelLength(static_cast<Long>(editor_.box().length()));
}

void EditCommands::funInsMap_Click() {
    if (!document_.FileTitle().isEmpty()) return insert(document_.baseName());
    environment_.desktop.showBox(editor_.window(),
                                 {.text = QStringLiteral("Load or save your script first."),
                                  .title = QStringLiteral("Load"),
                                  .icon = BoxIcon::Information,
                                  .buttons = BoxButtons::Ok});
}

void EditCommands::funInsTD_Click() {
    const QDate today = environment_.desktop.now().date();
    insert(QLocale::system().toString(today, QLocale::ShortFormat));
}

void EditCommands::insert(const QString& text) {
    // a handler of the edit may edit as well, so start and length are known before it
    const RichTextBox& box = editor_.box();
    const Offset start = box.wholeBreaks(box.selection()).begin();
    std::string storage;
    const std::string bytes = editor_.rtb().codePage().fromUnicode(text);
    const std::string_view inserted = withCrLf(bytes, storage);
    editor_.SetSelText(inserted);
    editor_.SetSelStart(static_cast<Long>(start.value()));
    editor_.SetSelLength(static_cast<Long>(inserted.size()));
}

}  // namespace brindlex
