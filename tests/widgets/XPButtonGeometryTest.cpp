#include <gtest/gtest.h>

#include "widgets/MaskBitmap.h"
#include "widgets/TestButton.h"

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

TEST(XPButtonRegion, GrowsByStepsWhereItMay) {
    EXPECT_EQ(grownWidth(1, {40, 21}), 40);
    EXPECT_EQ(grownWidth(7, {20, 20}), 30);
    EXPECT_EQ(grownWidth(0, {3, 30}), 3);
    FakeDesktop desktop;
    XPButton button(desktop);
    button.resize(24, 21);
    button.SetButtonShape(1);
    EXPECT_EQ(button.width(), 29);
    EXPECT_EQ(button.frame().region.LeftEdge, 22);
    EXPECT_EQ(button.frame().region.RightEdge, 29);
    button.setFixedSize(20, 20);
    button.SetButtonShape(3);
    EXPECT_EQ(button.mask(), QRegion(0, 0, 20, 20)) << "no mask would show nothing";
}

struct LayoutRow {
    const char* name;
    QSize size;
    int shape, captionAlign, style;
    QSize text, picture;
    int pictureAlign, pixels;
    QRect captionRect, pictureRect;
    int room = 112;  // for the lines of the caption
};

TEST(XPButtonLayout, PlacesCaptionAndPicture) {
    const QSize wide(120, 30), high(120, 50), text(40, 13), none, square(64, 64), flat(64, 32);
    const LayoutRow rows[] = {
        {"raised", wide, 0, 2, 2, text, none, 0, 16, {39, 7, 42, 15}, {}},
        {"left picture", wide, 0, 2, 0, text, square, 0, 16, {48, 8, 40, 13}, {4, 7, 16, 16}, 96},
        {"left of it", wide, 0, 2, 0, text, square, 1, 16, {50, 8, 40, 13}, {30, 7, 16, 16}, 96},
        {"at right", wide, 0, 2, 0, text, square, 2, 16, {32, 8, 40, 13}, {100, 7, 16, 16}, 96},
        {"right of it", wide, 0, 2, 0, text, square, 3, 16, {30, 8, 40, 13}, {74, 7, 16, 16}, 96},
        {"both right", wide, 0, 1, 0, text, square, 3, 16, {56, 8, 40, 13}, {100, 7, 16, 16}, 96},
        {"above", high, 0, 2, 0, text, square, 4, 16, {40, 28, 40, 13}, {52, 10, 16, 16}},
        {"below", high, 0, 2, 0, text, square, 5, 16, {40, 12, 40, 13}, {52, 27, 16, 16}},
        {"alone, 1", wide, 0, 2, 0, none, square, 1, 16, {}, {4, 7, 16, 16}, 96},
        {"cut", wide, 0, 2, 0, none, square, 0, 32, {}, {4, 4, 32, 21}, 80},
        {"stretched", wide, 0, 2, 0, text, square, 0, 40, {40, 8, 40, 13}, {3, 3, 114, 24}},
        {"stretched, oval", wide, 6, 2, 0, none, square, 0, 40, {}, {1, 1, 118, 28}},
        {"fitted", wide, 0, 2, 0, none, flat, 0, 48, {}, {42, 6, 36, 18}},
        {"custom", wide, 7, 2, 0, none, flat, 0, 48, {}, {0, 0, 120, 30}},
        {"slant 2 right", wide, 2, 1, 0, text, none, 0, 16, {55, 8, 40, 13}, {}, 91},
        {"slant 3", wide, 3, 2, 0, text, none, 0, 16, {41, 8, 40, 13}, {}, 67},
        {"too wide", wide, 0, 2, 0, {200, 13}, none, 0, 16, {4, 8, 112, 13}, {}},
        {"too high", wide, 0, 2, 0, {40, 60}, none, 0, 16, {40, 4, 40, 21}, {}},
    };
    for (const LayoutRow& row : rows) {
        XPButtonMembers members;
        if (row.text.isValid()) members.Caption = "Caption";
        if (row.picture.isValid())
            members.Picture = ButtonPicture::bitmap(plainImage(row.picture, Qt::red));
        members.ButtonShape = row.shape;
        members.CaptionAlign = row.captionAlign;
        members.CaptionStyle = row.style;
        members.PictureAlign = row.pictureAlign;
        members.PicturePixels = row.pixels;
        const XPButtonRegion region = BuildRegion(row.shape, row.size);
        const XPButtonLayout layout = ComputeLayout(members, row.size, region, row.text);
        EXPECT_EQ(layout.CaptionRect, row.captionRect) << row.name;
        EXPECT_EQ(layout.PictureRect, row.pictureRect) << row.name;
        EXPECT_EQ(captionRoom(members, row.size, region), row.room) << row.name;
    }
}

TEST(MaskBitmap, IsTransparentInTheColourOfItsCorner) {
    QImage image = plainImage({8, 8}, QColor(10, 20, 30));
    image.setPixelColor(2, 2, QColor(13, 17, 33));
    image.setPixelColor(3, 3, QColor(14, 20, 30));
    image.setPixelColor(4, 4, Qt::white);
    QImage mask = PrepareMask(ButtonPicture::bitmap(image), {16, 16}, 1);
    EXPECT_EQ(mask.pixel(5, 5), 0U);
    EXPECT_EQ(mask.pixelColor(7, 7), QColor(14, 20, 30));
    mask = PrepareMask(ButtonPicture::icon(image), {16, 16}, 1);
    EXPECT_EQ(mask.pixelColor(5, 5), QColor(13, 17, 33));
    image.setPixelColor(0, 0, Qt::white);
    mask = PrepareMask(ButtonPicture::bitmap(image), {2, 2}, 1);
    EXPECT_EQ(mask.pixel(1, 1), 0U) << "the corner of the copy counts";
    mask = PrepareMask(ButtonPicture::bitmap(image), {1 << 20, 1 << 20}, 1);
    EXPECT_TRUE(mask.isNull()) << "no memory has room for it";
    EXPECT_EQ(FitPicture(10, 100, {4, 8}), QSize(10, 20));
}

}  // namespace
}  // namespace brindlex
