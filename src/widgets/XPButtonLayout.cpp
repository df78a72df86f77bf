#include "widgets/XPButtonLayout.h"

#include <algorithm>
#include <cmath>

namespace brindlex {
namespace {

constexpr int kMargin = 4;
constexpr int kBottomMargin = 5;
constexpr int kSlantMargin = 3;  // of a left slant
constexpr int kStretchInset = 3;
constexpr int kFitMargin = 12;  // of both sides together

/// The straight part of the face, and the room that the picture takes from the caption on one side
/// of it.
struct Face {
    Face(const XPButtonMembers& members, const QSize& button, const XPButtonRegion& region);
    /// Cuts a rectangle at the margins.
    QRect cut(const QRect& rect) const;

    int x0;
    int xr;
    int span;
    int height;
    int left = 0;
    int right = 0;
    int above = 0;
    int below = 0;
};

/// How far caption and picture stay away from the outer end of a slant.
int keptFrom(int slant) {
    return slant - slant / 3;
}

Face::Face(const XPButtonMembers& members, const QSize& button, const XPButtonRegion& region)
    : x0(0), xr(button.width()), span(region.RightEdge), height(button.height()) {
    const bool slantedLeft = slantsLeft(members.ButtonShape);
    const bool slantedRight = slantsRight(members.ButtonShape);
    if (slantedLeft) x0 = keptFrom(region.LeftEdge) + kSlantMargin;
    if (slantedRight) xr -= keptFrom(xr - region.RightEdge);
    if (slantedLeft || slantedRight) span = xr - x0;
    if (members.Picture.isNone() || members.PicturePixels > kLargestPlacedSize) return;
    int* const sides[] = {&left, &left, &right, &right, &above, &below};
    *sides[members.PictureAlign] = members.PicturePixels;
}

QRect Face::cut(const QRect& rect) const {
    const QPoint topLeft(std::max(rect.left(), x0 + kMargin), std::max(rect.top(), kMargin));
    const int end = std::min(rect.left() + rect.width(), xr - kMargin);
    const int bottom = std::min(rect.top() + rect.height(), height - kBottomMargin);
    return {topLeft, QSize(end - topLeft.x(), bottom - topLeft.y())};
}

int captionLeft(const XPButtonMembers& members, const Face& face, int tw) {
    const int besideLeft = face.left > 0 ? kMargin : 0;
    const int besideRight = face.right > 0 ? kMargin : 0;
    if (members.CaptionAlign == kCaptionAtLeft) return face.x0 + face.left + kMargin + besideLeft;
    if (members.CaptionAlign == kCaptionAtRight)
        return face.xr - face.right - kMargin - tw - besideRight;
    if (face.left > 0 && members.PictureAlign == kLeftOfCaption)
        return (face.span - (tw + face.left + kMargin)) / 2 + face.x0 + kMargin + face.left;
    if (face.right > 0 && members.PictureAlign == kRightOfCaption)
        return (face.span - (tw + face.right + kMargin)) / 2 + face.x0;
    return (face.span - (face.right + face.left) - tw) / 2 + face.x0 + face.left;
}

/// The top of caption and picture, where these stand above each other.
int stackTop(const Face& face, int th) {
    return (face.height - (th + face.above + face.below)) / 2;
}

int captionTop(const XPButtonMembers& members, const Face& face, int th) {
    const bool stacked = !members.Picture.isNone() && members.PictureAlign >= kAbove;
    return stackTop(face, th) + (stacked ? 2 + face.above : 0);
}

/// Where a picture of a placed size goes. `caption` is not cut.
QPoint picturePlace(const XPButtonMembers& members, const Face& face, const QRect& caption) {
    const int s = members.PicturePixels;
    const int middle = (face.height - s) / 2;
    const bool hasCaption = !members.Caption.isEmpty();
    switch (members.PictureAlign) {
        case kLeftOfCaption:
            if (hasCaption) return {caption.left() - kMargin - face.left, middle};
            [[fallthrough]];
        case kAtLeft:
            return {face.x0 + kMargin, middle};
        case kRightOfCaption:
            if (hasCaption) return {caption.left() + caption.width() + kMargin, middle};
            [[fallthrough]];
        case kAtRight:
            return {face.xr - kMargin - face.right, middle};
        default: {
            const int below = members.PictureAlign == kBelow ? caption.height() + kMargin : 0;
            return {(face.span - s) / 2 + face.x0, stackTop(face, caption.height()) + below};
        }
    }
}

QRect pictureRect(const XPButtonMembers& members, const Face& face, const QSize& button,
                  const QRect& caption) {
    if (members.Picture.isNone()) return {};
    const int s = members.PicturePixels;
    const QRect whole(QPoint(0, 0), button);
    if (s <= kLargestPlacedSize)
        return face.cut({picturePlace(members, face, caption), QSize(s, s)});
    if (s == kStretchedSize) {
        const int inset = members.ButtonShape == kOutlinedOval ? 1 : kStretchInset;
        return whole.adjusted(inset, inset, -inset, -inset);
    }
    if (members.ButtonShape == kCustomShape) return whole;
    const QSize fitted = FitPicture(face.span - kFitMargin, face.height - kFitMargin,
                                    members.Picture.image().size());
    return {QPoint((face.span - fitted.width()) / 2 + face.x0, (face.height - fitted.height()) / 2),
            fitted};
}

}  // namespace

QSize FitPicture(int maxWidth, int maxHeight, const QSize& picture) {
    if (maxWidth <= 0 || maxHeight <= 0 || picture.isEmpty()) return {0, 0};
    const double ratio = std::min(static_cast<double>(maxWidth) / picture.width(),
                                  static_cast<double>(maxHeight) / picture.height());
    return {static_cast<int>(std::nearbyint(picture.width() * ratio)),
            static_cast<int>(std::nearbyint(picture.height() * ratio))};
}

int captionRoom(const XPButtonMembers& members, const QSize& button, const XPButtonRegion& region) {
    const Face face(members, button, region);
    return face.span - 2 * kMargin - face.left - face.right;
}

XPButtonLayout ComputeLayout(const XPButtonMembers& members, const QSize& button,
                             const XPButtonRegion& region, const QSize& text) {
    const Face face(members, button, region);
    const bool hasCaption = !members.Caption.isEmpty();
    const QSize relief = members.CaptionStyle > 0 ? QSize(2, 2) : QSize(0, 0);
    const QSize size = hasCaption ? text + relief : QSize(0, 0);
    const QRect caption(
        QPoint(captionLeft(members, face, size.width()), captionTop(members, face, size.height())),
        size);
    return {hasCaption ? face.cut(caption) : QRect(), pictureRect(members, face, button, caption)};
}

}  // namespace brindlex
