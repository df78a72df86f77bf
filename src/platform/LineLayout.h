#pragma once

#include <QColor>
#include <QList>
#include <QPainter>
#include <QString>
#include <QTextLayout>
#include <cstdint>
#include <optional>

#include "platform/Preedit.h"
#include "platform/text/RichTextBox.h"

namespace brindlex {

/// The width of a row that is never cut: wider than all that is laid out at once, and far from the
/// limits of the layout's arithmetic.
inline constexpr qreal kNoEnd = 1e7;

/// What there is to lay out: one line of a box.
struct LineText {
    const RichTextBox& box;
    Range content;  ///< without the line break
    const ParagraphFormat& paragraph;
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

/// One line of text, laid out as one or more rows. Columns count bytes from the start of the line,
/// 0-based; places are in logical pixels from the line's top left corner. A column at which a row
/// ends and the next begins belongs to the next one.
class LineLayout {
  public:
    /// Columns [begin, end), and where the row lies. `width` goes from the line's left edge to the
    /// right end of the row's text.
    struct Row {
        std::size_t begin = 0;
        std::size_t end = 0;
        qreal top = 0;
        qreal height = 0;
        qreal width = 0;
    };

    LineLayout() = default;
    LineLayout(const LineLayout&) = delete;
    LineLayout& operator=(const LineLayout&) = delete;
    virtual ~LineLayout() = default;

    /// No two states of any layout have the same number; a layout that takes an edit gets a new
    /// one.
    std::uint64_t serial() const { return serial_; }
    virtual std::size_t rowCount() const = 0;
    virtual Row row(std::size_t index) const = 0;
    std::size_t rowOf(std::size_t column) const;
    /// The row that holds a height, cut at both ends.
    std::size_t rowAt(qreal y) const;
    qreal height() const;
    /// The right end of the widest row; an estimate for what of a long line was not yet seen.
    virtual qreal width() const = 0;
    /// The left edge of a column (of its row's text where it is the end). A preedit text at the
    /// column lies behind this place.
    virtual qreal xOf(std::size_t column) const = 0;
    /// The place of the caret in the preedit text.
    virtual qreal preeditX(int cursor) const = 0;
    /// The column nearest to `x` in a row.
    virtual std::size_t columnAt(std::size_t row, qreal x) const = 0;
    /// The column of the character that covers `x` in a row, if any does.
    virtual std::optional<std::size_t> characterAt(std::size_t row, qreal x) const = 0;
    /// Paints what lies within `clip`, with the line's corner at `origin`; both in the painter's
    /// coordinates.
    virtual void paint(QPainter& painter, QPointF origin, const QRectF& clip,
                       const LineSelection& selection, const HighlightColors& colors) const = 0;

    // --- Following a change of the line; true when the layout could --------------------------
    /// The line's first byte now has another offset.
    virtual void moved(Offset /*begin*/) {}
    virtual bool edited(Range /*content*/, std::size_t /*column*/, std::size_t /*removed*/,
                        std::size_t /*inserted*/) {
        return false;
    }
    virtual bool formatChanged(std::size_t /*begin*/, std::size_t /*end*/,
                               const ParagraphFormat& /*paragraph*/) {
        return false;
    }

  protected:
    void renumber() { serial_ = nextSerial(); }

  private:
    static std::uint64_t nextSerial();
    std::uint64_t serial_ = nextSerial();
};

}  // namespace brindlex
