#include <QCursor>
#include <QFontInfo>

#include "platform/Files.h"
#include "platform/MousePointer.h"
#include "platform/RichTextView.h"
#include "platform/Scrolling.h"
#include "platform/TextPrinter.h"
#include "platform/Twips.h"

namespace brindlex {
namespace {

constexpr int kRichText = 0;

}  // namespace

bool RichTextView::AutoVerbMenu() const {
    return autoVerbMenu_;
}
void RichTextView::SetAutoVerbMenu(bool on) {
    autoVerbMenu_ = on;
}

ColorValue RichTextView::BackColor() const {
    return backColor_;
}

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

double RichTextView::BulletIndent() const {
    return bulletIndent_;
}

void RichTextView::SetBulletIndent(double twips) {
    bulletIndent_ = twips;
    appearanceChanged();
}

QString RichTextView::FileName() const {
    return fileName_;
}

void RichTextView::SetFileName(const QString& path) {
    if (!path.isEmpty()) LoadFile(path, kRichText);
    fileName_ = path;
}

QFont RichTextView::Font() const {
    return font_.value_or(font());
}

void RichTextView::SetFont(const QFont& font) {
    font_ = font;
    scrolling_->forgetWidths();
    setFont(font);  // for whoever asks the widget, as input methods do
    constexpr double kHalfPoints = 2;
    box_.setBaseFont(codePage_.fromUnicode(font.family()),
                     qRound(QFontInfo(font).pointSizeF() * kHalfPoints));
    appearanceChanged();
}

bool RichTextView::HideSelection() const {
    return hideSelection_;
}

void RichTextView::SetHideSelection(bool hide) {
    hideSelection_ = hide;
    changed();
}

QPixmap RichTextView::MouseIcon() const {
    return mouseIcon_;
}

void RichTextView::SetMouseIcon(const QPixmap& icon) {
    mouseIcon_ = icon;
    SetMousePointer(mousePointer_);
}

Long RichTextView::MousePointer() const {
    return mousePointer_;
}

void RichTextView::SetMousePointer(Long pointer) {
    mousePointer_ = pointer;
    const bool known = pointer > kDefaultPointer && pointer <= kLastPointer;
    if (pointer == kCustomPointer && !mouseIcon_.isNull())
        viewport()->setCursor(cursorOf(mouseIcon_));
    else
        viewport()->setCursor(known ? cursorOf(pointer) : Qt::IBeamCursor);
}

double RichTextView::RightMargin() const {
    return rightMargin_;
}

void RichTextView::SetRightMargin(double twips) {
    rightMargin_ = twips;
    fitStyle();
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
    TextPrinter printer(box_, codePage_, device);
    printer.setFont(Font());
    printer.setBulletIndent(bulletIndent_);
    printer.print(box_.selection().empty() ? whole : box_.selection());
}

}  // namespace brindlex
