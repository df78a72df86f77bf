#pragma once

#include <QWidget>
#include <optional>
#include <string>
#include <string_view>

#include "view/RichTextView.h"

namespace brindlex {

/// A widget round one rich text view that forwards the view's properties and methods; only
/// SetSelStart does more. Their contracts stand with RichTextView and RichTextBox. What the view
/// has no use for is only stored: it has no menu of its own and no bullets, and never wraps a line.
class RichTextHost : public QWidget {
  public:
    explicit RichTextHost(QWidget* parent = nullptr) : QWidget(parent) {}

    RichTextView& rtb() { return rtb_; }
    const RichTextView& rtb() const { return rtb_; }
    RichTextBox& box() { return rtb_.box(); }
    const RichTextBox& box() const { return rtb_.box(); }

    // --- Appearance and state ------------------------------------------------------------------
    bool AutoVerbMenu() const { return autoVerbMenu_; }
    void SetAutoVerbMenu(bool on) { autoVerbMenu_ = on; }
    ColorValue BackColor() const { return rtb_.BackColor(); }
    void SetBackColor(ColorValue color) { rtb_.SetBackColor(color); }
    Long BorderStyle() const { return rtb_.BorderStyle(); }
    void SetBorderStyle(Long style) { rtb_.SetBorderStyle(style); }
    double BulletIndent() const { return bulletIndent_; }
    void SetBulletIndent(double twips) { bulletIndent_ = twips; }
    /// Of the view itself, whatever its parents are.
    bool Enabled() const { return !rtb_.testAttribute(Qt::WA_ForceDisabled); }
    void SetEnabled(bool on) { rtb_.setEnabled(on); }
    QString filename() const { return rtb_.FileName(); }
    void SetFilename(const QString& path) { rtb_.SetFileName(path); }
    QFont Font() const { return rtb_.Font(); }
    void SetFont(const QFont& font) { rtb_.SetFont(font); }
    bool HideSelection() const { return rtb_.HideSelection(); }
    void SetHideSelection(bool hide) { rtb_.SetHideSelection(hide); }
    bool Locked() const { return box().Locked(); }
    void SetLocked(bool locked) { box().SetLocked(locked); }
    Long MaxLength() const { return box().MaxLength(); }
    void SetMaxLength(Long length) { box().SetMaxLength(length); }
    QPixmap MouseIcon() const { return rtb_.MouseIcon(); }
    void SetMouseIcon(const QPixmap& icon) { rtb_.SetMouseIcon(icon); }
    Long MousePointer() const { return rtb_.MousePointer(); }
    void SetMousePointer(Long pointer) { rtb_.SetMousePointer(pointer); }
    double RightMargin() const { return rightMargin_; }
    void SetRightMargin(double twips) { rightMargin_ = twips; }

    // --- Text ----------------------------------------------------------------------------------
    std::string Text() const { return box().Text(); }
    std::string TextRTF() const { return box().TextRTF(); }

    // --- Character format of the selection; unset: mixed ----------------------------------------
    std::optional<bool> SelBold() const { return box().SelBold(); }
    void SetSelBold(bool on) { box().SetSelBold(on); }
    std::optional<bool> SelItalic() const { return box().SelItalic(); }
    void SetSelItalic(bool on) { box().SetSelItalic(on); }
    std::optional<bool> SelStrikethru() const { return box().SelStrikethru(); }
    void SetSelStrikethru(bool on) { box().SetSelStrikethru(on); }
    std::optional<bool> SelUnderline() const { return box().SelUnderline(); }
    void SetSelUnderline(bool on) { box().SetSelUnderline(on); }
    std::optional<ColorRef> SelColor() const { return box().SelColor(); }
    void SetSelColor(ColorRef color) { box().SetSelColor(color); }
    std::optional<bool> SelBullet() const { return box().SelBullet(); }
    void SetSelBullet(bool on) { box().SetSelBullet(on); }
    std::optional<Long> SelCharOffset() const { return box().SelCharOffset(); }
    void SetSelCharOffset(Long twips) { box().SetSelCharOffset(twips); }
    std::optional<bool> SelProtected() const { return box().SelProtected(); }
    void SetSelProtected(bool on) { box().SetSelProtected(on); }
    std::string SelRTF() const { return box().SelRTF(); }
    bool SetSelRTF(std::string_view rtf) { return box().SetSelRTF(rtf); }

    // --- Formats of the whole text ---------------------------------------------------------------
    Long SelAlignment() const { return box().SelAlignment(); }
    void SetSelAlignment(Long alignment) { box().SetSelAlignment(alignment); }
    Long SelIndent() const { return box().SelIndent(); }
    void SetSelIndent(Long twips) { box().SetSelIndent(twips); }
    Long SelHangingIndent() const { return box().SelHangingIndent(); }
    void SetSelHangingIndent(Long twips) { box().SetSelHangingIndent(twips); }
    Long SelRightIndent() const { return box().SelRightIndent(); }
    void SetSelRightIndent(Long twips) { box().SetSelRightIndent(twips); }
    Long SelTabCount() const { return box().SelTabCount(); }
    void SetSelTabCount(Long count) { box().SetSelTabCount(count); }
    Long SelTabs(Long index) const { return box().SelTabs(index); }
    void SetSelTabs(Long index, Long twips) { box().SetSelTabs(index, twips); }

    // --- Selection -----------------------------------------------------------------------------
    Long SelStart() const { return box().SelStart(); }
    /// Scrolls to the caret as well, even when it is there already.
    void SetSelStart(Long start) {
        box().SetSelStart(start);
        if (rtb_.redraw()) rtb_.ensureCaretVisible();
    }
    Long SelLength() const { return box().SelLength(); }
    void SetSelLength(Long length) { box().SetSelLength(length); }
    std::string SelText() const { return box().SelText(); }
    void SetSelText(std::string_view text) { box().SetSelText(text); }

    // --- Methods -------------------------------------------------------------------------------
    Long Find(std::string_view text, std::optional<Long> start = {}, std::optional<Long> end = {},
              Long options = 0) {
        return box().Find(text, start, end, options);
    }
    Long GetLineFromChar(Long offset) const { return box().GetLineFromChar(offset); }
    bool LoadFile(const QString& path, int fileType = 0) { return rtb_.LoadFile(path, fileType); }
    bool SaveFile(const QString& path, int flags = 0) const { return rtb_.SaveFile(path, flags); }
    /// A paged device starts its document by itself.
    void SelPrint(QPagedPaintDevice& device) const { rtb_.SelPrint(device); }
    void Span(std::string_view set, bool forward = true, bool negate = false) {
        box().Span(set, forward, negate);
    }
    void UpTo(std::string_view set, bool forward = true, bool negate = false) {
        box().UpTo(set, forward, negate);
    }
    void Refresh() { rtb_.Refresh(); }

  private:
    RichTextView rtb_{this};
    bool autoVerbMenu_ = false;
    double bulletIndent_ = 0;  // twips
    double rightMargin_ = 0;   // twips
};

}  // namespace brindlex
