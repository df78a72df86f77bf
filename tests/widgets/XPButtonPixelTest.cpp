#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <functional>
#include <vector>

#include "widgets/TestButton.h"

namespace brindlex {
namespace {

using State = XPButtonState;
constexpr State kNormal;
constexpr State kDefault{State::kDefault};
constexpr State kHover{State::kOver, true};
constexpr State kPressed{State::kOver | State::kDown, true};
constexpr State kHeldOutside{State::kDown};

Bgr pixel(const QImage& image, int x, int y) {
    const QRgb rgb = image.pixel(x, y);
    return Bgr(qRed(rgb) | qGreen(rgb) << 8 | qBlue(rgb) << 16);
}

using Row = std::vector<Bgr>;

/// All that a frame refers to: a button of one shape and size, face 0x808080.
struct Subject {
    Subject(int shape, const QSize& ofSize) : size(ofSize), region(BuildRegion(shape, ofSize)) {
        members.ButtonShape = shape;
        colors.FaceColor = 0x808080;
        colors.PressedColor = 0x404040;
        colors.HoverFaceColor = 0x204060;
    }
    QImage painted(const State& state) const {
        QImage image(size, QImage::Format_RGB32);
        QPainter painter(&image);
        PaintFrame(painter, {members, colors, region, layout, caption, picture, size, screen, state,
                             Enabled});
        return image;
    }

    XPButtonMembers members;
    XPButtonWorkingColors colors;
    QSize size;
    XPButtonRegion region;
    XPButtonLayout layout;
    XPButtonCaption caption;
    QImage picture;
    QSize screen{1000, 1000};
    bool Enabled = true;
};

/// A frame as rows of signs: '_' outside of the window, else the sign of the colour.
std::string drawn(const Subject& subject, const State& state, char (*signOf)(Bgr)) {
    const QImage image = subject.painted(state);
    std::string rows = "\n";
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            rows += subject.region.window.contains(QPoint(x, y)) ? signOf(pixel(image, x, y)) : '_';
        rows += '\n';
    }
    return rows;
}

/// The lines of the border: the face shifted by -10, 10, -24, -32, -5, 16, -36 and -48.
constexpr Bgr kLines[] = {0x7B7776, 0x878B8A, 0x716968, 0x6C6160,
                          0x7E7C7B, 0x8B9190, 0x695D5C, 0x615150};

char lineAt(Bgr color) {
    const auto* const line = std::find(std::begin(kLines), std::end(kLines), color);
    if (line != std::end(kLines)) return static_cast<char>('1' + (line - kLines));
    return color == 0x733C00 ? '#' : '.';
}

std::string borderOf(int shape, const QSize& size) {
    Subject subject(shape, size);
    subject.members.GradientMode = 1;  // has none of the colours of the lines
    return drawn(subject, kNormal, lineAt);
}

TEST(XPButtonBorder, HasThreeRingsThatFollowTheSlants) {
    EXPECT_EQ(borderOf(0, {14, 8}), R"(
__##########__
_#6666666666#_
#522222222237#
#51........37#
#51........37#
#544444444447#
_#8888888888#_
__##########__
)");
    EXPECT_EQ(borderOf(3, {28, 8}), R"(
####################________
_#666666666666666667#_______
__#522222222222222237#______
___#51..............37#_____
____#51..............37#____
_____#544444444444444447#___
______#888888888888888888#__
_______####################_
)");
}

TEST(XPButtonBorder, HasRoomOnTheSmallestButton) {
    for (int shape = 0; shape <= kCustomShape; ++shape)
        for (int side = 0; side < 36; ++side)
            EXPECT_NO_THROW(borderOf(shape, {1 + side % 6, 1 + side / 6}));
}

TEST(XPButtonBorder, HasTheColoursOfItsState) {
    const QPoint places[] = {{2, 4}, {5, 2}, {11, 4}, {5, 5}, {1, 4}, {5, 1}, {12, 4}, {5, 6}};
    const struct {
        State state;
        Row lines;
    } rows[] = {
        {kNormal, Row(std::begin(kLines), std::end(kLines))},
        {kHeldOutside, Row(std::begin(kLines), std::end(kLines))},
        {kDefault,
         {0xFFD3BB, 0xFFD3BB, 0xFFD3BB, 0xFFB39B, 0xFFB39B, 0xFFDDC5, 0xFFB39B, 0xF0836B}},
        {kPressed,
         {0x736B6A, 0x716968, 0x808080, 0x878B8A, 0x6C6160, 0x6C6160, 0x848685, 0x8B9190}},
        {kHover, {0x50E7FF, 0x50E7FF, 0x00E7FF, 0x30C7FF, 0x30C7FF, 0x5AF1FF, 0x30C7FF, 0x0097E7}},
    };
    Subject subject(0, {14, 8});
    const auto linesIn = [&](const State& state) {
        const QImage image = subject.painted(state);
        Row lines;
        for (const QPoint place : places) lines.push_back(pixel(image, place.x(), place.y()));
        return lines;
    };
    for (const auto& row : rows)
        EXPECT_EQ(linesIn(row.state), row.lines) << "flags " << row.state.ButtonFlags;
    subject.members.ShowFocusRect = false;
    EXPECT_EQ(linesIn(kDefault), rows[0].lines);
    subject.Enabled = false;
    EXPECT_EQ(linesIn(kPressed), Row(8, 0x404040)) << "the face alone";
    EXPECT_EQ(pixel(subject.painted(kNormal), 0, 4), 0x492D2CU);
}

/// A frame of a button without a border, one pixel wide or high.
Row face(const Subject& subject, const State& state = {}) {
    const QImage image = subject.painted(state);
    Row row;
    for (int i = 0; i < image.width() * image.height(); ++i)
        row.push_back(pixel(image, i % image.width(), i / image.width()));
    return row;
}

TEST(XPButtonFace, DarkensDownwardOrHasAGradient) {
    Subject subject(kCustomShape, {1, 10});
    const Row down{0x818180, 0x807F7E, 0x7E7C7B, 0x7C7978, 0x7B7776,
                   0x797574, 0x777271, 0x756F6E, 0x746D6C, 0x736B6A};
    EXPECT_EQ(face(subject), down);
    subject.size = {1, 1};
    EXPECT_EQ(face(subject, kPressed), Row({0x404040}));
    EXPECT_EQ(face(subject, kHover), Row({0x204060}));
    const Row there{0x808080, 0x606C6C, 0x405858, 0x204444, 0x003030};
    const Row back(there.rbegin(), there.rend());
    for (const int mode : {1, 2, 3, 4}) {
        subject.members.GradientMode = mode;
        subject.size = mode < 3 ? QSize(5, 1) : QSize(1, 5);
        subject.screen = {20, 20};
        EXPECT_EQ(face(subject, kPressed), mode % 2 == 1 ? there : back) << mode;
    }
    subject.screen = {10, 10};
    EXPECT_EQ(face(subject), Row({0x003030, 0x003030, 0x808080, 0x808080, 0x808080})) << "coarse";
    EXPECT_EQ(face(subject, kHover), face(subject)) << "the hover colour is the gradient's";
    subject.members.HoverBackColor = ColorValue(0xFF);
    EXPECT_EQ(face(subject, kHover), Row(5, 0x204060));
}

/// 'o' the grey ring of an oval, 'd' and 'h' its rim, '#' its outline.
char ovalAt(Bgr color) {
    const int red = static_cast<int>(color & 0xFF);
    const int blue = static_cast<int>(color >> 16);
    if (color == 0xEF826B) return 'd';
    if (color == 0x0096E7) return 'h';
    if (color == 0) return '#';
    return std::abs(red - blue) < 3 ? 'o' : '.';
}

std::string ovalOf(int shape, const State& state) {
    Subject subject(shape, {16, 8});
    subject.colors.FaceColor = 0x2080C0;
    subject.colors.PressedColor = 0x102030;
    return drawn(subject, state, ovalAt);
}

std::string with(std::string picture, char from, char to) {
    std::replace(picture.begin(), picture.end(), from, to);
    return picture;
}

TEST(XPButtonOval, HasARingAndARimInTheStatesThatShowOne) {
    const std::string focused = R"(
____oooooooo____
__ooddddddddoo__
_odd........ddo_
od............do
od............do
_odd........ddo_
__ooddddddddoo__
____oooooooo____
)";
    const std::string outlined = R"(
____########____
__##hhhhhhhh##__
_#hh........hh#_
#h............h#
#h............h#
_#hh........hh#_
__##hhhhhhhh##__
____########____
)";
    EXPECT_EQ(ovalOf(4, kNormal), with(focused, 'd', '.'));
    EXPECT_EQ(ovalOf(4, kDefault), focused);
    EXPECT_EQ(ovalOf(4, kHover), with(focused, 'd', 'h'));
    EXPECT_EQ(ovalOf(4, kPressed), with(focused, 'd', 'h'));
    EXPECT_EQ(ovalOf(4, {kPressed.ButtonFlags, false}), with(focused, 'd', 'o'));
    EXPECT_EQ(ovalOf(6, kHover), outlined);
    EXPECT_EQ(ovalOf(6, kPressed), with(with(outlined, 'h', '.'), '#', 'h'));
    for (const State& state : {kNormal, kDefault})
        EXPECT_EQ(ovalOf(6, state), with(with(outlined, 'h', '.'), '#', '.'));
    const QImage sunken = Subject(4, {16, 8}).painted({kPressed.ButtonFlags, false});
    EXPECT_EQ(pixel(sunken, 8, 0), kWhite);
    EXPECT_EQ(pixel(sunken, 8, 1) & 0xFF, 0x92U);
    EXPECT_EQ(pixel(sunken, 8, 6) & 0xFF, 0xECU);
    EXPECT_EQ(pixel(sunken, 8, 7) & 0xFF, 0x80U);
}

TEST(XPButtonPicture, OfADisabledButtonIsMixedWithGreyBitByBit) {
    const struct {
        QRgb picture;
        Bgr shown;
    } pixels[] = {
        {0xFFFFFFFF, 0x716968},  // the face
        {0x00000000, 0x716968}, {0xFFFEFEFE, 0x706868}, {0xFFFFF0C0, 0x406068},
        {0xFF7F7F7F, 0xF1E9E8}, {0xFFFF0000, 0x808068}, {0xFF000000, 0x808080},
        {0x7F000000, 0x000000},  // of an icon: 0x80 on white
    };
    constexpr int kCount = static_cast<int>(std::size(pixels));
    Subject subject(kCustomShape, {kCount, 1});
    subject.Enabled = false;
    subject.picture = QImage(subject.size, QImage::Format_ARGB32_Premultiplied);
    for (int x = 0; x < kCount; ++x) subject.picture.setPixel(x, 0, pixels[x].picture);
    const Row shown = face(subject);
    for (int x = 0; x < kCount; ++x)
        EXPECT_EQ(shown.at(x), pixels[x].shown) << std::hex << pixels[x].picture;
}

// --- What stands on the face ---------------------------------------------------------------------

constexpr Bgr kInk = 0x0000F0;
constexpr Bgr kHoverInk = 0x00F000;
constexpr Bgr kPictureBlue = 0xF00000;

/// A button with a blue picture on a white ground and a caption of plain pixels. Its face is
/// 0x8CA0A0, disabled 0x7C8988.
class Content : public testing::Test {
  protected:
    Content() {
        QImage picture = plainImage({16, 16}, Qt::white);
        QPainter(&picture).fillRect(1, 1, 14, 14, qColor(kPictureBlue));
        QFont font("DejaVu Sans", 10);
        font.setStyleStrategy(QFont::NoAntialias);
        button.resize(160, 40);
        button.SetFont(font);
        button.SetPicture(ButtonPicture::bitmap(picture));
        button.SetPictureAlign(2);
        button.SetCaption("Mane words");
        button.SetCaptionAlign(0);
        button.SetBackColor(ColorValue(0x707070));
        button.SetForeColor(ColorValue(kInk));
        button.SetHoverForeColor(ColorValue(kHoverInk));
    }
    /// Where a colour shows: the rectangle round its pixels.
    QRect boxOf(Bgr color, const State& state = {}) {
        XPButtonFrame frame = button.frame();
        frame.state = state;
        QImage image(frame.size, QImage::Format_RGB32);
        QPainter painter(&image);
        PaintFrame(painter, frame);
        QRect box;
        for (int y = 0; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (pixel(image, x, y) == color) box |= QRect(x, y, 1, 1);
        return box;
    }

    FakeDesktop desktop;
    XPButton button{desktop};
};

TEST_F(Content, StandsInItsRectanglesAndMovesWhenPressed) {
    const QRect ink = boxOf(kInk);
    const QRect blue = boxOf(kPictureBlue);
    const XPButtonLayout layout = button.frame().layout;
    EXPECT_TRUE(layout.CaptionRect.contains(ink));
    EXPECT_GT(ink.width(), 40);
    EXPECT_EQ(blue, layout.PictureRect.adjusted(1, 1, -1, -1));
    EXPECT_EQ(boxOf(kInk, kPressed), ink.translated(1, 1));
    EXPECT_EQ(boxOf(kPictureBlue, kPressed), blue.translated(1, 1));
    EXPECT_EQ(boxOf(kHoverInk, kHover), ink);
    EXPECT_TRUE(boxOf(kInk, kHover).isEmpty());
    button.SetButtonShape(4);
    EXPECT_EQ(boxOf(kInk, kPressed), boxOf(kInk).translated(0, 1));
    button.SetButtonShape(5);
    EXPECT_TRUE(boxOf(kInk).isEmpty());
}

TEST_F(Content, CaptionsAreUnderlinedBrokenAndOfTheSizeOfTheirFont) {
    const QRect plain = boxOf(kInk);  // no letter reaches below the line
    button.SetCaption("&Mane words");
    EXPECT_GT(boxOf(kInk).bottom(), plain.bottom());
    button.SetCaption("Mane||words");
    const QRect broken = boxOf(kInk);
    EXPECT_GT(broken.height(), 2 * plain.height());
    button.resize(80, 40);
    button.SetCaption("Mane words");
    EXPECT_EQ(boxOf(kInk), broken);
}

TEST_F(Content, DisabledAndRelievedCaptionsHaveTheirColours) {
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
