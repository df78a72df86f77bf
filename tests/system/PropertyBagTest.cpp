#include "system/PropertyBag.h"

#include <gtest/gtest.h>

#include <QFont>
#include <QPixmap>
#include <tuple>

namespace brindlex {
namespace {

QPixmap picture(const QColor& color) {
    QPixmap pixmap(4, 4);
    pixmap.fill(color);
    return pixmap;
}

TEST(PropertyBag, LeavesOutWhatEqualsItsDefault) {
    const QFont font("Courier New", 10);
    const std::tuple<const char*, QVariant, QVariant, bool> rows[] = {
        {"same number of another type", 5, 5LL, false},
        {"text of other case", "a", "A", true},
        {"same picture drawn twice", picture(Qt::red), picture(Qt::red), false},
        {"pixmap and its image", picture(Qt::red), picture(Qt::red).toImage(), false},
        {"other picture", picture(Qt::red), picture(Qt::blue), true},
        {"no picture over none", QPixmap(), QVariant(), false},
        {"none over picture", QVariant(), picture(Qt::red), true},
        {"other font", font, QFont("Courier New", 11), true},
    };
    for (const auto& [name, value, defaultValue, stored] : rows) {
        PropertyBag bag;
        bag.writeProperty("Key", "something else", defaultValue);
        bag.writeProperty("Key", value, defaultValue);
        EXPECT_EQ(!bag.keys().empty(), stored) << name;
    }
}

TEST(PropertyBag, KeysIgnoreCaseAndKeepTheirOrder) {
    PropertyBag bag;
    bag.writeProperty("Caption", "one", "");
    bag.writeProperty("cBhover", 2, 0);
    bag.writeProperty("Shape", 3, 0);
    bag.writeProperty("CAPTION", "two", "");
    EXPECT_EQ(bag.readProperty("cBHover", 0), 2);
    EXPECT_EQ(bag.readProperty("caption", ""), "two");
    EXPECT_EQ(bag.readProperty("Absent", 9), 9);
    EXPECT_EQ(bag.readProperty("Shape", "text").typeId(), QMetaType::QString);
    bag.writeProperty("cbhover", 0, 0);
    EXPECT_EQ(bag.keys(), (std::vector<QString>{"Caption", "Shape"}));
}

}  // namespace
}  // namespace brindlex
