#pragma once

#include <QColor>
#include <QPainter>
#include <QTextLayout>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "text/RichTextBox.h"
#include "view/layout/LayoutContext.h"
#include "view/layout/LineBlocks.h"
#include "view/layout/Preedit.h"

namespace brindlex {

/// What there is to lay out: one line of a box.
struct LineText {
    const RichTextBox& box;
    Range content;                     ///< without the line break
    const Preedit* preedit = nullptr;  ///< null or empty: none in this line
    std::size_t preeditColumn = 0;
};

/// The part of a line that shows as selected: columns, half-open, and whether its break is in it.
struct LineSelection {
    std::size_t begin = 0;
    std::size_t end = 0;
    bool lineBreak = false;
    bool empty() const { return begin == end && !lineBreak; }
    bool operator==(const LineSelection&) const = default;
};

struct HighlightColors {
    QColor background;
    QColor text;
};

/// One line of text, laid out block by block (LineBlocks) where somebody looks. It has one row,
/// context.rowHeight() high, and never wraps. Columns count bytes from the start of the line,
/// 0-based; places are in logical pixels from the line's top left corner. A preedit text is shown
/// in front of the character at its column.
class LineLayout {
  public:
    /// The box of `line`, its preedit and `context` must outlive this object.
    LineLayout(const LineText& line, const LayoutContext& context);
    LineLayout(const LineLayout&) = delete;
    LineLayout& operator=(const LineLayout&) = delete;

    /// The number of the line's present look. A change gives a new one; no two lines share one.
    std::uint64_t serial() const { return serial_; }
    /// The right end; an estimate for what of a long line was not yet seen.
    qreal width() const { return blocks_.width(); }
    /// The left edge of a column.
    qreal xOf(std::size_t column) const;
    /// The place of the caret in the preedit text.
    qreal preeditX(int cursor) const;
    /// The column nearest to a place.
    std::size_t columnAt(qreal x) const;
    /// The column of the character that covers a place, if any does.
    std::optional<std::size_t> characterAt(qreal x) const;
    /// Paints what lies within `clip`, with the line's corner at `origin`; both in the painter's
    /// coordinates.
    void paint(QPainter& painter, QPointF origin, const QRectF& clip,
               const LineSelection& selection, const HighlightColors& colors) const;

    // --- Following changes -----------------------------------------------------------------------
    /// The line stands elsewhere in the text.
    void moved(Range content) { line_.content = content; }
    /// Bytes of the line were replaced. Not for a line with a preedit.
    void edited(Range content, std::size_t column, std::size_t removed, std::size_t inserted);
    void recolored() { serial_ = nextSerial(); }

  private:
    enum class Kind { Text, StandIns, Tab, Preedit };
    /// A stretch of one kind, [left, right); the columns of a preedit are empty.
    struct Piece {
        Kind kind;
        std::size_t begin;
        std::size_t end;
        qreal left;
        qreal right;
        std::shared_ptr<QTextLayout> layout;  ///< one row on its baseline; null for a tab

        qreal xOf(std::size_t column) const;
    };
    /// The pieces of a block, in order and without gaps.
    struct Block {
        LineBlocks::Block place;
        std::vector<Piece> pieces;
    };

    static std::uint64_t nextSerial();
    const Block& block(const LineBlocks::Block& place) const;
    std::vector<Piece> cut(const LineBlocks::Block& place) const;
    void layOut(Piece& piece) const;
    const Piece* pieceCovering(qreal x) const;
    /// Calls `visit(const Piece&)` for the pieces that reach into [left, right].
    template <typename Visit>
    void visitPieces(qreal left, qreal right, Visit&& visit) const;
    /// Paints the text that reaches into `area`, in its own colours or in `color`.
    void paintText(QPainter& painter, QPointF origin, const QRectF& area,
                   const std::optional<QColor>& color) const;
    void paintColored(QPainter& painter, QPointF place, const Piece& piece) const;
    /// Where the selected characters within an area stand.
    std::vector<QRectF> selectedParts(const LineSelection& selection, const QRectF& area) const;

    const LayoutContext& context_;
    LineText line_;
    std::shared_ptr<QTextLayout> preedit_;
    LineBlocks blocks_;
    mutable std::vector<Block> laidOut_;  ///< the blocks that were looked at of late
    std::uint64_t serial_ = nextSerial();
};

}  // namespace brindlex
