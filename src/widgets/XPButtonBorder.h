#pragma once

#include <QPoint>
#include <array>

#include "widgets/XPButtonFrame.h"

class QPainter;

namespace brindlex {

/// 3 hover, 2 pressed, 1 default, 0 normal.
int BorderState(const XPButtonFrame& frame);

inline constexpr int kNoLine = -1;

/// The colours of the border's lines, each a Bgr or kNoLine: the innermost ring, the middle ring
/// and the outline, four lines each. The first is at index 0.
std::array<int, 12> borderColors(const XPButtonFrame& frame);

/// The corners of the border's lines, for shapes 0 to 3.
std::array<QPoint, 16> PointTable(const XPButtonFrame& frame);

/// Draws the three rings of shapes 0 to 3 and the pixels inside of nipped corners.
void DrawBorder(QPainter& painter, const XPButtonFrame& frame);

}  // namespace brindlex
