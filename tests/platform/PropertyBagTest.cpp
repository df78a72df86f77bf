#include "platform/PropertyBag.h"

#include <gtest/gtest.h>

#include <QFont>
#include <QPixmap>

namespace brindlex {
namespace {

QPixmap picture(const QColor& color) {
    QPixmap pixmap(4, 4);
    pixmap.fill(color);
    return pixmap;
}

struct Pair {
    const char* name;
    QVariant value;
    QVariant defaultValue;
    bool stored;
};

TEST(PropertyBag, LeavesOutWhatEqualsItsDefault) {
    const QFont font("Courier New", 10);
    const Pair pairs[] = {
        {"same number of another type", 5, 5LL, false},
        {"other number", 5, 6, true},
        {"text of other case", "a", "A", true},
        {"empty text", "", "x", true},
        {"false over true", false, true, true},
        {"same picture drawn twice", picture(Qt::red), picture(Qt::red), false},
        {"pixmap and its image", picture(Qt::red), picture(Qt::red).toImage(), false},
        {"other picture", picture(Qt::red), picture(Qt::blue), true},
        {"no picture over none", QPixmap(), QVariant(), false},
        {"none over picture", QVariant(), picture(Qt::red), true},
        {"same font", font, QFont("Courier New", 10), false},
        {"other font", font, QFont("Courier New", 11), true},
    };
    for (const Pair& pair : pairs) {
        PropertyBag bag;
        bag.writeProperty("Key", "something else", pair.defaultValue);
        bag.writeProperty("Key", pair.value, pair.defaultValue);
        EXPECT_EQ(bag.contains("Key"), pair.stored) << pair.name;
    }
}

TEST(PropertyBag, ReadsOnlyWhatCanBecomeTheTypeOfTheDefault) {
    struct Row {
        QVariant stored;
        QVariant defaultValue;
        QVariant read;
    };
    const Row rows[] = {
        {"12", 1, 12},
        {"12x", 1, 1},
        {5000000000LL, 1, 1},
        {1e30, 1, 1},
        {2.5, 1.0, 2.5},
        {0x8000000FU, 0LL, 0x8000000FLL},
        {picture(Qt::red), QFont("Courier New"), QFont("Courier New")},
        {"kept as it is", QVariant(), "kept as it is"},
    };
    for (const Row& row : rows) {
        PropertyBag bag;
        bag.writeProperty("Key", row.stored, QVariant());
        const QVariant read = bag.readProperty("Key", row.defaultValue);
        EXPECT_EQ(read, row.read) << qUtf8Printable(row.stored.toString());
        EXPECT_EQ(read.typeId(), row.read.typeId());
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
    EXPECT_EQ(bag.keys(), (std::vector<QString>{"Caption", "cBhover", "Shape"}));
    bag.writeProperty("cbhover", 0, 0);
    EXPECT_EQ(bag.keys(), (std::vector<QString>{"Caption", "Shape"}));
}

}  // namespace
}  // namespace brindlex
