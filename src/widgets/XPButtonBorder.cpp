#include <QPainter>
#include <QPoint>
#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

#include "widgets/XPButtonFrame.h"

namespace brindlex {
namespace {

enum class BorderState { Normal, Default, Pressed, Hover };

constexpr Bgr kOutline = 0x733C00;
constexpr int kOutlineShiftDisabled = -84;
constexpr int kRingLines = 8;

/// What each line inside the outline adds to the colour that the lines of its state follow from.
constexpr int kShifts[][kRingLines] = {
    {-10, 10, -24, -32, -5, 16, -36, -48},  // normal: the face
    {80, 80, 80, 48, 48, 90, 48, 0},        // default: GotFocusBorderColor
    {-22, -24, 0, 10, -32, -32, 5, 16},     // pressed: the face
    {80, 80, 80, 48, 48, 90, 48, 0},        // hover: HoverBorderColor
};
constexpr int kHoverLineWithScaledBlue = 2;

Bgr baseColor(const XPButtonFrame& frame, BorderState state) {
    if (state == BorderState::Hover) return frame.members.HoverBorderColor.value();
    if (state == BorderState::Default) return frame.members.GotFocusBorderColor.value();
    return frame.colors.FaceColor;
}

Bgr ringColor(const XPButtonFrame& frame, BorderState state, int line) {
    const Bgr base = baseColor(frame, state);
    const int shift = kShifts[static_cast<int>(state)][line];
    if (state == BorderState::Pressed && shift == 0) return base;
    const bool scaleBlue = state != BorderState::Hover || line == kHoverLineWithScaledBlue;
    return AdjustColor(base, shift, scaleBlue);
}

BorderState borderStateOf(const XPButtonFrame& frame) {
    const XPButtonState& state = frame.state;
    if (state.has(XPButtonState::kOver) && !state.has(XPButtonState::kDown))
        return BorderState::Hover;
    if (state.isPressed()) return BorderState::Pressed;
    const bool isDefault = state.has(XPButtonState::kDefault) && frame.members.ShowFocusRect;
    return isDefault ? BorderState::Default : BorderState::Normal;
}

/// The colours of the lines: the innermost ring, the middle ring and the outline, four lines each,
/// the first at index 0. A line without a colour is not drawn.
std::array<std::optional<Bgr>, 12> Colors(const XPButtonFrame& frame) {
    std::array<std::optional<Bgr>, 12> colors;
    const auto outline = colors.begin() + kRingLines;
    if (!frame.Enabled) {
        std::fill(outline, colors.end(),
                  AdjustColor(frame.colors.FaceColor, kOutlineShiftDisabled));
        return colors;
    }
    const BorderState state = borderStateOf(frame);
    for (int line = 0; line < kRingLines; ++line) colors.at(line) = ringColor(frame, state, line);
    std::fill(outline, colors.end(), kOutline);
    return colors;
}

/// The corners of the lines.
std::array<QPoint, 16> PointTable(const XPButtonFrame& frame) {
    const int w = frame.size.width();
    const int h = frame.size.height();
    const int left = frame.region.LeftEdge;
    const int right = frame.region.RightEdge;
    const int a = slantsLeft(frame.members.ButtonShape) ? 1 : 0;
    const int b = slantsRight(frame.members.ButtonShape) ? 1 : 0;
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

/// The points that each line leads from and to, in the order of its colours. The way from point 13
/// to 14 is none: it lies under the last line or below the face.
constexpr int kLines[][2] = {{0, 1}, {1, 2}, {2, 3},   {3, 4},   {5, 6},   {6, 7},
                             {7, 8}, {8, 9}, {10, 11}, {11, 12}, {12, 13}, {14, 15}};

int sign(int number) {
    return (number > 0) - (number < 0);
}

/// A line without its end. Slants run along a diagonal, but where a button is kept from growing.
void drawLine(QPainter& painter, QPoint from, QPoint to, const QColor& color) {
    const QPoint way = to - from;
    const QPoint step(sign(way.x()), sign(way.y()));
    const int length = std::max(std::abs(way.x()), std::abs(way.y()));
    if (step.x() != 0 && step.y() != 0) {
        for (int i = 0; i < length; ++i)
            painter.fillRect(QRect(from + way * (1.0 * i / length), QSize(1, 1)), color);
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

void DrawBorder(QPainter& painter, const XPButtonFrame& frame) {
    const std::array<QPoint, 16> points = PointTable(frame);
    const std::array<std::optional<Bgr>, 12> colors = Colors(frame);
    for (std::size_t i = 0; i < colors.size(); ++i)
        if (const std::optional<Bgr>& color = colors.at(i))
            drawLine(painter, points.at(kLines[i][0]), points.at(kLines[i][1]), qColor(*color));
    drawCorners(painter, frame, qColor(colors.back().value_or(kOutline)));
}

}  // namespace brindlex
