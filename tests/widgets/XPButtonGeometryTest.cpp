#include <gtest/gtest.h>

#include <QHBoxLayout>
#include <QPainter>
#include <QTest>

#include "widgets/TestButton.h"
#include "widgets/XPButtonPainter.h"

namespace brindlex {
namespace {

std::string drawn(const QRegion& region, const QSize& size) {
    std::string rows;
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) rows += region.contains(QPoint(x, y)) ? '#' : '.';
        rows += '\n';
    }
    return rows;
}

TEST(XPButtonRegion, HasTheOutlineOfItsShape) {
    EXPECT_EQ(drawn(BuildRegion(0, {8, 6}).window, {8, 6}),
              "..####..\n.######.\n########\n########\n.######.\n..####..\n");
    EXPECT_EQ(drawn(BuildRegion(1, {12, 4}).window, {12, 4}),
              "##########..\n.##########.\n..#########.\n...#######..\n");
    EXPECT_EQ(drawn(BuildRegion(2, {12, 4}).window, {12, 4}),
              "..######....\n.########...\n.#########..\n..#########.\n");
    EXPECT_EQ(drawn(BuildRegion(3, {12, 4}).window, {12, 4}),
              "########....\n.########...\n..########..\n...########.\n");
    EXPECT_EQ(drawn(BuildRegion(7, {5, 2}).window, {5, 2}), "#####\n#####\n");
    EXPECT_EQ(drawn(BuildRegion(3, {3, 5}).window, {3, 5}), "...\n#..\n##.\n.##\n..#\n");
    const XPButtonRegion oval = BuildRegion(4, {8, 4});
    EXPECT_EQ(drawn(oval.window, {8, 4}), ".######.\n########\n########\n.######.\n");
    EXPECT_EQ(drawn(oval.MiddleRegion, {8, 4}), "........\n.######.\n.######.\n........\n");
    EXPECT_EQ(drawn(oval.windowFrame, {8, 4}), ".######.\n#......#\n#......#\n.######.\n");
    EXPECT_EQ(drawn(oval.InnerRegion, {8, 4}), "........\n........\n........\n........\n");
}

TEST(XPButtonRegion, GrowsBySteps) {
    EXPECT_EQ(grownWidth(1, {40, 21}), 40);
    EXPECT_EQ(grownWidth(7, {20, 20}), 30);
    EXPECT_EQ(grownWidth(0, {3, 30}), 3);
    FakeDesktop desktop;
    XPButton button(desktop);
    button.resize(22, 21);
    button.SetButtonShape(1);
    EXPECT_EQ(button.width(), 27);
    EXPECT_EQ(button.region().LeftEdge, 22);
    EXPECT_EQ(button.region().RightEdge, 27);
    button.setFixedSize(22, 21);
    button.SetButtonShape(2);
    EXPECT_EQ(button.region().RightEdge, 22);
    button.setFixedSize(20, 20);
    button.SetButtonShape(3);
    EXPECT_EQ(button.region().window, QRegion(0, 0, 20, 20)) << "no mask would show nothing";
}

TEST(XPButton, AsksItsLayoutForTheRoomThatItsShapeNeeds) {
    FakeDesktop desktop;
    QWidget window;
    QHBoxLayout row(&window);
    XPButton button(desktop);
    XPButton neighbour(desktop);
    row.addWidget(&button);
    row.addWidget(&neighbour);
    button.setFixedHeight(70);
    window.show();
    button.SetButtonShape(1);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return !button.geometry().intersects(neighbour.geometry()); }, 1000));
    XPButton alone(desktop);
    alone.SetCaption("A caption with some words");
    alone.SetButtonShape(3);
    alone.resize(alone.sizeHint());
    EXPECT_EQ(alone.layoutRects().CaptionRect.height(),
              QFontMetrics(drawingFont(alone.font())).height());
}

TEST(XPButtonCaption, ShowsNoScrapsWhereItHasNoRoom) {
    FakeDesktop desktop;
    XPButton button(desktop);
    for (const int shape : {3, 4}) {
        button.SetButtonShape(shape);
        button.resize(shape == 3 ? 50 : 7, 30);
        button.SetCaption("Caption");
        EXPECT_LE(button.layoutRects().CaptionRect.width(), 0);
        const QImage shown = button.grab().toImage();
        button.SetCaption("");
        EXPECT_EQ(shown, button.grab().toImage()) << "shape " << shape;
    }
}

struct LayoutRow {
    const char* name;
    QSize size;
    int shape, captionAlign, style;
    QSize text;
    QSize picture;
    int pictureAlign, pixels;
    QRect caption;
    QRect pictureRect;
};

TEST(XPButtonLayout, PlacesCaptionAndPicture) {
    const QSize wide(120, 30), high(120, 50), text(40, 13), none, square(64, 64), flat(64, 32);
    const LayoutRow rows[] = {
        {"raised", wide, 0, 2, 2, text, none, 0, 16, {39, 7, 42, 15}, {}},
        {"left picture", wide, 0, 2, 0, text, square, 0, 16, {48, 8, 40, 13}, {4, 7, 16, 16}},
        {"both left", wide, 0, 0, 0, text, square, 0, 16, {24, 8, 40, 13}, {4, 7, 16, 16}},
        {"left of it", wide, 0, 2, 0, text, square, 1, 16, {50, 8, 40, 13}, {30, 7, 16, 16}},
        {"right picture", wide, 0, 2, 0, text, square, 2, 16, {32, 8, 40, 13}, {100, 7, 16, 16}},
        {"right of it", wide, 0, 2, 0, text, square, 3, 16, {30, 8, 40, 13}, {74, 7, 16, 16}},
        {"both right", wide, 0, 1, 0, text, square, 3, 16, {56, 8, 40, 13}, {100, 7, 16, 16}},
        {"above", high, 0, 2, 0, text, square, 4, 16, {40, 28, 40, 13}, {52, 10, 16, 16}},
        {"below", high, 0, 2, 0, text, square, 5, 16, {40, 12, 40, 13}, {52, 27, 16, 16}},
        {"alone, 1", wide, 0, 2, 0, none, square, 1, 16, {}, {4, 7, 16, 16}},
        {"alone, 3", wide, 0, 2, 0, none, square, 3, 16, {}, {100, 7, 16, 16}},
        {"cut", wide, 0, 2, 0, none, square, 0, 32, {}, {4, 4, 32, 21}},
        {"stretched", wide, 0, 2, 0, text, square, 0, 40, {40, 8, 40, 13}, {3, 3, 114, 24}},
        {"stretched, oval", wide, 6, 2, 0, none, square, 0, 40, {}, {1, 1, 118, 28}},
        {"fitted", wide, 0, 2, 0, none, flat, 0, 48, {}, {42, 6, 36, 18}},
        {"custom", wide, 7, 2, 0, none, flat, 0, 48, {}, {0, 0, 120, 30}},
        {"slant 1 left", wide, 1, 0, 0, text, none, 0, 16, {28, 8, 40, 13}, {}},
        {"slant 2 right", wide, 2, 1, 0, text, none, 0, 16, {55, 8, 40, 13}, {}},
        {"slant 3", wide, 3, 2, 0, text, none, 0, 16, {41, 8, 40, 13}, {}},
        {"too wide", wide, 0, 2, 0, {200, 13}, none, 0, 16, {4, 8, 112, 13}, {}},
        {"too high", wide, 0, 2, 0, {40, 60}, none, 0, 16, {40, 4, 40, 21}, {}},
    };
    for (const LayoutRow& row : rows) {
        const XPButtonRegion region = BuildRegion(row.shape, row.size);
        XPButtonLayoutInput in{
            row.size,  row.shape, region.LeftEdge, region.RightEdge, row.captionAlign,
            row.style, {},        row.picture,     row.pictureAlign, row.pixels};
        if (row.text.isValid()) in.measure = [&](int) { return row.text; };
        const XPButtonLayout layout = ComputeLayout(in);
        EXPECT_EQ(layout.CaptionRect, row.caption) << row.name;
        EXPECT_EQ(layout.PictureRect, row.pictureRect) << row.name;
    }
}

TEST(XPButtonLayout, CutsNothingAtThePreferredSize) {
    Dice dice(3);
    for (int round = 0; round < 2000; ++round) {
        const QSize text(dice.upTo(1) * 41, 13);
        const int style = dice.upTo(2);
        XPButtonLayoutInput in{{}, dice.upTo(7), 0, 0, dice.upTo(2), style, {}, {}, dice.upTo(5)};
        in.PicturePixels = 16 + 8 * dice.upTo(2);
        if (dice.upTo(1) != 0) in.picture = QSize(64, 64);
        if (in.PictureAlign > 3 && !in.picture.isEmpty()) in.CaptionAlign = 2;
        if (text.width() > 0)
            in.measure = [&](int width) { return width < 41 ? QSize(width, 26) : text; };
        const QSize size = preferredSize(in);
        in.size = QSize(grownWidth(in.ButtonShape, size), size.height());
        const XPButtonRegion region = BuildRegion(in.ButtonShape, in.size);
        in.LeftEdge = region.LeftEdge;
        in.RightEdge = region.RightEdge;
        const XPButtonLayout layout = ComputeLayout(in);
        SCOPED_TRACE(testing::Message() << "shape " << in.ButtonShape << ", picture at "
                                        << in.PictureAlign << ", caption at " << in.CaptionAlign);
        const QSize relief = style > 0 ? QSize(2, 2) : QSize(0, 0);
        const QSize placed(in.PicturePixels, in.PicturePixels);
        ASSERT_EQ(layout.PictureRect.size(), in.picture.isEmpty() ? QSize(0, 0) : placed);
        if (in.ButtonShape >= 5) continue;
        ASSERT_EQ(layout.CaptionRect.size(), text.isEmpty() ? QSize(0, 0) : text + relief);
        ASSERT_FALSE(layout.CaptionRect.intersects(layout.PictureRect));
    }
}

TEST(MaskBitmap, IsTransparentInTheColourOfItsCorner) {
    QImage image = plainImage({8, 8}, QColor(10, 20, 30));
    image.setPixelColor(2, 2, QColor(13, 17, 33));
    image.setPixelColor(3, 3, QColor(14, 20, 30));
    image.setPixelColor(4, 4, Qt::white);
    MaskBitmap mask;
    mask.PrepareMask(ButtonPicture::bitmap(image), {16, 16}, 1);
    EXPECT_EQ(mask.image().pixel(5, 5), 0U);
    EXPECT_EQ(mask.image().pixelColor(7, 7), QColor(14, 20, 30));
    EXPECT_EQ(mask.disabledImage().pixelColor(7, 7), QColor(128, 128, 128));
    EXPECT_EQ(mask.disabledImage().pixel(8, 8), 0U);
    mask.PrepareMask(ButtonPicture::icon(image), {16, 16}, 1);
    EXPECT_EQ(mask.image().pixelColor(5, 5), QColor(13, 17, 33));
    image.setPixelColor(0, 0, Qt::white);
    mask.PrepareMask(ButtonPicture::bitmap(image), {2, 2}, 1);
    EXPECT_EQ(mask.image().pixel(1, 1), 0U) << "the corner of the copy counts";
    EXPECT_EQ(FitPicture(10, 100, {4, 8}), QSize(10, 20));
    mask.PrepareMask(ButtonPicture::bitmap(image), {1 << 20, 1 << 20}, 1);
    EXPECT_TRUE(mask.disabledImage().isNull()) << "no memory has room for it";
}

/// Members and sizes at random, from nothing up: all that is shown stays where it belongs.
TEST(XPButtonFrame, StaysOnItsFace) {
    FakeDesktop desktop;
    Dice dice(7);
    QImage hole(8, 8, QImage::Format_ARGB32);
    hole.fill(Qt::transparent);
    const ButtonPicture pictures[] = {{},
                                      ButtonPicture::bitmap(QImage()),
                                      ButtonPicture::bitmap(plainImage({1, 1}, Qt::red)),
                                      ButtonPicture::bitmap(plainImage({8000, 8000}, Qt::red)),
                                      ButtonPicture::bitmap(plainImage({1000, 1}, Qt::blue)),
                                      ButtonPicture::icon(plainImage({32, 32}, Qt::red)),
                                      ButtonPicture::icon(hole)};
    const QString captions[] = {
        "", "Caption", "&", "||", QString(100000, 'm') + "&x", QStringLiteral("two ").repeated(30)};
    XPButton button(desktop);
    for (int round = 0; round < 300; ++round) {
        button.resize(dice.upTo(150), dice.upTo(60));
        button.SetPicture(pictures[dice.upTo(6)]);
        if (round % 5 == 0) button.SetCaption(captions[dice.upTo(5)]);
        dice.setNumbers(button);
        button.SetEnabled(dice.upTo(3) != 0);
        const XPButtonLayout& layout = button.layoutRects();
        const QRect face = button.rect().adjusted(4, 4, -4, -5);
        EXPECT_TRUE(layout.CaptionRect.isEmpty() || face.contains(layout.CaptionRect));
        EXPECT_TRUE(layout.PictureRect.isEmpty() || button.rect().contains(layout.PictureRect));
        XPButtonFrame frame = button.frame();
        frame.look = {dice.upTo(7), dice.upTo(1) != 0};
        QImage image(button.size() + QSize(8, 8), QImage::Format_RGB32);
        image.fill(Qt::magenta);
        QPainter painter(&image);
        painter.setClipRegion(frame.region.window & button.rect());
        PaintFrame(painter, frame);
        painter.end();
        for (int x = 0; x < button.width(); x += 3)
            for (int y = 0; y < button.height(); y += 3)
                ASSERT_NE(frame.region.window.contains(QPoint(x, y)),
                          image.pixelColor(x, y) == Qt::magenta)
                    << "round " << round << ", shape " << frame.ButtonShape;
    }
}

}  // namespace
}  // namespace brindlex
