#include "platform/LongLine.h"

#include <QTextOption>
#include <algorithm>

#include "platform/Recolored.h"

namespace brindlex {
namespace {

constexpr std::size_t kCellColumns = 128;

std::unique_ptr<QTextLayout> oneRow(const QString& text, const LineStyle& style,
                                    const QList<QTextLayout::FormatRange>& formats) {
    auto layout = std::make_unique<QTextLayout>(text, style.font());
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    layout->setTextOption(option);
    layout->setFormats(formats);
    layout->setCacheEnabled(true);
    layout->beginLayout();
    QTextLine row = layout->createLine();
    row.setLineWidth(kNoEnd);
    row.setPosition({0, -row.ascent()});
    layout->endLayout();
    return layout;
}

}  // namespace

LongLine::LongLine(const LineText& line, const LineStyle& style)
    : box_(line.box),
      style_(style),
      begin_(line.content.begin()),
      paragraph_(line.paragraph),
      geometry_(line.paragraph, style),
      places_(line.box, style, line.content, geometry_.tabs) {
    if (!line.preedit || line.preedit->text.isEmpty()) return;
    preeditColumn_ = line.preeditColumn;
    preedit_ = oneRow(line.preedit->text, style_, line.preedit->formats);
    preeditWidth_ = preedit_->lineAt(0).naturalTextWidth();
}

// --- Changes -------------------------------------------------------------------------------------

void LongLine::moved(Offset begin) {
    begin_ = begin;
    places_.setBegin(begin);
}

bool LongLine::edited(Range content, std::size_t column, std::size_t removed,
                      std::size_t inserted) {
    if (preedit_ || content.length() <= style_.longLine()) return false;
    moved(content.begin());
    places_.edited(column, removed, inserted);
    std::erase_if(cells_,
                  [&](const Cell& cell) { return (cell.index + 1) * kCellColumns > column; });
    renumber();
    return true;
}

bool LongLine::formatChanged(std::size_t begin, std::size_t end, const ParagraphFormat& paragraph) {
    if (!(paragraph == paragraph_)) return false;
    if (begin == end) return true;
    places_.formatChanged(begin, end);
    // the cells behind may have moved
    std::erase_if(cells_,
                  [&](const Cell& cell) { return (cell.index + 1) * kCellColumns > begin; });
    renumber();
    return true;
}

// --- Places --------------------------------------------------------------------------------------

qreal LongLine::baseline() const {
    return style_.wholePixels(places_.ascent());
}

LineLayout::Row LongLine::row(std::size_t) const {
    const qreal height = style_.wholePixels(baseline() + places_.descent());
    return {0, places_.length(), 0, height, width()};
}

qreal LongLine::width() const {
    return geometry_.textLeft + places_.width() + preeditWidth_;
}

qreal LongLine::inText(qreal x) const {
    x -= geometry_.textLeft;
    if (!preedit_) return x;
    const qreal start = places_.xOf(preeditColumn_);
    return x > start ? std::max(start, x - preeditWidth_) : x;
}

qreal LongLine::inLine(std::size_t column, qreal x) const {
    return geometry_.textLeft + x + (preedit_ && column > preeditColumn_ ? preeditWidth_ : 0);
}

qreal LongLine::xOf(std::size_t column) const {
    return inLine(column, places_.xOf(column));
}

qreal LongLine::preeditX(int cursor) const {
    const qreal start = geometry_.textLeft + places_.xOf(preeditColumn_);
    return preedit_ ? start + preedit_->lineAt(0).cursorToX(cursor) : start;
}

std::size_t LongLine::columnAt(std::size_t, qreal x) const {
    const qreal place = inText(x);
    const std::size_t column = places_.columnCovering(place);
    if (column >= places_.length()) return places_.length();
    const bool nearerToEnd = places_.xOf(column + 1) - place < place - places_.xOf(column);
    return nearerToEnd ? column + 1 : column;
}

std::optional<std::size_t> LongLine::characterAt(std::size_t, qreal x) const {
    const qreal place = inText(x);
    const std::size_t column = places_.columnCovering(place);
    if (place < 0 || column >= places_.length()) return std::nullopt;
    return column;
}

// --- Pieces --------------------------------------------------------------------------------------

Range LongLine::rangeOf(std::size_t begin, std::size_t end) const {
    return {begin_ + begin, begin_ + end};
}

const std::vector<LongLine::Piece>& LongLine::cell(std::size_t index) const {
    for (const Cell& known : cells_)
        if (known.index == index) return known.pieces;
    constexpr std::size_t kKept = 64;
    if (cells_.size() >= kKept) cells_.clear();
    const std::size_t begin = index * kCellColumns;
    const std::size_t end = std::min(begin + kCellColumns, places_.length());
    cells_.push_back({index, cut(begin, end)});
    return cells_.back().pieces;
}

std::vector<LongLine::Piece> LongLine::cut(std::size_t begin, std::size_t end) const {
    std::vector<Piece> pieces;
    places_.visitFrom(begin, [&](std::size_t column, char byte, qreal left, qreal) {
        if (column >= end) return false;
        if (byte == '\t') return true;
        const bool goesOn = !pieces.empty() && pieces.back().end == column &&
                            !(preedit_ && column == preeditColumn_);
        if (goesOn)
            ++pieces.back().end;
        else
            pieces.push_back({column, column + 1, left, nullptr});
        return true;
    });
    for (Piece& piece : pieces) piece.layout = layOut(piece.begin, piece.end);
    return pieces;
}

std::unique_ptr<QTextLayout> LongLine::layOut(std::size_t begin, std::size_t end) const {
    QString text;
    QList<QTextLayout::FormatRange> formats;
    const auto add = [&](int start, int length) -> QTextCharFormat& {
        QTextLayout::FormatRange range;
        range.start = start;
        range.length = length;
        formats.append(range);
        return formats.back().format;
    };
    box_.visitFormats(rangeOf(begin, end), [&](Range run, const CharFormat& format) {
        add(static_cast<int>(run.begin() - (begin_ + begin)), static_cast<int>(run.length())) =
            style_.charFormat(format);
        return true;
    });
    box_.rope().visitPieces(rangeOf(begin, end), [&](std::string_view bytes) {
        for (std::size_t i = 0; i < bytes.size(); ++i)
            if (style_.isStandIn(static_cast<unsigned char>(bytes[i])))
                add(static_cast<int>(text.size()) + static_cast<int>(i), 1)
                    .setForeground(style_.standInColor());
        style_.appendTo(text, bytes);
        return true;
    });
    return oneRow(text, style_, formats);
}

// --- Painting ------------------------------------------------------------------------------------

void LongLine::paint(QPainter& painter, QPointF origin, const QRectF& clip,
                     const LineSelection& selection, const HighlightColors& colors) const {
    const QPointF start = origin + QPointF(geometry_.textLeft, baseline());
    geometry_.paintBullet(painter, style_, origin, baseline());
    paintPieces(clip.translated(-origin), [&](const Piece& piece, qreal left) {
        piece.layout->draw(&painter, start + QPointF(left, 0));
    });
    if (preedit_) preedit_->draw(&painter, start + QPointF(places_.xOf(preeditColumn_), 0));
    const QRectF selected = selectedPart(selection, clip.translated(-origin)).translated(origin);
    if (selected.isEmpty()) return;
    painter.fillRect(selected, colors.background);
    painter.save();
    painter.setClipRect(selected, Qt::IntersectClip);
    paintPieces(selected.translated(-origin), [&](const Piece& piece, qreal left) {
        recolored(*piece.layout, colors.text)->draw(&painter, start + QPointF(left, 0));
    });
    painter.restore();
}

template <typename Paint>
void LongLine::paintPieces(const QRectF& area, Paint&& paint) const {
    // glyphs may reach a little out of their own place
    const qreal slack = style_.averageAdvance();
    const std::size_t begin = places_.columnCovering(inText(area.left() - slack));
    const std::size_t end = places_.columnCovering(inText(area.right() + slack));
    const std::size_t last = std::min(end + 1, places_.length());
    for (std::size_t index = begin / kCellColumns; index * kCellColumns < last; ++index) {
        for (const Piece& piece : cell(index)) {
            const bool behindPreedit = preedit_ && piece.begin >= preeditColumn_;
            paint(piece, piece.left + (behindPreedit ? preeditWidth_ : 0));
        }
    }
}

QRectF LongLine::selectedPart(const LineSelection& selection, const QRectF& area) const {
    // what lies far to the right is not measured for a selection
    const std::size_t last = places_.columnCovering(inText(area.right()));
    if (selection.empty() || selection.begin > last) return {};
    const bool cut = selection.end > last;
    // at the preedit text a selection begins behind it
    const bool behind = preedit_ && selection.begin == preeditColumn_;
    const qreal left = xOf(selection.begin) + (behind ? preeditWidth_ : 0);
    const qreal stub = selection.lineBreak ? style_.averageAdvance() / 2 : 0;
    const qreal right = cut ? area.right() : xOf(selection.end) + stub;
    return QRectF(QPointF(style_.nearestPixel(left), 0),
                  QPointF(style_.nearestPixel(right), height())) &
           area;
}

}  // namespace brindlex
