#pragma once

#include <QFont>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QRectF>

#include "platform/CodePage.h"
#include "platform/LineStyle.h"
#include "platform/text/RichTextBox.h"

namespace brindlex {

class ShortLine;

/// Puts text onto paper: within margins of an inch, page after page, in fonts of their size in
/// points. Lines wrap at the right margin.
class TextPrinter {
  public:
    /// All must outlive this object.
    TextPrinter(const RichTextBox& box, const CodePage& codePage, QPagedPaintDevice& device);

    void setFont(const QFont& font) { style_.setFont(font); }
    void setBulletIndent(double twips) { style_.setBulletIndent(twips); }
    /// False when the device cannot be painted on or refuses a further page.
    bool print(Range range);

  private:
    /// Where text may stand, in the painter's coordinates.
    QRectF textArea() const;
    bool printLine(Range content, ParagraphFormat paragraph);
    bool printRows(const ShortLine& line, std::size_t count);
    bool makeRoom(qreal height);

    const RichTextBox& box_;
    QPagedPaintDevice& device_;
    LineStyle style_;
    QPainter painter_;
    QRectF area_;
    qreal y_ = 0;
};

}  // namespace brindlex
