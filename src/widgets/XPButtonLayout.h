#pragma once

#include <QRect>
#include <QSize>

#include "widgets/XPButtonMembers.h"
#include "widgets/XPButtonRegion.h"

namespace brindlex {

/// Where caption and picture go, in pixels. Rectangles of zero or less width or height hold
/// nothing.
struct XPButtonLayout {
    QRect CaptionRect;
    QRect PictureRect;
};

/// The width that the lines of a caption may have. May be zero or less.
int captionRoom(const XPButtonMembers& members, const QSize& button, const XPButtonRegion& region);

/// `text` is the size of the caption, wrapped to its room; it counts for nothing without a caption.
XPButtonLayout ComputeLayout(const XPButtonMembers& members, const QSize& button,
                             const XPButtonRegion& region, const QSize& text);

/// The largest size of the picture's proportions that fits; empty where there is no room. May be
/// larger than the picture.
QSize FitPicture(int maxWidth, int maxHeight, const QSize& picture);

}  // namespace brindlex
