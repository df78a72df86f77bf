#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cmath>
#include <optional>
#include <vector>

#include "TestButton.h"
#include "widgets/XPButtonPainter.h"

namespace brindlex {
namespace {

// What a frame shows, worked out here once more by other means than the painter's.

int clamped(double channel) {
    return std::clamp(static_cast<int>(channel), 0, 255);
}

Bgr shifted(Bgr color, int shift, bool scaleBlue = true) {
    const long blue = std::lround((color & 0xFF0000) / 65280.0);
    const int red = clamped(int(color & 0xFF) + shift);
    const int green = clamped(std::lround((color & 0xFF00) / 255.0) + shift);
    return Bgr(red | green << 8 |
               clamped(double(blue + (scaleBlue ? shift * blue / 192 : shift))) << 16);
}

struct Ring {
    int normal, focus, pressed, hover;
    bool hoverScalesBlue;
};
constexpr Ring kRings[8] = {{-10, 80, -22, 80, false}, {10, 80, -24, 80, false},
                            {-24, 80, 0, 80, true},    {-32, 48, 10, 48, false},
                            {-5, 48, -32, 48, false},  {16, 90, -32, 90, false},
                            {-36, 48, 5, 48, false},   {-48, 0, 16, 0, false}};

class NaiveFrame {
  public:
    explicit NaiveFrame(const XPButtonFrame& frame)
        : f_(frame), pixels_(frame.size.width() * frame.size.height(), 0) {
        paintFace();
        if (f_.ButtonShape <= 3) drawBorder();
    }
    Bgr at(int x, int y) const { return pixels_[y * f_.size.width() + x]; }

  private:
    bool pressed() const { return (f_.look.ButtonFlags & 6) == 6; }

    void paintFace() {
        const int w = f_.size.width();
        const int h = f_.size.height();
        const bool lit = f_.look.Hovering && !pressed();
        Bgr back = f_.Enabled ? f_.FaceColor : shifted(f_.FaceColor, -24);
        if (pressed() && f_.GradientMode == 0) back = f_.PressedColor;
        for (int y = 0; y < h; ++y) {
            for (int x = 0; x < w; ++x) {
                Bgr color = lit ? f_.HoverFaceColor : back;
                if (f_.GradientMode != 0 && !(lit && !f_.hoverKeepsGradient))
                    color = gradient(back, x, y);
                else if (f_.GradientMode == 0 && f_.Enabled)
                    color = shifted(color, int(std::nearbyint(-25.0 / h * y)));
                put(x, y, color);
            }
        }
    }

    Bgr gradient(Bgr from, int x, int y) const {
        const bool down = f_.GradientMode >= 3;
        const bool backward = f_.GradientMode % 2 == 0;
        int count = down ? f_.size.height() : f_.size.width();
        int band = down ? y : x;
        if ((down ? f_.screen.height() : f_.screen.width()) / count < 4) {
            count /= 2;
            band /= 2;
        }
        const int index = backward ? count - 1 - band : band;
        if (index == 0) return from;
        const Bgr to = shifted(f_.GradientColor, 48);
        double value[3] = {double(from & 0xFF), (from & 0xFF00) / 255.0,
                           (from & 0xFF0000) / 65280.0};
        const double end[3] = {double(to & 0xFF), double(std::lround((to & 0xFF00) / 255.0)),
                               double(std::lround((to & 0xFF0000) / 65280.0))};
        Bgr color = 0;
        for (int channel = 0; channel < 3; ++channel) {
            const double step = (end[channel] - value[channel]) / (count - 1);
            for (int i = 0; i < index; ++i)
                value[channel] = std::clamp(value[channel] + step, 0.0, 255.0);
            color |= Bgr(value[channel]) << 8 * channel;
        }
        return color;
    }

    std::optional<Bgr> lineColor(int entry) const {
        if (entry > 8) return f_.Enabled ? 0x733C00 : shifted(f_.FaceColor, -84);
        if (!f_.Enabled) return std::nullopt;
        const Ring& ring = kRings[entry - 1];
        if ((f_.look.ButtonFlags & 6) == 4)
            return shifted(f_.HoverBorderColor, ring.hover, ring.hoverScalesBlue);
        if (pressed()) return ring.pressed ? shifted(f_.FaceColor, ring.pressed) : f_.FaceColor;
        if (f_.look.ButtonFlags & 1 && f_.ShowFocusRect)
            return shifted(f_.GotFocusBorderColor, ring.focus);
        return shifted(f_.FaceColor, ring.normal);
    }

    void drawBorder() {
        const int w = f_.size.width();
        const int h = f_.size.height();
        const int left = f_.region.LeftEdge;
        const int right = f_.region.RightEdge;
        const int a = f_.ButtonShape % 2;
        const int b = f_.ButtonShape / 2;
        const QPoint p[16] = {{left + 2 - 4 * a, h - 3}, {2 + 2 * a, 2},
                              {right - 3 + 3 * b, 2},    {w - 3 - 3 * b, h - 3},
                              {left + 1 - 4 * a, h - 3}, {p[0].x() + a - 1, h - 2},
                              {p[1].x() - a - 1, 1},     {p[2].x() + 1 - b, 1},
                              {p[3].x() + b + 1, h - 2}, {p[4].x() - 1, h - 2},
                              {left - a, h - 1 + a},     {0, 0},
                              {right - 1 + b, 0},        {w - 1, h - 1 + b},
                              {left - 1 - 2 * a, h - 1}, {w - 1, h - 1}};
        const int lines[13][2] = {{0, 1}, {1, 2},   {2, 3},   {3, 4},   {5, 6},   {6, 7},  {7, 8},
                                  {8, 9}, {10, 11}, {11, 12}, {12, 13}, {13, 14}, {14, 15}};
        for (int i = 0; i < 13; ++i)
            line(p[lines[i][0]], p[lines[i][1]], lineColor(std::min(i + 1, 12)));
        const Bgr outline = *lineColor(12);
        for (const int y : {1, h - 2}) {
            if (left == 0) put(1, y, outline);
            if (right == w) put(w - 2, y, outline);
        }
    }

    /// Straight lines alone, without their last point.
    void line(QPoint from, QPoint to, std::optional<Bgr> color) {
        if (!color || (from.x() != to.x() && from.y() != to.y())) return;
        const QPoint step((to.x() > from.x()) - (to.x() < from.x()),
                          (to.y() > from.y()) - (to.y() < from.y()));
        for (; from != to; from += step) put(from.x(), from.y(), *color);
    }

    void put(int x, int y, Bgr color) {
        if (QRect(QPoint(), f_.size).contains(x, y)) pixels_[y * f_.size.width() + x] = color;
    }

    const XPButtonFrame& f_;
    std::vector<Bgr> pixels_;
};

class Pixels : public testing::Test {
  protected:
    XPButtonFrame randomFrame(int shape, QSize size) {
        XPButtonFrame frame;
        frame.size = QSize(grownWidth(shape, size), size.height());
        frame.screen = QSize(400, 400);
        frame.ButtonShape = shape;
        frame.Enabled = dice_.upTo(3) > 0;
        frame.GradientMode = dice_.upTo(4);
        frame.look = {frame.Enabled ? dice_.upTo(7) : 0, frame.Enabled && dice_.upTo(1) == 1};
        frame.ShowFocusRect = dice_.upTo(1) == 1;
        frame.hoverKeepsGradient = dice_.upTo(1) == 1;
        for (Bgr* color :
             {&frame.FaceColor, &frame.PressedColor, &frame.HoverFaceColor, &frame.GradientColor,
              &frame.GotFocusBorderColor, &frame.HoverBorderColor})
            *color = Bgr(dice_.upTo(0xFFFFFF));
        frame.region = BuildRegion(shape, frame.size);
        return frame;
    }
    static QImage painted(const XPButtonFrame& frame, int ratio = 1) {
        QImage image(frame.size * ratio, QImage::Format_RGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        PaintFrame(painter, frame);
        return image;
    }
    static Bgr pixel(const QImage& image, int x, int y) {
        const QRgb rgb = image.pixel(x, y);
        return Bgr(qRed(rgb) | qGreen(rgb) << 8 | qBlue(rgb) << 16);
    }

    Dice dice_{4};
};

TEST_F(Pixels, EveryPixelOfARectangleIsAsTold) {
    const QSize sizes[] = {{120, 30}, {31, 17}, {1, 1}, {2, 3}, {5, 5}, {7, 1}, {104, 104}};
    for (int round = 0; round < 700; ++round) {
        const XPButtonFrame frame = randomFrame(0, sizes[round % 7]);
        const int ratio = 1 + round / 7 % 2;
        const NaiveFrame naive(frame);
        const QImage image = painted(frame, ratio);
        SCOPED_TRACE(testing::Message() << "round " << round << " mode " << frame.GradientMode
                                        << " flags " << frame.look.ButtonFlags);
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                const QPoint place(x / ratio, y / ratio);
                if (!frame.region.window.contains(place)) continue;
                ASSERT_EQ(pixel(image, x, y), naive.at(place.x(), place.y())) << x << ' ' << y;
            }
        }
    }
}

TEST_F(Pixels, SlantedShapesHaveTheirFaceAndTheLevelLinesOfTheirRings) {
    for (int round = 0; round < 60; ++round) {
        const XPButtonFrame frame = randomFrame(1 + round % 3, {120, 31});
        const NaiveFrame naive(frame);
        const QImage image = painted(frame);
        for (const int y : {0, 1, 2, 15, 28, 29, 30}) {
            for (int x = 50; x < 70; ++x)
                ASSERT_EQ(pixel(image, x, y), naive.at(x, y)) << x << ' ' << y;
        }
    }
}

TEST_F(Pixels, OvalsHaveTheirFaceAndARimInTheStatesThatShowOne) {
    for (int round = 0; round < 60; ++round) {
        const XPButtonFrame frame = randomFrame(4 + round % 2, {121, 31});
        if (frame.look.isPressed()) continue;
        const QImage image = painted(frame);
        SCOPED_TRACE(testing::Message() << "round " << round);
        EXPECT_EQ(pixel(image, 60, 15), NaiveFrame(frame).at(60, 15));
        const bool focused = (frame.look.ButtonFlags & 1) != 0;
        if (frame.look.Hovering)
            EXPECT_EQ(pixel(image, 1, 15), frame.HoverBorderColor);
        else if (focused)
            EXPECT_EQ(pixel(image, 1, 15), frame.GotFocusBorderColor);
        else
            EXPECT_EQ(pixel(image, 1, 15), NaiveFrame(frame).at(1, 15));
    }
}

TEST(AdjustColorTest, ShiftsTurnsRoundAndInverts) {
    EXPECT_EQ(AdjustColor(0xFFFFFF, -32), 0xD6E0DFU);
    EXPECT_EQ(AdjustColor(0, 0, true, true), shifted(0, 64));
    EXPECT_EQ(AdjustColor(0x010101, -9, false, true), shifted(0x010101, 9, false));
    EXPECT_EQ(AdjustColor(0x102030, 5, false, false, true), 0xFFFFFF - shifted(0x102030, 5, false));
}

}  // namespace
}  // namespace brindlex
