#include "widgets/XPButtonRegion.h"

#include <QList>
#include <QRect>
#include <algorithm>
#include <cmath>

#include "widgets/XPButtonMembers.h"

namespace brindlex {
namespace {

constexpr int kStraightEdge = 5;

bool hasFourPoints(int shape) {
    return slantsLeft(shape) || slantsRight(shape) || shape == kCustomShape;
}

/// Three pixels of the window in each corner that does not slant.
QRegion corners(bool left, bool right, const QSize& size) {
    const int w = size.width();
    const int h = size.height();
    QRegion nipped;
    if (left) {
        nipped += QRegion(0, 0, 2, 1) + QRegion(0, 1, 1, 1);
        nipped += QRegion(0, h - 1, 2, 1) + QRegion(0, h - 2, 1, 1);
    }
    if (right) {
        nipped += QRegion(w - 2, 0, 2, 1) + QRegion(w - 1, 1, 1, 1);
        nipped += QRegion(w - 2, h - 1, 2, 1) + QRegion(w - 1, h - 2, 1, 1);
    }
    return nipped;
}

/// Row for row from `top`: the pixels that `spanOf(row)` gives as first and last.
template <typename SpanOf>
QRegion rows(int top, int bottom, SpanOf spanOf) {
    QList<QRect> spans;
    for (int y = top; y < bottom; ++y) {
        const auto [first, last] = spanOf(y);
        if (first > last) continue;
        const QRect span(QPoint(first, y), QPoint(last, y));
        const bool goesOn = !spans.isEmpty() && spans.last().bottom() == y - 1 &&
                            spans.last().left() == first && spans.last().right() == last;
        if (goesOn)
            spans.last().setBottom(y);
        else
            spans.append(span);
    }
    QRegion region;
    region.setRects(spans.constData(), static_cast<int>(spans.size()));
    return region;
}

/// Both slants run at 45 degrees, from the top left to the bottom right. They cross in a button
/// that cannot grow and is narrower than it is high.
QRegion fourPoints(int shape, const QSize& size, int rightEdge) {
    return rows(0, size.height() + 1, [&](int y) {
        const auto [from, to] = std::minmax(
            {slantsLeft(shape) ? y : 0, slantsRight(shape) ? rightEdge + 1 + y : size.width() + 1});
        return std::pair(from, to - 1);
    });
}

/// The pixels of the ellipse in the rectangle (left, top, right, bottom) by their middles; empty
/// when the rectangle is.
QRegion ellipse(int left, int top, int right, int bottom) {
    if (left >= right || top >= bottom) return {};
    const double radiusX = (right - left) / 2.0;
    const double radiusY = (bottom - top) / 2.0;
    const double middle = left + radiusX;
    return rows(top, bottom, [&](int y) {
        const double height = (y + 0.5 - (top + radiusY)) / radiusY;
        const double half = radiusX * std::sqrt(1 - height * height);
        return std::pair(static_cast<int>(std::ceil(middle - half - 0.5)),
                         static_cast<int>(std::floor(middle + half - 0.5)));
    });
}

/// The pixels of a region that border on one outside, to the left, right, top or bottom.
QRegion frameOf(const QRegion& region) {
    return region - (region.translated(1, 0) & region.translated(-1, 0) & region.translated(0, 1) &
                     region.translated(0, -1));
}

}  // namespace

int grownWidth(int shape, const QSize& size) {
    const int missing = kStraightEdge - (size.width() - (size.height() + 1));
    if (!hasFourPoints(shape) || missing <= 0) return size.width();
    return size.width() + (missing + kStraightEdge - 1) / kStraightEdge * kStraightEdge;
}

XPButtonRegion BuildRegion(int shape, const QSize& size) {
    const int w = size.width();
    const int h = size.height();
    XPButtonRegion region;
    region.RightEdge = w;
    if (isOval(shape)) {
        region.window = ellipse(0, 0, w, h);
        region.MiddleRegion = ellipse(1, 1, w - 1, h - 1);
        region.InnerRegion = ellipse(2, 2, w - 2, h - 2);
        region.windowFrame = frameOf(region.window);
        region.middleFrame = frameOf(region.MiddleRegion);
        return region;
    }
    if (slantsLeft(shape)) region.LeftEdge = h + 1;
    if (slantsRight(shape)) region.RightEdge = w - (h + 1);
    region.window = fourPoints(shape, size, region.RightEdge) -
                    corners(shape == 0 || shape == 2, shape == 0 || shape == 1, size);
    if (region.window.isEmpty()) region.window = QRect(QPoint(0, 0), size);  // kept from growing
    if (region.RightEdge == 0) region.RightEdge = w;
    return region;
}

}  // namespace brindlex
