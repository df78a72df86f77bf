#pragma once

#include <QTextLayout>
#include <memory>
#include <optional>
#include <vector>

#include "platform/LineLayout.h"
#include "platform/LineStyle.h"
#include "platform/LongLinePlaces.h"
#include "platform/ParagraphGeometry.h"

namespace brindlex {

/// A line too long to be laid out whole: one row, of which only the pieces that show are laid out.
/// It does not wrap, and what it holds stands from left to right in the order of its bytes. It
/// follows edits and changes of format at the cost of the pieces that they touch.
class LongLine final : public LineLayout {
  public:
    /// The box of `line` and `style` must outlive this object.
    LongLine(const LineText& line, const LineStyle& style);

    std::size_t rowCount() const override { return 1; }
    Row row(std::size_t index) const override;
    qreal width() const override;
    qreal xOf(std::size_t column) const override;
    qreal preeditX(int cursor) const override;
    std::size_t columnAt(std::size_t row, qreal x) const override;
    std::optional<std::size_t> characterAt(std::size_t row, qreal x) const override;
    void paint(QPainter& painter, QPointF origin, const QRectF& clip,
               const LineSelection& selection, const HighlightColors& colors) const override;
    void moved(Offset begin) override;
    bool edited(Range content, std::size_t column, std::size_t removed,
                std::size_t inserted) override;
    bool formatChanged(std::size_t begin, std::size_t end,
                       const ParagraphFormat& paragraph) override;

  private:
    /// A stretch without tabs, and where its first character stands from the start of the text.
    struct Piece {
        std::size_t begin;
        std::size_t end;
        qreal left;
        std::unique_ptr<QTextLayout> layout;
    };

    /// The place in the text of a place in the line, less the preedit text, and the reverse.
    qreal inText(qreal x) const;
    qreal inLine(std::size_t column, qreal x) const;
    qreal baseline() const;
    Range rangeOf(std::size_t begin, std::size_t end) const;
    /// The pieces of a cell of the grid of columns, laid out if they are not yet.
    const std::vector<Piece>& cell(std::size_t index) const;
    std::vector<Piece> cut(std::size_t begin, std::size_t end) const;
    std::unique_ptr<QTextLayout> layOut(std::size_t begin, std::size_t end) const;
    /// Calls `paint(piece, left)` for the pieces that reach into an area, from the line's corner.
    template <typename Paint>
    void paintPieces(const QRectF& area, Paint&& paint) const;
    /// Where selected characters stand within an area.
    QRectF selectedPart(const LineSelection& selection, const QRectF& area) const;

    const RichTextBox& box_;
    const LineStyle& style_;
    Offset begin_;
    ParagraphFormat paragraph_;
    ParagraphGeometry geometry_;
    LongLinePlaces places_;
    std::unique_ptr<QTextLayout> preedit_;
    std::size_t preeditColumn_ = 0;
    qreal preeditWidth_ = 0;
    struct Cell {
        std::size_t index;
        std::vector<Piece> pieces;
    };
    mutable std::vector<Cell> cells_;  ///< those painted of late
};

}  // namespace brindlex
