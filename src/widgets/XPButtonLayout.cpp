#include "widgets/XPButtonLayout.h"

#include <algorithm>
#include <cmath>

#include "widgets/XPButtonMembers.h"

namespace brindlex {
namespace {

constexpr int kMargin = 4;
constexpr int kBottomMargin = 5;
constexpr int kLeftMore = 3;  // from a left slant
constexpr int kStretchInset = 3;
constexpr int kWidest = (1 << 24) - 1;  // in which a caption has one line
constexpr int kFitMargin = 12;          // of both sides together

/// The straight part of the face.
struct Face {
    int x0 = 0;
    int xr = 0;
    int span = 0;
    int height = 0;

    /// Cuts a rectangle, given by its open ends, at the margins.
    QRect cut(int left, int top, const QSize& size) const {
        const int right = std::min(left + size.width(), xr - kMargin);
        const int bottom = std::min(top + size.height(), height - kBottomMargin);
        const QPoint corner(std::max(left, x0 + kMargin), std::max(top, kMargin));
        return {corner, QSize(right - corner.x(), bottom - corner.y())};
    }
};

/// How far the face keeps caption and picture from the end of a slant.
int keptFrom(int slant) {
    return slant - slant / 3;
}

Face faceOf(const XPButtonLayoutInput& in) {
    const int w = in.size.width();
    Face face{0, w, in.RightEdge, in.size.height()};
    const bool left = slantsLeft(in.ButtonShape);
    const bool right = slantsRight(in.ButtonShape);
    if (left) face.x0 = keptFrom(in.LeftEdge) + kLeftMore;
    if (right) face.xr = w - keptFrom(w - in.RightEdge);
    if (left || right) face.span = face.xr - face.x0;
    return face;
}

/// The room that the picture takes from the caption on each side.
struct Room {
    int left = 0;
    int right = 0;
    int above = 0;
    int below = 0;
};

Room roomOf(const XPButtonLayoutInput& in) {
    const int s =
        in.picture.isEmpty() || in.PicturePixels > kLargestPlacedSize ? 0 : in.PicturePixels;
    switch (in.PictureAlign) {
        case kAtLeft:
        case kLeftOfCaption:
            return {s, 0, 0, 0};
        case kAtRight:
        case kRightOfCaption:
            return {0, s, 0, 0};
        case kAbove:
            return {0, 0, s, 0};
        default:
            return {0, 0, 0, s};
    }
}

/// Of a caption in lines of that many pixels at most.
QSize captionSize(const XPButtonLayoutInput& in, int width) {
    if (!in.measure) return {0, 0};
    const QSize measured = in.measure(std::max(0, width));
    return in.CaptionStyle > 0 ? measured + QSize(2, 2) : measured;
}

int captionLeft(const XPButtonLayoutInput& in, const Face& face, const Room& room, int tw) {
    const int besideLeft = room.left > 0 ? kMargin : 0;
    const int besideRight = room.right > 0 ? kMargin : 0;
    if (in.CaptionAlign == 0) return face.x0 + room.left + kMargin + besideLeft;
    if (in.CaptionAlign == 1) return face.xr - room.right - kMargin - tw - besideRight;
    if (room.left > 0 && in.PictureAlign == kLeftOfCaption)
        return (face.span - (tw + room.left + kMargin)) / 2 + face.x0 + kMargin + room.left;
    if (room.right > 0 && in.PictureAlign == kRightOfCaption)
        return (face.span - (tw + room.right + kMargin)) / 2 + face.x0;
    return (face.span - (room.right + room.left) - tw) / 2 + face.x0 + room.left;
}

/// The top of what stands above and below each other, caption and picture.
int stackTop(const XPButtonLayoutInput& in, const Room& room, int th) {
    return (in.size.height() - (th + room.above + room.below)) / 2;
}

int captionTop(const XPButtonLayoutInput& in, const Room& room, int th) {
    const bool stacked = !in.picture.isEmpty() && in.PictureAlign >= kAbove;
    return stackTop(in, room, th) + (stacked ? 2 + room.above : 0);
}

/// Where a picture of a placed size goes; `caption` is the caption's place before it is cut.
QPoint picturePlace(const XPButtonLayoutInput& in, const Face& face, const Room& room,
                    const QRect& caption) {
    const int s = in.PicturePixels;
    const int top = stackTop(in, room, caption.height());
    const int middle = (in.size.height() - s) / 2;
    switch (in.PictureAlign) {
        case kLeftOfCaption:
            if (in.measure) return {caption.left() - kMargin - room.left, middle};
            [[fallthrough]];
        case kAtLeft:
            return {face.x0 + kMargin, middle};
        case kRightOfCaption:
            if (in.measure) return {caption.left() + caption.width() + kMargin, middle};
            [[fallthrough]];
        case kAtRight:
            return {face.xr - kMargin - room.right, middle};
        default: {
            const int below = in.PictureAlign == kBelow ? caption.height() + kMargin : 0;
            return {(face.span - s) / 2 + face.x0, top + below};
        }
    }
}

QRect pictureRect(const XPButtonLayoutInput& in, const Face& face, const Room& room,
                  const QRect& caption) {
    if (in.picture.isEmpty()) return {};
    const int s = in.PicturePixels;
    const QSize& size = in.size;
    if (s <= kLargestPlacedSize) {
        const QPoint place = picturePlace(in, face, room, caption);
        return face.cut(place.x(), place.y(), QSize(s, s));
    }
    if (s == kStretchedSize) {
        const int inset = in.ButtonShape == kOutlinedOval ? 1 : kStretchInset;
        return QRect(QPoint(0, 0), size).adjusted(inset, inset, -inset, -inset);
    }
    if (in.ButtonShape == kCustomShape) return {QPoint(0, 0), size};
    const QSize fitted = FitPicture(face.span - kFitMargin, size.height() - kFitMargin, in.picture);
    return {
        QPoint((face.span - fitted.width()) / 2 + face.x0, (size.height() - fitted.height()) / 2),
        fitted};
}

/// What the slants of a button of that height take from its straight part.
int slantsOf(int shape, int height) {
    const int one = keptFrom(height + 1);
    return (slantsLeft(shape) ? one + kLeftMore : 0) + (slantsRight(shape) ? one : 0);
}

}  // namespace

QSize preferredSize(const XPButtonLayoutInput& in) {
    constexpr QSize kAround(16, 12);
    constexpr int kAroundAbove = 14;
    constexpr int kAroundBelow = 18;
    const int s = in.picture.isEmpty() ? 0 : in.PicturePixels;
    const bool atAnEdge = in.PictureAlign == kAtLeft || in.PictureAlign == kAtRight;
    // a caption that is not drawn gives the picture its place all the same
    const bool counts = in.ButtonShape < kFirstShapeWithoutCaption ||
                        (s > 0 && s <= kLargestPlacedSize && !atAnEdge);
    const QSize text = counts ? captionSize(in, kWidest) : QSize(0, 0);
    QSize content = QSize(text.width() + s, std::max(text.height(), s)) + kAround;
    if (in.PictureAlign >= kAbove && s > 0) {
        const int around = in.PictureAlign == kAbove ? kAroundAbove : kAroundBelow;
        content = {std::max(text.width(), s) + kAround.width(), text.height() + s + around};
    }
    const int height = std::max(content.height(), in.size.height());
    const int width = content.width() + slantsOf(in.ButtonShape, height);
    return {std::max(width, in.size.width()), height};
}

QSize FitPicture(int maxWidth, int maxHeight, const QSize& picture) {
    if (maxWidth <= 0 || maxHeight <= 0 || picture.isEmpty()) return {0, 0};
    const double ratio = std::min(static_cast<double>(maxWidth) / picture.width(),
                                  static_cast<double>(maxHeight) / picture.height());
    return {static_cast<int>(std::nearbyint(picture.width() * ratio)),
            static_cast<int>(std::nearbyint(picture.height() * ratio))};
}

XPButtonLayout ComputeLayout(const XPButtonLayoutInput& in) {
    const Face face = faceOf(in);
    const Room room = roomOf(in);
    const QSize text = captionSize(in, face.span - 2 * kMargin - room.left - room.right);
    const QRect caption(
        QPoint(captionLeft(in, face, room, text.width()), captionTop(in, room, text.height())),
        text);
    return {in.measure ? face.cut(caption.left(), caption.top(), text) : QRect(),
            pictureRect(in, face, room, caption)};
}

}  // namespace brindlex
