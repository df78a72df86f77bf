#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <optional>
#include <vector>

#include "widgets/TestButton.h"
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

    /// Level, upright and diagonal lines alone, without their last point.
    void line(QPoint from, QPoint to, std::optional<Bgr> color) {
        const QPoint way = to - from;
        const bool crooked = way.x() != 0 && way.y() != 0 && std::abs(way.x()) != std::abs(way.y());
        if (!color || crooked) return;
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

TEST_F(Pixels, EveryPixelOfRectangularAndSlantedShapesIsAsTold) {
    const QSize sizes[] = {{120, 30}, {31, 44}, {1, 1}, {2, 3}, {5, 5}, {7, 1}, {104, 104}};
    for (int round = 0; round < 1400; ++round) {
        const int shape = round % 2 == 0 ? 0 : 1 + round / 2 % 3;
        const QSize size = shape == 0 ? sizes[round / 2 % 7] : sizes[round % 3 / 2];
        const XPButtonFrame frame = randomFrame(shape, size);
        const int ratio = 1 + round / 7 % 2;
        const NaiveFrame naive(frame);
        const QImage image = painted(frame, ratio);
        SCOPED_TRACE(testing::Message()
                     << "round " << round << " shape " << shape << " mode " << frame.GradientMode
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

TEST_F(Pixels, OvalsHaveTheirFaceTheirRingAndARimInTheStatesThatShowOne) {
    for (int round = 0; round < 300; ++round) {
        const int shape = 4 + round % 3;
        const XPButtonFrame frame = randomFrame(shape, {121, 31});
        const QImage image = painted(frame);
        const NaiveFrame naive(frame);
        const bool hovers = frame.look.Hovering;
        const bool pressed = frame.look.isPressed();
        const bool focused = frame.look.has(XPButtonLook::kDefault);
        const auto face = [&](int x, int y) { return naive.at(x, y); };
        SCOPED_TRACE(testing::Message() << "round " << round);
        EXPECT_EQ(pixel(image, 60, 15), face(60, 15));
        EXPECT_EQ(pixel(image, 60, 2), face(60, 2));
        if (shape == 6) {
            const Bgr rim = frame.HoverBorderColor;
            EXPECT_EQ(pixel(image, 60, 0), !hovers ? face(60, 0) : pressed ? rim : 0);
            EXPECT_EQ(pixel(image, 60, 1), hovers && !pressed ? rim : face(60, 1));
            continue;
        }
        EXPECT_EQ(pixel(image, 60, 0), kWhite);
        EXPECT_NEAR(pixel(image, 60, 30) & 0xFF, 0x80, 1);
        for (const QPoint place : {QPoint(1, 15), QPoint(60, 1)}) {
            const Bgr found = pixel(image, place.x(), place.y());
            if (hovers || focused)
                EXPECT_EQ(found, hovers ? frame.HoverBorderColor : frame.GotFocusBorderColor);
            else if (pressed)
                EXPECT_NEAR(found & 0xFF, 0x80 + place.y() * 127 / 30, 1);
            else
                EXPECT_EQ(found, face(place.x(), place.y()));
        }
    }
}

// --- What stands on the face ---------------------------------------------------------------------

constexpr Bgr kInk = 0x0000F0;
constexpr Bgr kHoverInk = 0x00F000;
constexpr Bgr kPictureBlue = 0xF00000;
constexpr Bgr kBack = 0x707070;

/// A button with a blue picture on a white ground and a caption of plain pixels.
class Content : public Pixels {
  protected:
    Content() {
        QImage picture = plainImage({16, 16}, Qt::white);
        QPainter(&picture).fillRect(1, 1, 14, 14, qColor(kPictureBlue));
        button.resize(160, 40);
        button.SetPicture(ButtonPicture::bitmap(picture));
        button.SetPictureAlign(2);
        button.SetCaption("&Many words");
        button.SetCaptionAlign(0);
        setPoints(10);
        button.SetBackColor(ColorValue(kBack));
        button.SetForeColor(ColorValue(kInk));
        button.SetHoverForeColor(ColorValue(kHoverInk));
    }
    void setPoints(int points) {
        QFont font("DejaVu Sans", points);
        font.setStyleStrategy(QFont::NoAntialias);
        button.SetFont(font);
    }
    /// Where a colour shows: the rectangle round its pixels in the topmost rows.
    QRect boxOf(Bgr color, const XPButtonLook& look = {}, int rows = 99) {
        XPButtonFrame frame = button.frame();
        frame.look = look;
        const QImage image = painted(frame);
        QRect box;
        for (int y = 0; y < std::min(image.height(), rows); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (pixel(image, x, y) == color) box |= QRect(x, y, 1, 1);
        return box;
    }

    static constexpr XPButtonLook kPressed{XPButtonLook::kDown | XPButtonLook::kOver, true};
    static constexpr XPButtonLook kHover{XPButtonLook::kOver, true};
    FakeDesktop desktop;
    XPButton button{desktop};
};

TEST_F(Content, StandsInItsRectanglesAndMovesWhenPressed) {
    const QRect ink = boxOf(kInk);
    EXPECT_TRUE(button.layoutRects().CaptionRect.contains(ink));
    EXPECT_GT(ink.width(), 40);
    EXPECT_LT(ink.right(), 100) << "at the left";
    const QRect blue = boxOf(kPictureBlue);
    EXPECT_EQ(blue, button.layoutRects().PictureRect.adjusted(1, 1, -1, -1));
    EXPECT_EQ(boxOf(kInk, kPressed), ink.translated(1, 1));
    EXPECT_EQ(boxOf(kPictureBlue, kPressed), blue.translated(1, 1));
    EXPECT_EQ(boxOf(kHoverInk, kHover), ink);
    EXPECT_TRUE(boxOf(kInk, kHover).isEmpty());
    EXPECT_TRUE(boxOf(kHoverInk, kPressed).isEmpty());
    button.SetButtonShape(4);
    EXPECT_EQ(boxOf(kInk, kPressed), boxOf(kInk).translated(0, 1));
    button.SetButtonShape(5);
    EXPECT_TRUE(boxOf(kInk).isEmpty());
}

TEST_F(Content, CaptionsAreUnderlinedBrokenAndOfTheSizeOfTheirFont) {
    const QRect marked = boxOf(kInk);
    button.SetCaption("Mane words");  // no letter reaches below the line
    const QRect plain = boxOf(kInk);
    button.SetCaption("&Mane words");
    EXPECT_GT(boxOf(kInk).bottom(), plain.bottom());
    button.SetCaptionAlign(1);
    EXPECT_GT(boxOf(kInk).left(), marked.right() - 60);
    button.SetCaption("i||mmmm");
    EXPECT_NEAR(boxOf(kInk, {}, 20).right(), boxOf(kInk).right(), 3);
    button.SetCaptionAlign(0);
    EXPECT_LT(boxOf(kInk, {}, 20).right(), boxOf(kInk).right() - 10);
    button.SetCaption("&Mane words");
    button.resize(90, 60);
    EXPECT_GT(boxOf(kInk).height(), 2 * plain.height());
    button.resize(300, 60);
    setPoints(20);
    EXPECT_NEAR(boxOf(kInk).height(), 2 * plain.height(), 6);
}

TEST_F(Content, DisabledAndRelievedCaptionsHaveTheirColours) {
    const Bgr face = shifted(kBack, 48);
    const QRect ink = boxOf(kInk);
    const QRect blue = boxOf(kPictureBlue);
    button.SetEnabled(false);
    EXPECT_EQ(boxOf(shifted(shifted(face, -24), -104)), ink);
    EXPECT_EQ(boxOf(0x808080), blue);
    button.SetGradientMode(1);
    button.SetGradientColor(ColorValue(kBack));
    EXPECT_EQ(boxOf(0x808080), ink | blue);
    EXPECT_EQ(boxOf(kWhite).bottomRight(), ink.bottomRight() + QPoint(1, 1));
    button.SetEnabled(true);
    for (const int style : {1, 2}) {
        button.SetCaptionStyle(style);
        const int relief = style == 2 ? 40 : -40;
        const QRect text = boxOf(kInk);
        EXPECT_EQ(boxOf(shifted(face, relief)).topLeft(), text.topLeft() - QPoint(1, 1));
        EXPECT_EQ(boxOf(shifted(face, -relief, false)).bottomRight(),
                  text.bottomRight() + QPoint(1, 1));
    }
}

}  // namespace
}  // namespace brindlex
