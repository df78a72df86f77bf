#pragma once

#include "widgets/XPButtonFrame.h"

class QPainter;

namespace brindlex {

/// Paints a whole frame, its top left at the painter's origin. One pixel of the frame is one
/// logical pixel. What lies outside of the window region may be painted, too. Up to one filled row
/// for each pixel of the height or width.
void PaintFrame(QPainter& painter, const XPButtonFrame& frame);

}  // namespace brindlex
