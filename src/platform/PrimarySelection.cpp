#include "platform/PrimarySelection.h"

#include <QClipboard>
#include <QGuiApplication>

#include "platform/RichTextView.h"
#include "platform/TextMimeData.h"

namespace brindlex {

void offerPrimarySelection(const RichTextView& view) {
    const RichTextBox& box = view.box();
    QClipboard* clipboard = QGuiApplication::clipboard();
    if (box.selection().empty() || !clipboard->supportsSelection()) return;
    clipboard->setMimeData(new TextMimeData(box.rope(), box.selection(), view.codePage()),
                           QClipboard::Selection);
}

std::optional<QString> primarySelection() {
    const QClipboard* clipboard = QGuiApplication::clipboard();
    if (!clipboard->supportsSelection()) return std::nullopt;
    return clipboard->text(QClipboard::Selection);
}

}  // namespace brindlex
