#include "platform/TextRows.h"

#include <algorithm>
#include <cmath>

namespace brindlex {

void TextRows::textChanged(const TextEdit& edit) {
    if (edit.line < top_.line) {
        const std::size_t removedAbove = std::min(edit.removedBreaks, top_.line - edit.line);
        const bool topStays = edit.removedBreaks <= removedAbove;
        const std::size_t line = top_.line.value() - removedAbove + edit.insertedBreaks;
        top_ = {LineIndex(line), topStays ? top_.row : 0};
    }
    top_.line = std::min(top_.line, lastLine());
    // only now, and at the cost of a layout, where lines have more rows than one
    if (top_.row > 0) top_ = clamped(top_);
}

RowPlace TextRows::clamped(RowPlace place) const {
    if (place.line > lastLine()) return last();
    if (place.row == 0) return place;
    return {place.line, std::min(place.row, layouts_.at(place.line).rowCount() - 1)};
}

qreal TextRows::hiddenHeight() const {
    if (top_.row == 0) return 0;
    const LineLayout& layout = layouts_.at(top_.line);
    return layout.row(std::min(top_.row, layout.rowCount() - 1)).top;
}

RowPlace TextRows::last() const {
    const LineIndex line = lastLine();
    return {line, style_.wraps() ? layouts_.at(line).rowCount() - 1 : 0};
}

RowPlace TextRows::placeOf(Offset offset) const {
    const LineIndex line = box_.rope().lineOf(offset);
    if (!style_.wraps()) return {line, 0};
    const LineLayout& layout = layouts_.at(line);
    return {line, layout.rowOf(offset - box_.lineContent(line).begin())};
}

RowPlace TextRows::moved(RowPlace from, Long rows) const {
    if (!style_.wraps()) {
        const Long lines = static_cast<Long>(lastLine().value());
        const Long line = static_cast<Long>(from.line.value());
        return {LineIndex(static_cast<std::size_t>(std::clamp(rows, -line, lines - line) + line)),
                0};
    }
    for (; rows > 0; --rows) {
        if (from.row + 1 < layouts_.at(from.line).rowCount())
            ++from.row;
        else if (from.line < lastLine())
            from = {from.line + 1, 0};
        else
            break;
    }
    for (; rows < 0 && from > RowPlace(); ++rows) {
        if (from.row > 0) {
            --from.row;
        } else {
            const LineIndex above(from.line.value() - 1);
            from = {above, layouts_.at(above).rowCount() - 1};
        }
    }
    return from;
}

qreal TextRows::yOf(LineIndex line) const {
    qreal y = -hiddenHeight();
    if (line >= top_.line) {
        const std::size_t exact = std::min(line - top_.line, kExactLines);
        for (std::size_t i = 0; i < exact; ++i) y += layouts_.at(top_.line + i).height();
        return y + static_cast<qreal>(line - top_.line - exact) * style_.baseRowHeight();
    }
    const std::size_t exact = std::min(top_.line - line, kExactLines);
    for (std::size_t i = 1; i <= exact; ++i)
        y -= layouts_.at(LineIndex(top_.line.value() - i)).height();
    return y - static_cast<qreal>(top_.line - line - exact) * style_.baseRowHeight();
}

QRectF TextRows::rectOf(Offset offset) const {
    const Offset wanted = std::min(offset, Offset(box_.length()));
    const LineIndex line = box_.rope().lineOf(wanted);
    const Range content = box_.lineContent(line);
    const std::size_t column = std::min(wanted, content.end()) - content.begin();
    const qreal lineTop = yOf(line);
    const LineLayout& layout = layouts_.at(line);
    const LineLayout::Row row = layout.row(layout.rowOf(column));
    const Preedit& preedit = layouts_.preedit();
    const bool inPreedit = !preedit.text.isEmpty() && offset == box_.caret();
    const qreal x = inPreedit ? layout.preeditX(preedit.cursor) : layout.xOf(column);
    const bool last = column + 1 >= row.end;
    const qreal next = last ? std::max(row.width, x) : layout.xOf(column + 1);
    const qreal width = column < row.end ? std::abs(next - x) : style_.averageAdvance();
    const qreal left = column < row.end ? std::min(x, next) : x;
    return {inPreedit ? x : left, lineTop + row.top, width, row.height};
}

RowPlace TextRows::at(qreal y, qreal height) const {
    const qreal wanted = std::clamp(y, 0.0, std::max(0.0, height - 1));
    RowPlace found = top_;
    visit(height, [&](LineIndex line, const LineLayout& layout, qreal lineTop) {
        if (lineTop <= wanted) found = {line, layout.rowAt(wanted - lineTop)};
    });
    return std::max(found, top_);
}

RowPlace TextRows::topShowing(RowPlace place, qreal height) const {
    RowPlace top = place;
    qreal room = height;
    for (RowPlace row = place;;) {
        room -= layouts_.at(row.line).row(row.row).height;
        if (room < 0) return top;
        top = row;
        if (row == RowPlace()) return top;
        row = moved(row, -1);
    }
}

}  // namespace brindlex
