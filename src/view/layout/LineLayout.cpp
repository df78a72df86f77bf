#include "view/layout/LineLayout.h"

#include <QGlyphRun>
#include <QTextOption>
#include <algorithm>
#include <atomic>

namespace brindlex {
namespace {

/// One row of text that begins at the origin, on its baseline.
std::shared_ptr<QTextLayout> oneRow(const QString& text, const LayoutContext& context,
                                    const QList<QTextLayout::FormatRange>& formats = {}) {
    auto layout = std::make_shared<QTextLayout>(text, context.font());
    QTextOption option(Qt::AlignLeft | Qt::AlignAbsolute);
    option.setTextDirection(Qt::LeftToRight);
    option.setWrapMode(QTextOption::NoWrap);
    layout->setTextOption(option);
    layout->setFormats(formats);
    layout->setCacheEnabled(true);
    layout->beginLayout();
    QTextLine row = layout->createLine();
    constexpr qreal kNoEnd = 1e7;  // within what the layout's arithmetic can hold
    row.setLineWidth(kNoEnd);
    row.setPosition({0, -row.ascent()});
    layout->endLayout();
    return layout;
}

std::shared_ptr<QTextLayout> preeditRow(const LineText& line, const LayoutContext& context) {
    if (!line.preedit || line.preedit->text.isEmpty()) return nullptr;
    return oneRow(line.preedit->text, context, line.preedit->formats);
}

LineGap gapFor(const LineText& line, const QTextLayout* preedit) {
    if (!preedit) return {};
    return {line.preeditColumn, preedit->lineAt(0).horizontalAdvance()};
}

void drawGlyphs(QPainter& painter, QPointF place, const QTextLayout& layout, std::size_t begin,
                std::size_t count) {
    for (const QGlyphRun& run : layout.glyphRuns(static_cast<int>(begin), static_cast<int>(count)))
        painter.drawGlyphRun(place, run);
}

}  // namespace

LineLayout::LineLayout(const LineText& line, const LayoutContext& context)
    : context_(context),
      line_(line),
      preedit_(preeditRow(line, context)),
      blocks_(line_.box.rope(), line_.content, context_, gapFor(line_, preedit_.get())) {}

std::uint64_t LineLayout::nextSerial() {
    static std::atomic<std::uint64_t> last = 0;
    return ++last;
}

void LineLayout::edited(Range content, std::size_t column, std::size_t removed,
                        std::size_t inserted) {
    line_.content = content;
    blocks_.edited(column, removed, inserted);
    // the blocks behind the column may have moved
    std::erase_if(laidOut_, [&](const Block& block) { return block.place.end >= column; });
    serial_ = nextSerial();
}

// --- Pieces --------------------------------------------------------------------------------------

const LineLayout::Block& LineLayout::block(const LineBlocks::Block& place) const {
    for (const Block& known : laidOut_)
        if (known.place.begin == place.begin && known.place.end == place.end) return known;
    constexpr std::size_t kMost = 16;  // more than the widest window shows
    if (laidOut_.size() >= kMost) laidOut_.clear();
    laidOut_.push_back({place, cut(place)});
    return laidOut_.back();
}

std::vector<LineLayout::Piece> LineLayout::cut(const LineBlocks::Block& place) const {
    std::vector<Piece> pieces;
    const auto append = [&](Kind kind, std::size_t begin, std::size_t end) {
        pieces.push_back({kind, begin, end, 0, 0, nullptr});
    };
    const auto appendPreeditAt = [&](std::size_t column) {
        if (preedit_ && column == line_.preeditColumn) append(Kind::Preedit, column, column);
    };
    std::size_t column = place.begin;
    const Range range{line_.content.begin() + place.begin, line_.content.begin() + place.end};
    line_.box.rope().visitPieces(range, [&](std::string_view bytes) {
        for (const char byte : bytes) {
            appendPreeditAt(column);
            const bool standIn = context_.isStandIn(static_cast<unsigned char>(byte));
            const Kind kind = byte == '\t' ? Kind::Tab : standIn ? Kind::StandIns : Kind::Text;
            if (kind == Kind::Tab || pieces.empty() || pieces.back().kind != kind)
                append(kind, column, column);
            pieces.back().end = ++column;
        }
        return true;
    });
    if (column == line_.content.length()) appendPreeditAt(column);
    qreal left = place.left;
    for (Piece& piece : pieces) {
        piece.left = left;
        layOut(piece);
        left = piece.right;
    }
    return pieces;
}

void LineLayout::layOut(Piece& piece) const {
    if (piece.kind == Kind::Tab) {
        piece.right = context_.nextTabStop(piece.left);
        return;
    }
    const Offset begin = line_.content.begin() + piece.begin;
    const auto glyphs = [&] {
        return context_.glyphText(
            line_.box.rope().bytes(Range::at(begin, piece.end - piece.begin)));
    };
    piece.layout = piece.kind == Kind::Preedit ? preedit_ : oneRow(glyphs(), context_);
    piece.right = piece.left + piece.layout->lineAt(0).horizontalAdvance();
}

const LineLayout::Piece* LineLayout::pieceCovering(qreal x) const {
    const std::vector<Piece>& pieces = block(blocks_.covering(x)).pieces;
    const auto found = std::partition_point(pieces.begin(), pieces.end(),
                                            [&](const Piece& piece) { return piece.right <= x; });
    return found == pieces.end() ? nullptr : &*found;
}

template <typename Visit>
void LineLayout::visitPieces(qreal left, qreal right, Visit&& visit) const {
    LineBlocks::Block place = blocks_.covering(left);
    for (;;) {
        for (const Piece& piece : block(place).pieces)
            if (piece.left <= right && piece.right >= left) visit(piece);
        if (place.end >= line_.content.length()) return;
        place = blocks_.at(place.end);
        if (place.left > right) return;
    }
}

// --- Places --------------------------------------------------------------------------------------

qreal LineLayout::Piece::xOf(std::size_t column) const {
    if (!layout) return column > begin ? right : left;
    return left + layout->lineAt(0).cursorToX(static_cast<int>(column - begin));
}

qreal LineLayout::xOf(std::size_t column) const {
    const Block& place = block(blocks_.at(std::min(column, line_.content.length())));
    const auto inFront = [&](const Piece& piece) {
        return piece.begin < column && piece.end <= column;
    };
    const auto found = std::partition_point(place.pieces.begin(), place.pieces.end(), inFront);
    if (found != place.pieces.end()) return found->xOf(column);
    return place.pieces.empty() ? place.place.left : place.pieces.back().right;
}

qreal LineLayout::preeditX(int cursor) const {
    const qreal left = xOf(line_.preeditColumn);
    return preedit_ ? left + preedit_->lineAt(0).cursorToX(cursor) : left;
}

std::size_t LineLayout::columnAt(qreal x) const {
    const Piece* piece = pieceCovering(x);
    if (!piece) return blocks_.covering(x).end;
    switch (piece->kind) {
        case Kind::Preedit:
            return piece->begin;
        case Kind::Tab:
            return x - piece->left < piece->right - x ? piece->begin : piece->end;
        default:
            return piece->begin +
                   static_cast<std::size_t>(piece->layout->lineAt(0).xToCursor(x - piece->left));
    }
}

std::optional<std::size_t> LineLayout::characterAt(qreal x) const {
    const Piece* piece = pieceCovering(x);
    if (x < 0 || !piece || piece->kind == Kind::Preedit) return std::nullopt;
    if (piece->kind == Kind::Tab) return piece->begin;
    const QTextLine row = piece->layout->lineAt(0);
    return piece->begin +
           static_cast<std::size_t>(row.xToCursor(x - piece->left, QTextLine::CursorOnCharacter));
}

// --- Painting ------------------------------------------------------------------------------------

void LineLayout::paint(QPainter& painter, QPointF origin, const QRectF& clip,
                       const LineSelection& selection, const HighlightColors& colors) const {
    const QRectF area = clip.translated(-origin);
    paintText(painter, origin, area, std::nullopt);
    for (const QRectF& part : selectedParts(selection, area)) {
        // the same text once more on top: a glyph may stand partly in the selection
        painter.fillRect(part.translated(origin), colors.background);
        painter.save();
        painter.setClipRect(part.translated(origin), Qt::IntersectClip);
        paintText(painter, origin, part, colors.text);
        painter.restore();
    }
}

void LineLayout::paintText(QPainter& painter, QPointF origin, const QRectF& area,
                           const std::optional<QColor>& color) const {
    // glyphs may reach a little out of their own place
    const qreal slack = context_.averageAdvance();
    visitPieces(area.left() - slack, area.right() + slack, [&](const Piece& piece) {
        if (piece.kind == Kind::Tab) return;
        const QPointF place = origin + QPointF(piece.left, context_.baseline());
        if (piece.kind == Kind::Text && !color) return paintColored(painter, place, piece);
        const bool isStandIn = piece.kind == Kind::StandIns;
        painter.setPen(color.value_or(isStandIn ? context_.standInColor() : context_.color(0)));
        if (piece.kind == Kind::Preedit) return piece.layout->draw(&painter, place);
        drawGlyphs(painter, place, *piece.layout, 0, piece.end - piece.begin);
    });
}

void LineLayout::paintColored(QPainter& painter, QPointF place, const Piece& piece) const {
    const Offset begin = line_.content.begin() + piece.begin;
    const Range range = Range::at(begin, piece.end - piece.begin);
    line_.box.visitFormats(range, [&](Range run, const CharFormat& format) {
        painter.setPen(context_.color(format.color));
        drawGlyphs(painter, place, *piece.layout, run.begin() - begin, run.length());
        return true;
    });
}

std::vector<QRectF> LineLayout::selectedParts(const LineSelection& selection,
                                              const QRectF& area) const {
    std::vector<QRectF> parts;
    if (selection.empty()) return parts;
    const auto add = [&](qreal a, qreal b) {
        const qreal left = std::max(context_.nearestPixel(std::min(a, b)), area.left());
        const qreal right = std::min(context_.nearestPixel(std::max(a, b)), area.right());
        if (!parts.empty() && left < right && parts.back().right() == left)
            parts.back().setRight(right);
        else if (left < right)
            parts.emplace_back(left, 0, right - left, context_.rowHeight());
    };
    visitPieces(area.left(), area.right(), [&](const Piece& piece) {
        const std::size_t begin = std::max(selection.begin, piece.begin);
        const std::size_t end = std::min(selection.end, piece.end);
        if (begin >= end) return;
        if (begin == piece.begin && end == piece.end) return add(piece.left, piece.right);
        if (!context_.hasRightToLeft()) return add(piece.xOf(begin), piece.xOf(end));
        const QTextLine row = piece.layout->lineAt(0);
        for (std::size_t column = begin; column < end; ++column) {
            const int position = static_cast<int>(column - piece.begin);
            add(piece.left + row.cursorToX(position),
                piece.left + row.cursorToX(position, QTextLine::Trailing));
        }
    });
    if (selection.lineBreak && width() <= area.right()) {
        const qreal end = xOf(line_.content.length());
        add(end, end + context_.averageAdvance() / 2);
    }
    return parts;
}

}  // namespace brindlex
