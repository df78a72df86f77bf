#include "platform/PropertyBag.h"

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
        EXPECT_EQ(bag.contains("Key"), stored) << name;
    }
}

TEST(PropertyBag, ReadsOnlyWhatCanBecomeTheTypeOfTheDefault) {
    const std::tuple<QVariant, QVariant, QVariant> rows[] = {
        {"12", 1, 12},
        {"12x", 1, 1},
        {1e30, 1, 1},
        {0x8000000FU, 0LL, 0x8000000FLL},
        {picture(Qt::red), QFont("Courier New"), QFont("Courier New")},
    };
    for (const auto& [stored, defaultValue, expected] : rows) {
        PropertyBag bag;
        bag.writeProperty("Key", stored, QVariant());
        const QVariant read = bag.readProperty("Key", defaultValue);
        EXPECT_EQ(read, expected) << qUtf8Printable(stored.toString());
        EXPECT_EQ(read.typeId(), expected.typeId());
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
    bag.writeProperty("cbhover", 0, 0);
    EXPECT_EQ(bag.keys(), (std::vector<QString>{"Caption", "Shape"}));
}

}  // namespace
}  // namespace brindlex
