#pragma once

#include <QRegion>
#include <QSize>

namespace brindlex {

/// The outline of a button of one shape and size. Pixels; ends of ranges are open.
struct XPButtonRegion {
    QRegion window;        ///< for shapes 0 to 3 and 7 it reaches one pixel past the window
    QRegion MiddleRegion;  ///< ovals: one pixel inside the window region; else empty
    QRegion InnerRegion;   ///< ovals: two pixels inside; else empty
    QRegion windowFrame;   ///< ovals: the outermost pixels of the window region
    QRegion middleFrame;   ///< ovals: those of MiddleRegion
    int LeftEdge = 0;      ///< where the straight part of the face begins, at the bottom
    int RightEdge = 0;     ///< where it ends, at the top
};

/// The width that a button has to have for its shape: a slanted one keeps at least 5 pixels of
/// straight edge and grows by steps of 5. Otherwise the width as it is.
int grownWidth(int shape, const QSize& size);

/// For any size from 0 x 0; `size` has been grown, or cannot be.
XPButtonRegion BuildRegion(int shape, const QSize& size);

}  // namespace brindlex
