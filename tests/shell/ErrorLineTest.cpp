#include "shell/ErrorLine.h"

#include <QListWidget>
#include <QTest>

#include "ShellTest.h"

namespace brindlex {
namespace {

class ErrorLineTest : public ShellTest {
  protected:
    ErrorLineTest() { start(); }
    QListWidget& list() { return control<QListWidget>("txtError"); }
    static MessageBox box(const QString& text) { return {text, "Error", BoxIcon::Information}; }
};

TEST_F(ErrorLineTest, AddsTimedLinesAndSelectsTheNewest) {
    desktop.setNow(QDateTime(QDate(2003, 5, 29), QTime(7, 8, 9)));
    EXPECT_EQ(window().UpdateError("One"), "");
    window().UpdateError("One");
    ASSERT_EQ(list().count(), 2);
    EXPECT_EQ(list().item(0)->text(), "(07:08:09) - Error: One");
    EXPECT_EQ(list().currentRow(), 1);
    EXPECT_TRUE(list().item(1)->isSelected());
}

TEST_F(ErrorLineTest, ADoubleClickShowsTheSelectedLineInFull) {
    desktop.expectBox(box(""));
    QTest::mouseDClick(list().viewport(), Qt::LeftButton);
    window().UpdateError("First <b>");
    window().UpdateError("Second");
    list().setCurrentRow(0);
    desktop.expectBox(box("(12:00:00) - Error: First <b>"));
    QTest::mouseDClick(list().viewport(), Qt::LeftButton);
    desktop.expectBox(box("(12:00:00) - Error: First <b>"));
    QTest::keyClick(&list(), Qt::Key_Return);
}

TEST_F(ErrorLineTest, KeepsTheNewestLines) {
    for (int i = 0; i < ErrorLine::kMostLines + 5; ++i) window().UpdateError(QString::number(i));
    EXPECT_EQ(list().count(), ErrorLine::kMostLines);
    EXPECT_EQ(list().item(0)->text(), "(12:00:00) - Error: 5");
    EXPECT_EQ(list().currentRow(), ErrorLine::kMostLines - 1);
}

}  // namespace
}  // namespace brindlex
