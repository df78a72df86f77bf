#pragma once

#include <QColor>
#include <QTextLayout>
#include <memory>

namespace brindlex {

/// A copy of a layout, row by row at the same places, with all its text in one colour. Selected
/// text is such a copy, clipped to the selection, on top of the plain text: what the toolkit does
/// for selections cuts the two along paths that leave dirt at fractional scales.
std::unique_ptr<QTextLayout> recolored(const QTextLayout& layout, const QColor& color);

}  // namespace brindlex
