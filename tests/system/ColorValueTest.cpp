#include "system/ColorValue.h"

#include <gtest/gtest.h>

#include <limits>

#include "system/Twips.h"

namespace brindlex {
namespace {

TEST(ColorValue, RedIsTheLowByteAndSystemColoursFollowThePalette) {
    EXPECT_EQ(ColorValue::of(QColor(1, 2, 3, 0)).value(), 0x00030201U) << "transparency counts";
    QPalette palette(Qt::black);
    EXPECT_EQ(ColorValue(0x7FC0FF01).resolve(palette), QColor(0x01, 0xFF, 0xC0));
    palette.setColor(QPalette::Active, QPalette::ButtonText, QColor("#405060"));
    palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor("#708090"));
    EXPECT_EQ(ColorValue(0x80000011).resolve(palette), QColor("#708090"));
    EXPECT_EQ(ColorValue(0x80ABCD12).resolve(palette), QColor("#405060")) << "only the low byte";
}

TEST(Twips, StayWithinAnInt) {
    EXPECT_EQ(Twips::toPixels(1e300), std::numeric_limits<int>::max());
    EXPECT_EQ(Twips::toPixels(-1e300), std::numeric_limits<int>::min());
    EXPECT_EQ(Twips::toPixels(std::numeric_limits<double>::quiet_NaN()), 0);
}

}  // namespace
}  // namespace brindlex
