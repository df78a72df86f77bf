#pragma once

#include "widgets/XPButtonFrame.h"

class QPainter;

namespace brindlex {

/// Draws the three rings of shapes 0 to 3 and the pixels inside of nipped corners.
void DrawBorder(QPainter& painter, const XPButtonFrame& frame);

}  // namespace brindlex
