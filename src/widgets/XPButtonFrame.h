#pragma once

#include <QImage>
#include <QSize>

#include "widgets/XPButtonCaption.h"
#include "widgets/XPButtonLayout.h"
#include "widgets/XPButtonMembers.h"
#include "widgets/XPButtonRegion.h"

class QPainter;

namespace brindlex {

/// All that one frame of a button shows. Refers to the button: it is painted before that changes.
struct XPButtonFrame {
    const XPButtonMembers& members;
    const XPButtonWorkingColors& colors;
    const XPButtonRegion& region;
    const XPButtonLayout& layout;
    const XPButtonCaption& caption;
    const QImage& picture;  ///< at its drawn size; null without a picture
    QSize size;
    QSize screen;  ///< of the screen, in logical pixels
    XPButtonState state;
    bool Enabled = true;
};

/// Paints a whole frame, its top left at the painter's origin. One pixel of the frame is one
/// logical pixel. What lies outside of the window region may be painted, too. Up to one filled row
/// for each pixel of the height or width.
void PaintFrame(QPainter& painter, const XPButtonFrame& frame);

/// Draws the three rings of shapes 0 to 3 and the pixels inside of nipped corners: a part of
/// PaintFrame.
void DrawBorder(QPainter& painter, const XPButtonFrame& frame);

}  // namespace brindlex
