#include <gtest/gtest.h>

#include <QBitmap>
#include <QPainter>
#include <vector>

#include "widgets/MaskBitmap.h"
#include "widgets/TestButton.h"

namespace brindlex {
namespace {

using State = XPButtonState;
constexpr State kNormal;
constexpr State kDefault{State::kDefault};
constexpr State kHover{State::kOver, true};
constexpr State kPressed{State::kOver | State::kDown, true};

constexpr Bgr kInk = 0x0000F0;
constexpr Bgr kPictureBlue = 0xF00000;

using Row = std::vector<Bgr>;

TEST(XPButtonLayout, PlacesCaptionAndPicture) {
    const QSize wide(120, 30), high(120, 50), text(40, 13), none, square(64, 64);
    const struct {
        const char* name;
        QSize size, text;
        int style, shape, pictureAlign, pixels;
        QRect captionRect, pictureRect;
    } rows[] = {
        {"left picture", wide, text, 0, 0, 0, 16, {48, 8, 40, 13}, {4, 7, 16, 16}},
        {"right of it", wide, text, 0, 0, 3, 16, {30, 8, 40, 13}, {74, 7, 16, 16}},
        {"above", high, text, 0, 0, 4, 16, {40, 28, 40, 13}, {52, 10, 16, 16}},
        {"alone and cut", wide, none, 0, 0, 1, 32, {}, {4, 4, 32, 21}},
        {"stretched", wide, text, 2, 0, 0, 40, {39, 7, 42, 15}, {3, 3, 114, 24}},
        {"slanted", wide, text, 0, 3, 0, 16, {49, 8, 40, 13}, {28, 7, 16, 16}},
    };
    const auto picture = ButtonPicture::bitmap(plainImage(square, Qt::red));
    for (const auto& row : rows) {
        const QString caption = row.text.isValid() ? "Caption" : "";
        const XPButtonMembers members{caption, kCaptionCentred,  row.style, row.shape,
                                      picture, row.pictureAlign, row.pixels};
        const XPButtonRegion region = BuildRegion(row.shape, row.size);
        const XPButtonLayout layout = ComputeLayout(members, row.size, region, row.text);
        EXPECT_EQ(layout.CaptionRect, row.captionRect) << row.name;
        EXPECT_EQ(layout.PictureRect, row.pictureRect) << row.name;
    }
}

class XPButtonFrameTest : public testing::Test {
  protected:
    void make(int shape, const QSize& size, Bgr backColor = 0x675050) {
        button.setFixedSize(size);
        button.SetButtonShape(shape);
        button.SetBackColor(ColorValue(backColor));
    }
    QImage drawn(const State& state) {
        XPButtonFrame frame = button.frame();
        frame.state = state;
        QImage image(frame.size, QImage::Format_RGB32);
        QPainter painter(&image);
        PaintFrame(painter, frame);
        return image;
    }
    /// Where a colour shows: the rectangle round its pixels.
    QRect boxOf(Bgr color, const State& state) {
        const QImage mask = drawn(state).createMaskFromColor(qColor(color).rgb(), Qt::MaskOutColor);
        return QRegion(QBitmap::fromImage(mask)).boundingRect();
    }
    /// Expects a frame that looks like this: '1' is the first of the colours, '.' is any colour and
    /// '_' is outside of the window.
    void expectDrawn(const State& state, const std::string& picture, const Row& colors) {
        const QImage image = drawn(state);
        for (int i = 0; const char sign : picture) {
            const QPoint at(i % image.width(), i / image.width());
            const Bgr color = ColorValue::of(image.pixelColor(at)).value();
            const bool isRight = sign < '1' || sign > '9' || color == colors.at(sign - '1');
            EXPECT_TRUE(isRight && button.mask().contains(at) == (sign != '_'))
                << "shape " << button.ButtonShape() << ", flags " << state.ButtonFlags << ", at "
                << i;
            ++i;
        }
    }

    FakeDesktop desktop;
    XPButton button{desktop};
};

TEST_F(XPButtonFrameTest, HasABorderInTheColoursOfItsState) {
    const char* const straight =
        "__9999999999__"
        "_966666666669_"
        "95222222222379"
        "951........379"
        "95444444444479"
        "_988888888889_"
        "__9999999999__";
    const char* const slanted =
        "........____"
        "_........___"
        "__........__"
        "___........_";
    const char* const oval =
        "_111111_"
        "1......1"
        "1......1"
        "_111111_";
    // The face shifted by -10, 10, -24, -32, -5, 16, -36 and -48, and the outline.
    const Row normal{0x7B7776, 0x878B8A, 0x716968, 0x6C6160, 0x7E7C7B,
                     0x8B9190, 0x695D5C, 0x615150, 0x733C00};
    const Row focused{0xFFD3BB, 0xFFD3BB, 0xFFD3BB, 0xFFB39B, 0xFFB39B,
                      0xFFDDC5, 0xFFB39B, 0xF0836B, 0x733C00};
    const Row pressed{0x736B6A, 0x716968, 0x808080, 0x878B8A, 0x6C6160,
                      0x6C6160, 0x848685, 0x8B9190, 0x733C00};
    const Row hover{0x50E7FF, 0x50E7FF, 0x00E7FF, 0x30C7FF, 0x30C7FF,
                    0x5AF1FF, 0x30C7FF, 0x0097E7, 0x733C00};
    const struct {
        int shape;
        QSize size;
        State state;
        const char* picture;
        Row colors;
    } rows[] = {
        {3, {12, 4}, kNormal, slanted, normal},    {0, {14, 7}, kNormal, straight, normal},
        {0, {14, 7}, kDefault, straight, focused}, {0, {14, 7}, kPressed, straight, pressed},
        {0, {14, 7}, kHover, straight, hover},     {6, {8, 4}, kHover, oval, {0}},
    };
    for (const auto& row : rows) {
        make(row.shape, row.size);
        expectDrawn(row.state, row.picture, row.colors);
    }
}

TEST_F(XPButtonFrameTest, HasRoomOnTheSmallestButtonAndNoneForAMaskWithoutEnd) {
    const auto picture = ButtonPicture::bitmap(plainImage({8, 8}, Qt::red));
    button.SetPicture(picture);
    for (int shape = 0; shape <= kMaxButtonShape; ++shape) {
        button.SetGradientMode(shape % 5);
        for (int side = 0; side < 36; ++side) {
            make(shape, {1 + side % 6, 1 + side / 6});
            EXPECT_NO_THROW(drawn(kHover));
        }
    }
    EXPECT_TRUE(PrepareMask(picture, {1 << 20, 1 << 20}, 1).isNull());
}

TEST_F(XPButtonFrameTest, APictureIsGreyBitByBitWhileDisabled) {
    const QRgb colors[] = {0x00000000, 0xFFFFFFFF, 0xFFFFF0C0, 0xFF7F7F7F, 0xFF000000, 0x7F000000};
    QImage picture(6, 1, QImage::Format_ARGB32_Premultiplied);
    for (int x = 0; x < 6; ++x) picture.setPixel(x, 0, colors[x]);
    button.SetPicture(ButtonPicture::bitmap(picture));
    make(kCustomShape, {6, 1});
    button.SetEnabled(false);
    expectDrawn(kNormal, "123456", {0x716968, 0x716968, 0x406068, 0xF1E9E8, 0x808080, 0x000000});
}

TEST_F(XPButtonFrameTest, CaptionAndPictureStandInTheirRectanglesAndMoveWhenPressed) {
    button.SetPicture(ButtonPicture::icon(plainImage({16, 16}, qColor(kPictureBlue))));
    button.SetCaption("Mane words");
    button.SetForeColor(ColorValue(kInk));
    make(0, {160, 40}, 0x707070);
    const XPButtonLayout layout = button.frame().layout;
    EXPECT_EQ(boxOf(kPictureBlue, kNormal), layout.PictureRect);
    EXPECT_TRUE(layout.CaptionRect.contains(boxOf(kInk, kNormal)));
    for (const Bgr color : {kInk, kPictureBlue})
        EXPECT_EQ(boxOf(color, kPressed), boxOf(color, kNormal).translated(1, 1));
}

}  // namespace
}  // namespace brindlex
