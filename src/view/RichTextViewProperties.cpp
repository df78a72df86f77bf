#include <QCursor>
#include <QFontInfo>
#include <QPagedPaintDevice>
#include <QTextCursor>
#include <QTextDocument>

#include "system/Files.h"
#include "system/MousePointer.h"
#include "system/Twips.h"
#include "view/RichTextView.h"
#include "view/Scrolling.h"
#include "view/layout/LayoutContext.h"

namespace brindlex {
namespace {

constexpr int kRichText = 0;

}  // namespace

void RichTextView::SetBackColor(ColorValue color) {
    backColor_ = color;
    appearanceChanged();
}

Long RichTextView::BorderStyle() const {
    return frameShape() == NoFrame ? 0 : 1;
}

void RichTextView::SetBorderStyle(Long style) {
    setFrameStyle(style == 0 ? QFrame::NoFrame : QFrame::StyledPanel | QFrame::Sunken);
}

void RichTextView::SetFileName(const QString& path) {
    if (!path.isEmpty()) LoadFile(path, kRichText);
    fileName_ = path;
}

void RichTextView::SetFont(const QFont& font) {
    font_ = font;
    scrolling_->forgetWidths();
    setFont(font);  // for whoever asks the widget, as input methods do
    appearanceChanged();
}

void RichTextView::SetHideSelection(bool hide) {
    hideSelection_ = hide;
    changed();
}

void RichTextView::SetMouseIcon(const QPixmap& icon) {
    mouseIcon_ = icon;
    SetMousePointer(mousePointer_);
}

void RichTextView::SetMousePointer(Long pointer) {
    mousePointer_ = pointer;
    viewport()->setCursor(cursorOf(pointer, mouseIcon_).value_or(Qt::IBeamCursor));
}

bool RichTextView::LoadFile(const QString& path, int type) {
    const std::optional<std::string> bytes = Files::read(path);
    if (!bytes) return false;
    if (type != kRichText)
        box_.SetText(*bytes);
    else if (!box_.SetTextRTF(*bytes))
        return false;
    fileName_ = path;
    return true;
}

bool RichTextView::SaveFile(const QString& path, int type) const {
    return Files::write(path, type == kRichText ? box_.TextRTF() : box_.Text());
}

void RichTextView::SelPrint(QPagedPaintDevice& device) const {
    const Range whole{Offset(0), Offset(box_.length())};
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    document.setDefaultFont(context_->font());
    QTextCursor cursor(&document);
    const auto append = [&](Range run, const CharFormat& format) {
        QTextCharFormat colored;
        colored.setForeground(ColorValue(format.color).resolve(palette()));
        cursor.insertText(codePage_.toUnicode(box_.rope().bytes(run)).remove(u'\r'), colored);
        return true;
    };
    box_.visitFormats(box_.selection().empty() ? whole : box_.selection(), append);
    document.print(&device);
}

}  // namespace brindlex
