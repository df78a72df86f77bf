#pragma once

#include <QPoint>
#include <array>
#include <optional>

#include "widgets/XPButtonFrame.h"

class QPainter;

namespace brindlex {

enum class BorderState { Normal, Default, Pressed, Hover };

BorderState borderStateOf(const XPButtonFrame& frame);

/// The colours of the border's lines: the innermost ring, the middle ring and the outline, four
/// lines each, the first at index 0. A line without a colour is not drawn.
std::array<std::optional<Bgr>, 12> Colors(const XPButtonFrame& frame);

/// The corners of the border's lines, for shapes 0 to 3.
std::array<QPoint, 16> PointTable(const XPButtonFrame& frame);

/// Draws the three rings of shapes 0 to 3 and the pixels inside of nipped corners.
void DrawBorder(QPainter& painter, const XPButtonFrame& frame);

}  // namespace brindlex
