#include "system/PropertyBag.h"

#include <gtest/gtest.h>

#include <QPixmap>
#include <tuple>

namespace brindlex {
namespace {

QPixmap picture(const QColor& color) {
    QPixmap pixmap(4, 4);
    pixmap.fill(color);
    return pixmap;
}

TEST(PropertyBag, LeavesOutWhatEqualsItsDefaultAndIgnoresTheCaseOfKeys) {
    const std::tuple<const char*, QVariant, QVariant, bool> rows[] = {
        {"same number of another type", 5, 5LL, false},
        {"text of other case", "a", "A", true},
        {"same picture drawn twice", picture(Qt::red), picture(Qt::red).toImage(), false},
        {"other picture", picture(Qt::red), picture(Qt::blue), true},
        {"no picture over none", QPixmap(), QVariant(), false},
        {"none over picture", QVariant(), picture(Qt::red), true},
    };
    for (const auto& [name, value, defaultValue, stored] : rows) {
        PropertyBag bag;
        bag.writeProperty("Key", "something else", defaultValue);
        bag.writeProperty("KEY", value, defaultValue);
        EXPECT_EQ(bag.keys(), stored ? std::vector<QString>{"Key"} : std::vector<QString>())
            << name;
        EXPECT_NE(bag.readProperty("key", QVariant()), "something else") << name;
    }
}

}  // namespace
}  // namespace brindlex
