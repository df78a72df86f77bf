#include "platform/TextPrinter.h"

#include <QPageLayout>
#include <algorithm>

#include "platform/ShortLine.h"

namespace brindlex {

TextPrinter::TextPrinter(const RichTextBox& box, const CodePage& codePage,
                         QPagedPaintDevice& device)
    : box_(box), device_(device), style_(codePage, &device) {}

QRectF TextPrinter::textArea() const {
    const QPageLayout page = device_.pageLayout();
    const int resolution = device_.logicalDpiX();
    const QRectF full = page.fullRectPixels(resolution);
    // at least half of a small sheet is left for the text
    const qreal inch = resolution;
    const qreal across = std::min(inch, full.width() / 4);
    const qreal down = std::min(inch, full.height() / 4);
    const bool fromEdge = page.mode() == QPageLayout::FullPageMode;
    const QPointF origin = fromEdge ? QPointF() : page.paintRectPixels(resolution).topLeft();
    return full.adjusted(across, down, -across, -down).translated(-origin);
}

bool TextPrinter::print(Range range) {
    if (!painter_.begin(&device_)) return false;
    area_ = textArea();
    y_ = area_.top();
    style_.setWidth(area_.width(), area_.width());
    bool going = true;
    const LineIndex last = box_.rope().lineOf(range.end());
    for (LineIndex line = box_.rope().lineOf(range.begin()); going && line <= last;
         line = line + 1) {
        const Range content = box_.lineContent(line);
        const Offset begin = std::clamp(range.begin(), content.begin(), content.end());
        const Offset end = std::clamp(range.end(), content.begin(), content.end());
        // a range that ends behind a line break does not begin the line there
        const bool touched = begin < end || line < last || range.empty();
        going = !touched || printLine({begin, end}, box_.paragraphAt(line));
    }
    return painter_.end() && going;
}

bool TextPrinter::printLine(Range content, ParagraphFormat paragraph) {
    for (;;) {
        const bool isWhole = content.length() <= LineStyle::kLong;
        const Range stretch = isWhole ? content : Range::at(content.begin(), LineStyle::kLong);
        const ShortLine line({box_, stretch, paragraph, nullptr, 0}, style_);
        if (isWhole) return printRows(line, line.rowCount());
        // the last row of the stretch goes on in the next one
        const std::size_t rows = std::max<std::size_t>(1, line.rowCount() - 1);
        if (!printRows(line, rows)) return false;
        content = {content.begin() + line.row(rows - 1).end, content.end()};
        paragraph.indent += paragraph.hangingIndent;
        paragraph.hangingIndent = 0;
    }
}

bool TextPrinter::printRows(const ShortLine& line, std::size_t count) {
    for (std::size_t row = 0; row < count; ++row) {
        const qreal height = line.row(row).height;
        if (!makeRoom(height)) return false;
        line.paintRow(painter_, row, {area_.left(), y_});
        y_ += height;
    }
    return true;
}

bool TextPrinter::makeRoom(qreal height) {
    if (y_ + height <= area_.bottom() || y_ == area_.top()) return true;
    y_ = area_.top();
    return device_.newPage();
}

}  // namespace brindlex
