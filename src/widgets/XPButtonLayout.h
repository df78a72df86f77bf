#pragma once

#include <QRect>
#include <QSize>
#include <functional>

namespace brindlex {

/// What decides where caption and picture go. Pixels.
struct XPButtonLayoutInput {
    QSize size;
    int ButtonShape = 0;
    int LeftEdge = 0;
    int RightEdge = 0;
    int CaptionAlign = 0;
    int CaptionStyle = 0;
    /// The size of the caption, broken at words where it is wider than the width given (0 or more).
    /// None without a caption.
    std::function<QSize(int boxWidth)> measure;
    QSize picture;  ///< its own size; empty without a picture
    int PictureAlign = 0;
    int PicturePixels = 0;
};

/// Rectangles of zero or less width or height hold nothing.
struct XPButtonLayout {
    QRect CaptionRect;
    QRect PictureRect;

    bool operator==(const XPButtonLayout&) const = default;
};

XPButtonLayout ComputeLayout(const XPButtonLayoutInput& input);

/// A size, not below that of the input, at which a caption of one line and a picture of a placed
/// size are whole. The edges of the input are not looked at.
QSize preferredSize(const XPButtonLayoutInput& input);

/// The largest size of the picture's proportions that fits; empty where there is no room. May be
/// larger than the picture.
QSize FitPicture(int maxWidth, int maxHeight, const QSize& picture);

}  // namespace brindlex
