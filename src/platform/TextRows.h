#pragma once

#include <QRectF>
#include <compare>
#include <cstddef>

#include "platform/LineLayouts.h"
#include "platform/text/RichTextBox.h"

namespace brindlex {

/// A row of the text: a line, and which of its rows, 0-based.
struct RowPlace {
    LineIndex line;
    std::size_t row = 0;
    auto operator<=>(const RowPlace&) const = default;
};

/// The rows of a text from the one at the top of the view. Heights are logical pixels from the top
/// of the view. No line far from the view is ever laid out: what lies further than kExactLines
/// lines from it is placed by the height of a usual row.
class TextRows {
  public:
    /// All must outlive this object.
    TextRows(const RichTextBox& box, const LineStyle& style, LineLayouts& layouts)
        : box_(box), style_(style), layouts_(layouts) {}

    RowPlace top() const { return top_; }
    /// A place past the end becomes the last row.
    void setTop(RowPlace top) { top_ = clamped(top); }
    /// Keeps the same text at the top.
    void textChanged(const TextEdit& edit);

    RowPlace placeOf(Offset offset) const;
    RowPlace last() const;
    /// `rows` rows down (negative: up), or the first or last row.
    RowPlace moved(RowPlace from, Long rows) const;
    /// The top edge of a line.
    qreal yOf(LineIndex line) const;
    /// The character at an offset, in an average width where there is none; x is from the text's
    /// left edge. For the caret, while a text is being composed, the caret's place in that text.
    QRectF rectOf(Offset offset) const;
    /// The place at a height, cut to [0, height).
    RowPlace at(qreal y, qreal height) const;
    /// The lowest top row with which all of `place` lies above `height`, unless it is higher
    /// itself.
    RowPlace topShowing(RowPlace place, qreal height) const;
    /// The top row at which the end of the text stands at the bottom of the view.
    RowPlace lastTop(qreal height) const { return topShowing(last(), height); }

    /// Calls `visit(LineIndex, const LineLayout&, qreal y)` for the lines that show, from the top.
    /// Returns the lower edge of the last of them.
    template <typename Visit>
    qreal visit(qreal height, Visit&& visit) const;

  private:
    static constexpr std::size_t kExactLines = 256;

    LineIndex lastLine() const { return LineIndex(box_.rope().breakCount()); }
    RowPlace clamped(RowPlace place) const;
    /// How much of the top line lies above the view.
    qreal hiddenHeight() const;

    const RichTextBox& box_;
    const LineStyle& style_;
    LineLayouts& layouts_;
    RowPlace top_;
};

template <typename Visit>
qreal TextRows::visit(qreal height, Visit&& visit) const {
    LineIndex line = top_.line;
    qreal y = -hiddenHeight();
    for (; line <= lastLine() && y < height; line = line + 1) {
        const LineLayout& layout = layouts_.at(line);
        const qreal bottom = y + layout.height();
        visit(line, layout, y);
        y = bottom;
    }
    return y;
}

}  // namespace brindlex
