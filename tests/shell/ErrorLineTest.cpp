#include "shell/ErrorLine.h"

#include <QListWidget>
#include <QTest>

#include "ShellTest.h"

namespace brindlex {
namespace {

TEST_F(ShellTest, ErrorLinesAreTimedSelectedAndShownInFullByADoubleClick) {
    start();
    auto& list = control<QListWidget>("txtError");
    const auto boxOf = [](const QString& text) {
        return MessageBox{text, "Error", BoxIcon::Information};
    };
    desktop.expectBox(boxOf(""));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton);
    desktop.setNow(QDateTime(QDate(2003, 5, 29), QTime(7, 8, 9)));
    EXPECT_EQ(window().UpdateError("First <b>"), "");
    window().UpdateError("Second");
    ASSERT_EQ(list.count(), 2);
    EXPECT_EQ(list.currentRow(), 1);
    EXPECT_TRUE(list.item(1)->isSelected());
    list.setCurrentRow(0);
    desktop.expectBox(boxOf("(07:08:09) - Error: First <b>"));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton);
    desktop.expectBox(boxOf("(07:08:09) - Error: First <b>"));
    QTest::keyClick(&list, Qt::Key_Return);

    for (int i = 0; i < ErrorLine::kMostLines; ++i) window().UpdateError(QString::number(i));
    EXPECT_EQ(list.count(), ErrorLine::kMostLines);
    EXPECT_EQ(list.item(0)->text(), "(07:08:09) - Error: 0");
    EXPECT_EQ(list.currentRow(), ErrorLine::kMostLines - 1);
}

}  // namespace
}  // namespace brindlex
