#include "platform/ShortLine.h"

#include <QTextOption>
#include <algorithm>
#include <cmath>

#include "platform/Recolored.h"

namespace brindlex {
namespace {

bool runsRightToLeft(QStringView text) {
    return std::any_of(text.begin(), text.end(), LineStyle::isRightToLeft);
}

}  // namespace

ShortLine::ShortLine(const LineText& line, const LineStyle& style)
    : style_(style),
      geometry_(line.paragraph, style),
      layout_(QString(), style.font(), style.device()),
      length_(line.content.length()) {
    if (line.preedit && !line.preedit->text.isEmpty()) {
        preeditColumn_ = line.preeditColumn;
        preeditLength_ = static_cast<int>(line.preedit->text.size());
    }
    setText(line);
    setFormats(line);
    setOptions();
    breakIntoRows(line.paragraph.alignment);
}

// --- Laying out ----------------------------------------------------------------------------------

void ShortLine::setText(const LineText& line) {
    QString text;
    text.reserve(static_cast<qsizetype>(length_) + preeditLength_);
    line.box.rope().visitPieces(line.content, [&](std::string_view piece) {
        style_.appendTo(text, piece);
        return true;
    });
    if (line.preedit != nullptr)
        text.insert(static_cast<qsizetype>(preeditColumn_), line.preedit->text);
    bidirectional_ = (style_.hasRightToLeft() || preeditLength_ > 0) && runsRightToLeft(text);
    layout_.setText(text);
}

void ShortLine::setFormats(const LineText& line) {
    QList<QTextLayout::FormatRange> formats;
    const auto add = [&](std::size_t begin, std::size_t end, const CharFormat& format) {
        QTextLayout::FormatRange range;
        range.start = inLayout(begin);
        range.length = inLayout(end - 1) + 1 - range.start;
        range.format = style_.charFormat(format);
        formats.append(range);
    };
    line.box.visitFormats(line.content, [&](Range run, const CharFormat& format) {
        makeRoom(format);
        const std::size_t begin = run.begin() - line.content.begin();
        const std::size_t end = run.end() - line.content.begin();
        const std::size_t cut = std::clamp(preeditColumn_, begin, end);
        if (begin < cut) add(begin, cut, format);
        if (cut < end) add(cut, end, format);
        return true;
    });
    addStandIns(line, formats);
    if (line.preedit != nullptr) {
        for (QTextLayout::FormatRange range : line.preedit->formats) {
            range.start += static_cast<int>(preeditColumn_);
            if (preeditLength_ > 0) formats.append(range);
        }
    }
    layout_.setFormats(formats);
}

void ShortLine::makeRoom(const CharFormat& format) {
    const qreal offset = style_.fromTwips(format.charOffset);
    offsets_.up = std::max(offsets_.up, offset);
    offsets_.down = std::max(offsets_.down, -offset);
}

void ShortLine::addStandIns(const LineText& line, QList<QTextLayout::FormatRange>& formats) const {
    QTextLayout::FormatRange range;
    range.length = 1;
    std::size_t column = 0;
    line.box.rope().visitPieces(line.content, [&](std::string_view piece) {
        for (const char byte : piece) {
            if (style_.isStandIn(static_cast<unsigned char>(byte))) {
                range.start = inLayout(column);
                range.format.setForeground(style_.standInColor());
                formats.append(range);
            }
            ++column;
        }
        return true;
    });
}

void ShortLine::setOptions() {
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(Qt::LeftToRight);
    option.setTabStopDistance(style_.tabDistance());
    option.setWrapMode(style_.wraps() ? QTextOption::WrapAtWordBoundaryOrAnywhere
                                      : QTextOption::NoWrap);
    QList<QTextOption::Tab> tabs;
    for (const qreal stop : geometry_.tabs)
        tabs.append(QTextOption::Tab(stop, QTextOption::LeftTab));
    option.setTabs(tabs);
    layout_.setTextOption(option);
    layout_.setCacheEnabled(true);
}

void ShortLine::breakIntoRows(Alignment alignment) {
    const qreal width = style_.wraps() ? style_.wrapWidth() : style_.availableWidth();
    layout_.beginLayout();
    for (QTextLine row = layout_.createLine(); row.isValid(); row = layout_.createLine()) {
        const qreal left = rows_.empty() ? geometry_.textLeft : geometry_.furtherLeft;
        const qreal room = width - left - geometry_.rightIndent;
        row.setLeadingIncluded(true);
        row.setLineWidth(style_.wraps() ? std::max(1.0, room) : kNoEnd);
        placeRow(row, alignment, left, room);
    }
    layout_.endLayout();
}

void ShortLine::placeRow(QTextLine row, Alignment alignment, qreal left, qreal room) {
    const qreal spare = std::max(0.0, room - row.naturalTextWidth());
    if (alignment == Alignment::Right) left += spare;
    if (alignment == Alignment::Center) left += spare / 2;
    PlacedRow placed;
    placed.textLeft = style_.wholePixels(left);
    placed.baseline = style_.wholePixels(row.ascent() + offsets_.up);
    placed.box.begin = fromLayout(row.textStart());
    placed.box.end = fromLayout(row.textStart() + row.textLength());
    placed.box.top = rows_.empty() ? 0 : rows_.back().box.top + rows_.back().box.height;
    placed.box.height =
        style_.wholePixels(placed.baseline + row.descent() + row.leading() + offsets_.down);
    placed.box.width = placed.textLeft + row.naturalTextWidth();
    row.setPosition({placed.textLeft, placed.box.top + placed.baseline - row.ascent()});
    width_ = std::max(width_, placed.box.width);
    rows_.push_back(placed);
}

// --- Places --------------------------------------------------------------------------------------

int ShortLine::inLayout(std::size_t column) const {
    const int shift = column >= preeditColumn_ ? preeditLength_ : 0;
    return static_cast<int>(column) + shift;
}

std::size_t ShortLine::fromLayout(int position) const {
    const std::size_t place = static_cast<std::size_t>(position);
    if (place <= preeditColumn_) return place;
    return std::max(preeditColumn_, place - static_cast<std::size_t>(preeditLength_));
}

int ShortLine::boundary(std::size_t column) const {
    return column == preeditColumn_ ? static_cast<int>(column) : inLayout(column);
}

qreal ShortLine::xOf(std::size_t column) const {
    return xInLayout(boundary(std::min(column, length_)));
}

qreal ShortLine::preeditX(int cursor) const {
    return xInLayout(static_cast<int>(preeditColumn_) + std::clamp(cursor, 0, preeditLength_));
}

qreal ShortLine::xInLayout(int position) const {
    const QTextLine row = layout_.lineForTextPosition(position);
    return row.isValid() ? row.cursorToX(position) : rows_.front().textLeft;
}

std::size_t ShortLine::columnAt(std::size_t row, qreal x) const {
    const QTextLine line = layout_.lineAt(static_cast<int>(row));
    int place = line.xToCursor(x);
    if (row + 1 == rows_.size()) return fromLayout(place);
    // the end of a row that is not the last is the start of the next one, and in the blanks before
    // it the toolkit knows no place but their end
    place = std::clamp(place, line.textStart(), line.textStart() + line.textLength() - 1);
    const auto distance = [&](int from) { return std::abs(line.cursorToX(from) - x); };
    while (place > line.textStart() && layout_.text().at(place - 1).isSpace() &&
           distance(place - 1) <= distance(place))
        --place;
    return fromLayout(place);
}

std::optional<std::size_t> ShortLine::characterAt(std::size_t row, qreal x) const {
    const PlacedRow& placed = rows_[row];
    if (x < placed.textLeft || x >= placed.box.width) return std::nullopt;
    const QTextLine line = layout_.lineAt(static_cast<int>(row));
    const std::size_t column = fromLayout(line.xToCursor(x, QTextLine::CursorOnCharacter));
    if (column >= placed.box.end) return std::nullopt;
    return column;
}

// --- Painting ------------------------------------------------------------------------------------

void ShortLine::paint(QPainter& painter, QPointF origin, const QRectF& clip,
                      const LineSelection& selection, const HighlightColors& colors) const {
    geometry_.paintBullet(painter, style_, origin, rows_.front().baseline);
    // raised and lowered text leaves the box in which the toolkit looks for its row
    layout_.draw(&painter, origin, {}, clip.adjusted(0, -offsets_.down, 0, offsets_.up));
    if (selection.empty()) return;
    const std::unique_ptr<QTextLayout> selected = recolored(layout_, colors.text);
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        for (const QRectF& part : selectedParts(row, selection)) {
            const QRectF area = part.translated(origin);
            if (!area.intersects(clip)) continue;
            painter.fillRect(area, colors.background);
            painter.save();
            painter.setClipRect(area, Qt::IntersectClip);
            selected->draw(&painter, origin, {}, area);
            painter.restore();
        }
    }
}

std::vector<QRectF> ShortLine::selectedParts(std::size_t row,
                                             const LineSelection& selection) const {
    std::vector<QRectF> parts;
    const Row& box = rows_[row].box;
    const std::size_t begin = std::max(selection.begin, box.begin);
    const std::size_t end = std::min(selection.end, box.end);
    const QTextLine line = layout_.lineAt(static_cast<int>(row));
    const auto add = [&](qreal a, qreal b) {
        const qreal left = style_.nearestPixel(std::min(a, b));
        const qreal right = style_.nearestPixel(std::max(a, b));
        if (!parts.empty() && parts.back().right() == left)
            parts.back().setRight(right);
        else if (left < right)
            parts.emplace_back(left, box.top, right - left, box.height);
    };
    if (begin < end && !bidirectional_)
        add(line.cursorToX(inLayout(begin)), line.cursorToX(boundary(end)));
    for (std::size_t column = begin; bidirectional_ && column < end; ++column) {
        const int position = inLayout(column);
        add(line.cursorToX(position), line.cursorToX(position, QTextLine::Trailing));
    }
    if (selection.lineBreak && row + 1 == rows_.size())
        add(box.width, box.width + style_.averageAdvance() / 2);
    return parts;
}

void ShortLine::paintRow(QPainter& painter, std::size_t row, QPointF origin) const {
    const QPointF corner = origin - QPointF(0, rows_[row].box.top);
    if (row == 0) geometry_.paintBullet(painter, style_, corner, rows_.front().baseline);
    layout_.lineAt(static_cast<int>(row)).draw(&painter, corner);
}

}  // namespace brindlex
