#pragma once

#include <QTextLayout>
#include <optional>
#include <vector>

#include "platform/LineLayout.h"
#include "platform/LineStyle.h"
#include "platform/ParagraphGeometry.h"

namespace brindlex {

/// A line laid out whole.
class ShortLine final : public LineLayout {
  public:
    /// `style` must outlive this object. Cost: in proportion to the line.
    ShortLine(const LineText& line, const LineStyle& style);

    std::size_t rowCount() const override { return rows_.size(); }
    Row row(std::size_t index) const override { return rows_[index].box; }
    qreal width() const override { return width_; }
    qreal xOf(std::size_t column) const override;
    qreal preeditX(int cursor) const override;
    std::size_t columnAt(std::size_t row, qreal x) const override;
    std::optional<std::size_t> characterAt(std::size_t row, qreal x) const override;
    void paint(QPainter& painter, QPointF origin, const QRectF& clip,
               const LineSelection& selection, const HighlightColors& colors) const override;
    /// One row as it goes onto paper, its top left corner at `origin`.
    void paintRow(QPainter& painter, std::size_t row, QPointF origin) const;

  private:
    struct PlacedRow {
        Row box;
        qreal textLeft;  ///< of the text's start
        qreal baseline;  ///< from the row's top
    };
    /// Room that raised and lowered characters take above and below their row.
    struct Offsets {
        qreal up = 0;
        qreal down = 0;
    };

    void setText(const LineText& line);
    void setFormats(const LineText& line);
    void makeRoom(const CharFormat& format);
    void addStandIns(const LineText& line, QList<QTextLayout::FormatRange>& formats) const;
    void setOptions();
    void breakIntoRows(Alignment alignment);
    /// `left` is the left edge of the row, `room` how much there is for its text.
    void placeRow(QTextLine row, Alignment alignment, qreal left, qreal room);

    /// Where the character of a column stands in the layout's text, which holds the preedit text
    /// too, and back.
    int inLayout(std::size_t column) const;
    std::size_t fromLayout(int position) const;
    /// As inLayout, but at the preedit text's column the place in front of it.
    int boundary(std::size_t column) const;
    qreal xInLayout(int position) const;
    /// Where the selected characters of a row stand, from the line's corner.
    std::vector<QRectF> selectedParts(std::size_t row, const LineSelection& selection) const;

    const LineStyle& style_;
    ParagraphGeometry geometry_;
    QTextLayout layout_;
    std::vector<PlacedRow> rows_;
    qreal width_ = 0;
    Offsets offsets_;
    std::size_t length_ = 0;
    std::size_t preeditColumn_ = 0;
    int preeditLength_ = 0;
    bool bidirectional_ = false;
};

}  // namespace brindlex
