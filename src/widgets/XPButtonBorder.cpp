#include "widgets/XPButtonBorder.h"

#include <QPainter>
#include <algorithm>
#include <cstdlib>

namespace brindlex {
namespace {

constexpr Bgr kOutline = 0x733C00;
constexpr int kOutlineShiftDisabled = -84;
constexpr int kRingLines = 8;

/// A shift of the colour that a state's rings follow from.
struct Shade {
    int shift = 0;
    bool scaleBlue = true;
};
using Shades = std::array<Shade, kRingLines>;

constexpr Shades kNormal{{{-10}, {10}, {-24}, {-32}, {-5}, {16}, {-36}, {-48}}};
constexpr Shades kDefault{{{80}, {80}, {80}, {48}, {48}, {90}, {48}, {0}}};
constexpr Shades kPressed{{{-22}, {-24}, {0}, {10}, {-32}, {-32}, {5}, {16}}};
constexpr Shades kHover{{{80, false},
                         {80, false},
                         {80},
                         {48, false},
                         {48, false},
                         {90, false},
                         {48, false},
                         {0, false}}};
constexpr std::array<const Shades*, 4> kShades{&kNormal, &kDefault, &kPressed, &kHover};

constexpr int kHoverState = 3;
constexpr int kPressedState = 2;
constexpr int kDefaultState = 1;

Bgr baseColor(const XPButtonFrame& frame, int state) {
    if (state == kHoverState) return frame.HoverBorderColor;
    return state == kDefaultState ? frame.GotFocusBorderColor : frame.FaceColor;
}

int ringColor(const XPButtonFrame& frame, int state, const Shade& shade) {
    const Bgr base = baseColor(frame, state);
    if (state == kPressedState && shade.shift == 0) return static_cast<int>(base);
    return static_cast<int>(AdjustColor(base, shade.shift, shade.scaleBlue));
}

int sign(int number) {
    return (number > 0) - (number < 0);
}

/// A line along a row, a column or a diagonal, without its end.
void drawLine(QPainter& painter, QPoint from, QPoint to, const QColor& color) {
    const QPoint way = to - from;
    const QPoint step(sign(way.x()), sign(way.y()));
    const int length = std::max(std::abs(way.x()), std::abs(way.y()));
    if (step.x() != 0 && step.y() != 0) {
        for (int i = 0; i < length; ++i)
            painter.fillRect(QRect(from + step * i, QSize(1, 1)), color);
    } else if (length > 0) {
        const QPoint last = to - step;
        painter.fillRect(QRect(from, QSize(1, 1)) | QRect(last, QSize(1, 1)), color);
    }
}

void drawCorners(QPainter& painter, const XPButtonFrame& frame, const QColor& color) {
    const int w = frame.size.width();
    const int h = frame.size.height();
    const auto dot = [&](int x, int y) { painter.fillRect(x, y, 1, 1, color); };
    if (frame.region.LeftEdge == 0) {
        dot(1, h - 2);
        dot(1, 1);
    }
    if (frame.region.RightEdge == w) {
        dot(w - 2, h - 2);
        dot(w - 2, 1);
    }
}

}  // namespace

int BorderState(const XPButtonFrame& frame) {
    const XPButtonLook& look = frame.look;
    if (look.has(XPButtonLook::kOver) && !look.has(XPButtonLook::kDown)) return kHoverState;
    if (look.isPressed()) return kPressedState;
    return look.has(XPButtonLook::kDefault) && frame.ShowFocusRect ? kDefaultState : 0;
}

std::array<int, 12> borderColors(const XPButtonFrame& frame) {
    std::array<int, 12> colors{};
    const auto outline = colors.begin() + kRingLines;
    if (!frame.Enabled) {
        std::fill(colors.begin(), outline, kNoLine);
        std::fill(outline, colors.end(),
                  static_cast<int>(AdjustColor(frame.FaceColor, kOutlineShiftDisabled)));
        return colors;
    }
    const int state = BorderState(frame);
    const Shades& shades = *kShades.at(static_cast<std::size_t>(state));
    std::transform(shades.begin(), shades.end(), colors.begin(),
                   [&](const Shade& shade) { return ringColor(frame, state, shade); });
    std::fill(outline, colors.end(), static_cast<int>(kOutline));
    return colors;
}

std::array<QPoint, 16> PointTable(const XPButtonFrame& frame) {
    const int w = frame.size.width();
    const int h = frame.size.height();
    const int left = frame.region.LeftEdge;
    const int right = frame.region.RightEdge;
    const int a = slantsLeft(frame.ButtonShape) ? 1 : 0;
    const int b = slantsRight(frame.ButtonShape) ? 1 : 0;
    std::array<QPoint, 16> points{QPoint(left + 2 - 4 * a, h - 3), QPoint(2 + 2 * a, 2),
                                  QPoint(right - 3 + 3 * b, 2), QPoint(w - 3 - 3 * b, h - 3),
                                  QPoint(left + 1 - 4 * a, h - 3)};
    points[5] = points[0] + QPoint(a - 1, 1);
    points[6] = points[1] - QPoint(a + 1, 1);
    points[7] = points[2] + QPoint(1 - b, -1);
    points[8] = points[3] + QPoint(b + 1, 1);
    points[9] = points[4] + QPoint(-1, 1);
    points[10] = {left - a, h - 1 + a};
    points[11] = {0, 0};
    points[12] = {right - 1 + b, 0};
    points[13] = {w - 1, h - 1 + b};
    points[14] = {left - 1 - 2 * a, h - 1};
    points[15] = {w - 1, h - 1};
    return points;
}

void DrawBorder(QPainter& painter, const XPButtonFrame& frame) {
    /// Where each ring begins; it goes on through the four points that follow.
    constexpr std::array<std::size_t, 3> kRings{0, 5, 10};
    const std::array<QPoint, 16> points = PointTable(frame);
    const std::array<int, 12> colors = borderColors(frame);
    auto color = colors.begin();
    for (const std::size_t ring : kRings) {
        for (std::size_t point = ring; point < ring + 4; ++point, ++color) {
            if (*color == kNoLine) continue;
            drawLine(painter, points[point], points[point + 1], qColor(static_cast<Bgr>(*color)));
        }
    }
    const QColor outline = qColor(static_cast<Bgr>(colors.back()));
    drawLine(painter, points[14], points[15], outline);
    drawCorners(painter, frame, outline);
}

}  // namespace brindlex
