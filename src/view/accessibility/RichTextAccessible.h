#pragma once

#include <QAccessibleWidget>
#include <optional>

#include "text/TextUnits.h"
#include "text/Units.h"

namespace brindlex {

class RichTextBox;
class RichTextView;

/// Gives every RichTextView a RichTextAccessible. May be called any number of times.
void installRichTextAccessible();

/// A RichTextView as assistive technology sees it: an editable text of many lines. Offsets are
/// those of the box, a line break is the two characters CR LF and one step. -1 stands for the end
/// of the text, -2 for the caret; other offsets outside of the text give empty answers. An answer
/// costs what it returns; the value is the whole text.
class RichTextAccessible : public QAccessibleWidget,
                           public QAccessibleTextInterface,
                           public QAccessibleEditableTextInterface {
  public:
    explicit RichTextAccessible(RichTextView& view);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text kind, const QString& text) override;

    // --- Selection and caret -------------------------------------------------------------------
    void selection(int index, int* start, int* end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;

    // --- Text ----------------------------------------------------------------------------------
    QString text(int start, int end) const override;
    int characterCount() const override;
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                             int* end) const override;
    QString textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                         int* end) const override;
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                            int* end) const override;
    QString attributes(int offset, int* start, int* end) const override;

    // --- Geometry, in pixels of the screen -----------------------------------------------------
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int start, int end) override;

    // --- Editing; a locked box refuses -----------------------------------------------------------
    void deleteText(int start, int end) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int start, int end, const QString& text) override;

  private:
    RichTextView& view() const;
    RichTextBox& box() const;
    TextUnits units() const;
    Offset clamped(int offset) const;
    Range clamped(int start, int end) const;
    std::optional<Offset> resolved(int offset) const;
    Range formatRunAt(Offset offset) const;
    Range unitAt(Offset offset, QAccessible::TextBoundaryType type) const;
    QString report(Range range, int* start, int* end) const;
    QString textOf(Range range) const;
};

}  // namespace brindlex
