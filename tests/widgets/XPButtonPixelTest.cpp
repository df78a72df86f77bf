#include <gtest/gtest.h>

#include <QPainter>
#include <algorithm>
#include <cstring>
#include <vector>

#include "widgets/TestButton.h"

namespace brindlex {
namespace {

using State = XPButtonState;
constexpr State kNormal;
constexpr State kDefault{State::kDefault};
constexpr State kHover{State::kOver, true};
constexpr State kPressed{State::kOver | State::kDown, true};
constexpr State kPressedByKey{State::kOver | State::kDown, false};

constexpr Bgr kInk = 0x0000F0;
constexpr Bgr kHoverInk = 0x00F000;
constexpr Bgr kPictureBlue = 0xF00000;

using Row = std::vector<Bgr>;

std::string with(std::string picture, char from, char to) {
    std::replace(picture.begin(), picture.end(), from, to);
    return picture;
}

class XPButtonFrameTest : public testing::Test {
  protected:
    void make(int shape, const QSize& size, Bgr backColor = 0x675050) {
        button.setFixedSize(size);
        button.SetButtonShape(shape);
        button.SetBackColor(ColorValue(backColor));
    }
    /// The pixels of a frame, row for row.
    Row pixels(const State& state = kNormal) {
        XPButtonFrame frame = button.frame();
        frame.state = state;
        frame.screen = screen;
        QImage image(frame.size, QImage::Format_RGB32);
        QPainter painter(&image);
        PaintFrame(painter, frame);
        Row row;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                row.push_back(ColorValue::of(image.pixelColor(x, y)).value());
        return row;
    }
    /// Where a colour shows: the rectangle round its pixels.
    QRect boxOf(Bgr color, const State& state = kNormal) {
        QRect box;
        int i = 0;
        for (const Bgr shown : pixels(state)) {
            const QRect place(i % button.width(), i / button.width(), 1, 1);
            if (shown == color) box |= place;
            ++i;
        }
        return box;
    }
    /// Expects a frame that looks like this: '1' is the first of the colours, 'o' another grey, '.'
    /// any other colour and '_' outside of the window.
    void expectDrawn(const State& state, const std::string& picture, const Row& colors) {
        const Row shown = pixels(state);
        std::string drawn;
        std::size_t i = 0;
        for (const char sign : picture) {
            const Bgr color = sign == '\n' ? 0 : shown.at(i++);
            const auto own = static_cast<std::size_t>(sign - '1');
            const bool isListed = std::count(colors.begin(), colors.end(), color) > 0;
            const bool isGrey = std::abs(qColor(color).red() - qColor(color).blue()) < 3;
            const bool asIs =
                std::strchr("_\n", sign) || (own < colors.size() && colors[own] == color);
            drawn += asIs ? sign : isListed ? '?' : isGrey ? 'o' : '.';
        }
        EXPECT_EQ(drawn, picture) << "shape " << button.ButtonShape() << state.ButtonFlags;
    }

    FakeDesktop desktop;
    XPButton button{desktop};
    QSize screen{1000, 1000};
};

TEST_F(XPButtonFrameTest, HasThreeRingsInTheColoursOfItsState) {
    const std::string straight = R"(
__9999999999__
_966666666669_
95222222222379
951........379
95444444444479
_988888888889_
__9999999999__
)";
    const std::string slanted = R"(
99999999999999999999_______
_96666666666666666679______
__95222222222222222379_____
___951..............379____
____95444444444444444479___
_____98888888888888888889__
______99999999999999999999_
)";
    // The face shifted by -10, 10, -24, -32, -5, 16, -36 and -48, and the outline.
    const Row normal{0x7B7776, 0x878B8A, 0x716968, 0x6C6160, 0x7E7C7B,
                     0x8B9190, 0x695D5C, 0x615150, 0x733C00};
    const Row focused{0xFFD3BB, 0xFFD3BB, 0xFFD3BB, 0xFFB39B, 0xFFB39B,
                      0xFFDDC5, 0xFFB39B, 0xF0836B, 0x733C00};
    const Row pressed{0x736B6A, 0x716968, 0x808080, 0x878B8A, 0x6C6160,
                      0x6C6160, 0x848685, 0x8B9190, 0x733C00};
    const Row hover{0x50E7FF, 0x50E7FF, 0x00E7FF, 0x30C7FF, 0x30C7FF,
                    0x5AF1FF, 0x30C7FF, 0x0097E7, 0x733C00};
    button.SetGradientMode(1);  // has none of these colours
    button.SetGradientColor(ColorValue(kPictureBlue));
    make(3, {27, 7});
    expectDrawn(kNormal, slanted, normal);
    make(0, {14, 7});
    expectDrawn(kNormal, straight, normal);
    expectDrawn(State{State::kDown}, straight, normal);
    expectDrawn(kDefault, straight, focused);
    expectDrawn(kPressed, straight, pressed);
    expectDrawn(kHover, straight, hover);
    button.SetShowFocusRect(false);
    expectDrawn(kDefault, straight, normal);
    button.SetEnabled(false);
    std::string outline = straight;
    for (const char line : std::string("12345678")) outline = with(outline, line, '.');
    expectDrawn(kPressed, with(outline, '9', '1'), {0x492D2C});
}

TEST_F(XPButtonFrameTest, OvalsHaveARingAndARimInTheStatesThatShowOne) {
    const std::string oval = R"(
____oooooooo____
__oorrrrrrrroo__
_orr........rro_
or............ro
or............ro
_orr........rro_
__oorrrrrrrroo__
____oooooooo____
)";
    constexpr char kFocusColor = '1', kHoverColor = '2', kBlack = '3';
    const struct {
        int shape;
        State state;
        char ring, rim;
    } rows[] = {
        {4, kNormal, 'o', '.'},          {4, kDefault, 'o', kFocusColor},
        {4, kHover, 'o', kHoverColor},   {4, kPressed, 'o', kHoverColor},
        {4, kPressedByKey, 'o', 'o'},    {6, kHover, kBlack, kHoverColor},
        {6, kPressed, kHoverColor, '.'}, {6, kNormal, '.', '.'},
        {6, kDefault, '.', '.'},
    };
    for (const auto& row : rows) {
        make(row.shape, {16, 8}, 0x1A5090);
        expectDrawn(row.state, with(with(oval, 'o', row.ring), 'r', row.rim),
                    {0xEF826B, 0x0096E7, 0});
    }
    make(4, {16, 8});
    const Row sunken = pixels(kPressedByKey);
    const int reds[][2] = {{0, 0xFF}, {1, 0x92}, {6, 0xEC}, {7, 0x80}};
    for (const auto& [y, red] : reds) EXPECT_EQ(sunken.at(y * 16 + 8) & 0xFF, Bgr(red)) << y;
}

TEST_F(XPButtonFrameTest, HasRoomOnTheSmallestButton) {
    button.SetPicture(ButtonPicture::bitmap(plainImage({8, 8}, Qt::red)));
    for (int shape = 0; shape <= kMaxButtonShape; ++shape)
        for (int side = 0; side < 36; ++side) {
            make(shape, {1 + side % 6, 1 + side / 6});
            EXPECT_NO_THROW(pixels(kHover));
        }
}

TEST_F(XPButtonFrameTest, TheFaceDarkensDownwardOrHasAGradient) {
    button.SetPicture(ButtonPicture::bitmap(plainImage({8, 8}, Qt::red)));  // one key colour
    make(kCustomShape, {1, 10});
    const Row down{0x818180, 0x807F7E, 0x7E7C7B, 0x7C7978, 0x7B7776,
                   0x797574, 0x777271, 0x756F6E, 0x746D6C, 0x736B6A};
    EXPECT_EQ(pixels(), down);
    button.setFixedSize(1, 1);
    EXPECT_EQ(pixels(kPressed), Row({0x6C6160}));
    button.SetGradientColor(ColorValue(0));
    const Row there{0x808080, 0x606C6C, 0x405858, 0x204444, 0x003030};
    const Row back(there.rbegin(), there.rend());
    screen = {20, 20};
    for (const int mode : {1, 2, 3, 4}) {
        button.SetGradientMode(mode);
        button.setFixedSize(mode < 3 ? QSize(5, 1) : QSize(1, 5));
        EXPECT_EQ(pixels(kPressed), mode % 2 == 1 ? there : back) << mode;
    }
    screen = {10, 10};
    EXPECT_EQ(pixels(), Row({0x003030, 0x003030, 0x808080, 0x808080, 0x808080})) << "coarse";
    EXPECT_EQ(pixels(kHover), pixels()) << "the hover colour is the gradient's";
    button.SetHoverBackColor(ColorValue(0xFF));
    EXPECT_EQ(pixels(kHover), Row(5, 0x0030FF));
}

TEST_F(XPButtonFrameTest, APictureIsGreyBitByBitWhileDisabled) {
    const QRgb colors[] = {0x00000000, 0xFFFFFFFF, 0xFFFFF0C0, 0xFF7F7F7F, 0xFF000000, 0x7F000000};
    QImage picture(6, 1, QImage::Format_ARGB32_Premultiplied);
    for (int x = 0; x < 6; ++x) picture.setPixel(x, 0, colors[x]);
    button.SetPicture(ButtonPicture::bitmap(picture));
    make(kCustomShape, {6, 1});
    button.SetEnabled(false);
    EXPECT_EQ(pixels(), Row({0x716968, 0x716968, 0x406068, 0xF1E9E8, 0x808080, 0x000000}));
}

/// A button with a blue picture on a white ground and a caption of plain pixels.
class XPButtonContentTest : public XPButtonFrameTest {
  protected:
    XPButtonContentTest() {
        QImage picture = plainImage({16, 16}, Qt::white);
        QPainter(&picture).fillRect(1, 1, 14, 14, qColor(kPictureBlue));
        QFont font("DejaVu Sans", 10);
        font.setStyleStrategy(QFont::NoAntialias);
        button.SetFont(font);
        button.SetPicture(ButtonPicture::bitmap(picture));
        button.SetPictureAlign(2);
        button.SetCaption("Mane words");
        make(0, {160, 40}, 0x707070);
        button.SetCaptionAlign(0);
        button.SetForeColor(ColorValue(kInk));
        button.SetHoverForeColor(ColorValue(kHoverInk));
    }
};

TEST_F(XPButtonContentTest, StandsInItsRectanglesAndMovesWhenPressed) {
    const QRect ink = boxOf(kInk);
    const QRect blue = boxOf(kPictureBlue);
    const XPButtonLayout layout = button.frame().layout;
    EXPECT_TRUE(layout.CaptionRect.contains(ink) && ink.width() > 40);
    EXPECT_EQ(blue, layout.PictureRect.adjusted(1, 1, -1, -1));
    EXPECT_EQ(boxOf(kInk, kPressed), ink.translated(1, 1));
    EXPECT_EQ(boxOf(kPictureBlue, kPressed), blue.translated(1, 1));
    EXPECT_EQ(boxOf(kHoverInk, kHover), ink);
    button.SetButtonShape(4);
    EXPECT_EQ(button.CaptionAlign(), kCaptionCentred);
    EXPECT_EQ(boxOf(kInk, kPressed), boxOf(kInk).translated(0, 1));
    button.SetButtonShape(5);
    EXPECT_TRUE(boxOf(kInk).isEmpty());
}

TEST_F(XPButtonContentTest, CaptionsAreUnderlinedAndBroken) {
    const QRect plain = boxOf(kInk);  // no letter reaches below the line
    button.SetCaption("&Mane words");
    EXPECT_GT(boxOf(kInk).bottom(), plain.bottom());
    button.SetCaption("Mane||words");
    const QRect broken = boxOf(kInk);
    EXPECT_GT(broken.height(), 2 * plain.height());
    button.setFixedSize(80, 40);
    button.SetCaption("Mane words");
    EXPECT_EQ(boxOf(kInk), broken);
}

TEST_F(XPButtonContentTest, DisabledAndRelievedCaptionsHaveTheirColours) {
    const QRect ink = boxOf(kInk);
    const Bgr aboveLeft[] = {0x707978, 0xAAC9C8};
    const Bgr belowRight[] = {0xB5C9C8, 0x657978};
    for (const int style : {1, 2}) {
        button.SetCaptionStyle(style);
        const QRect text = boxOf(kInk);
        EXPECT_EQ(boxOf(aboveLeft[style - 1]).topLeft(), text.topLeft() - QPoint(1, 1));
        EXPECT_EQ(boxOf(belowRight[style - 1]).bottomRight(), text.bottomRight() + QPoint(1, 1));
    }
    button.SetCaptionStyle(0);
    button.SetPicture({});
    button.SetEnabled(false);
    EXPECT_EQ(boxOf(0x392220), ink);
    button.SetGradientMode(1);
    button.SetGradientColor(ColorValue(0x707070));
    EXPECT_EQ(boxOf(0x808080), ink);
    EXPECT_EQ(boxOf(kWhite).bottomRight(), ink.bottomRight() + QPoint(1, 1));
}

}  // namespace
}  // namespace brindlex
