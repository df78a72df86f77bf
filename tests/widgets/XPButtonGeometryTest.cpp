#include <gtest/gtest.h>

#include "widgets/MaskBitmap.h"
#include "widgets/TestButton.h"

namespace brindlex {
namespace {

std::string outline(int shape, const QSize& size) {
    const QRegion window = BuildRegion(shape, size).window;
    std::string rows;
    for (int y = 0; y < size.height(); ++y, rows += '\n')
        for (int x = 0; x < size.width(); ++x) rows += window.contains(QPoint(x, y)) ? '#' : '.';
    return rows;
}

TEST(XPButtonRegion, HasTheOutlineOfItsShapeAndGrowsByStepsWhereItMay) {
    EXPECT_EQ(outline(0, {8, 5}), "..####..\n.######.\n########\n.######.\n..####..\n");
    EXPECT_EQ(outline(1, {12, 4}), "##########..\n.##########.\n..#########.\n...#######..\n");
    EXPECT_EQ(outline(2, {12, 4}), "..######....\n.########...\n.#########..\n..#########.\n");
    EXPECT_EQ(outline(3, {12, 4}), "########....\n.########...\n..########..\n...########.\n");
    EXPECT_EQ(outline(3, {3, 5}), "...\n#..\n##.\n.##\n..#\n");
    EXPECT_EQ(outline(4, {8, 4}), ".######.\n########\n########\n.######.\n");
    EXPECT_EQ(outline(7, {5, 2}), "#####\n#####\n");
    EXPECT_EQ(grownWidth(0, {3, 30}), 3);
    FakeDesktop desktop;
    XPButton button(desktop);
    button.resize(24, 21);
    button.SetButtonShape(1);
    EXPECT_EQ(button.width(), 29);
    button.setFixedSize(20, 20);
    button.SetButtonShape(3);
    EXPECT_EQ(button.mask(), QRegion(0, 0, 20, 20)) << "no mask would show nothing";
}

TEST(XPButtonLayout, PlacesCaptionAndPicture) {
    const QSize wide(120, 30), high(120, 50), text(40, 13), none, square(64, 64), flat(64, 32);
    const struct {
        const char* name;
        QSize size, text, picture;
        int captionAlign, style, shape, pictureAlign, pixels;
        QRect captionRect, pictureRect;
        int room = 112;  // for the lines of the caption
    } rows[] = {
        {"left picture", wide, text, square, 2, 0, 0, 0, 16, {48, 8, 40, 13}, {4, 7, 16, 16}, 96},
        {"left of it", wide, text, square, 2, 0, 0, 1, 16, {50, 8, 40, 13}, {30, 7, 16, 16}, 96},
        {"at right", wide, text, square, 2, 0, 0, 2, 16, {32, 8, 40, 13}, {100, 7, 16, 16}, 96},
        {"right of it", wide, text, square, 2, 0, 0, 3, 16, {30, 8, 40, 13}, {74, 7, 16, 16}, 96},
        {"above", high, text, square, 2, 0, 0, 4, 16, {40, 28, 40, 13}, {52, 10, 16, 16}},
        {"below", high, text, square, 2, 0, 0, 5, 16, {40, 12, 40, 13}, {52, 27, 16, 16}},
        {"alone and cut", wide, none, square, 2, 0, 0, 1, 32, {}, {4, 4, 32, 21}, 80},
        {"stretched", wide, text, square, 2, 2, 0, 0, 40, {39, 7, 42, 15}, {3, 3, 114, 24}},
        {"stretched, oval", wide, none, square, 2, 0, 6, 0, 40, {}, {1, 1, 118, 28}},
        {"fitted", wide, none, flat, 2, 0, 0, 0, 48, {}, {42, 6, 36, 18}},
        {"slant 2 right", wide, text, none, 1, 0, 2, 0, 16, {55, 8, 40, 13}, {}, 91},
        {"slant 3", wide, text, none, 2, 0, 3, 0, 16, {41, 8, 40, 13}, {}, 67},
        {"too large", wide, {200, 60}, none, 2, 0, 0, 0, 16, {4, 4, 112, 21}, {}},
    };
    for (const auto& row : rows) {
        const auto picture = ButtonPicture::bitmap(plainImage(row.picture, Qt::red));
        const QString caption = row.text.isValid() ? "Caption" : "";
        const XPButtonMembers members{caption, row.captionAlign, row.style, row.shape,
                                      picture, row.pictureAlign, row.pixels};
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
}

}  // namespace
}  // namespace brindlex
