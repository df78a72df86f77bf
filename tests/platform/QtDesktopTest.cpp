#include "platform/QtDesktop.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>

#include "support/TempFolder.h"

namespace brindlex {
namespace {

/// Does something to the dialog that comes up next.
template <typename Dialog, typename Action>
void whenOpen(Action action) {
    QTimer::singleShot(0, [action] {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        ASSERT_TRUE(dialog);
        action(*dialog);
        if (dialog->isVisible()) {
            ADD_FAILURE() << "the dialog stayed open";
            dialog->reject();
        }
    });
}

TEST(QtDesktop, KeysAnswerABox) {
    const auto answer = [](BoxButtons buttons, Qt::Key key) {
        whenOpen<QMessageBox>([key](QMessageBox& box) { QTest::keyClick(&box, key); });
        return QtDesktop().showBox(nullptr, {"Text", "Title", BoxIcon::Question, buttons});
    };
    EXPECT_EQ(answer(BoxButtons::Ok, Qt::Key_Escape), BoxAnswer::Ok);
    EXPECT_EQ(answer(BoxButtons::YesNo, Qt::Key_Escape), BoxAnswer::No);
    EXPECT_EQ(answer(BoxButtons::YesNo, Qt::Key_Return), BoxAnswer::Yes);
    EXPECT_EQ(answer(BoxButtons::YesNoCancel, Qt::Key_Escape), BoxAnswer::Cancel);
    EXPECT_EQ(answer(BoxButtons::YesNoCancel, Qt::Key_Return), BoxAnswer::Yes);
}

TEST(QtDesktop, BoxesShowPlainTextWithLineBreaksAndTheNormalPointer) {
    QtDesktop desktop;
    desktop.setBusyPointer(true);
    desktop.setBusyPointer(true);
    whenOpen<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.text(), "<b>a</b> & b\nsecond\nthird");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        box.accept();
    });
    desktop.showBox(nullptr, {"<b>a</b> & b\r\nsecond\rthird", "Title"});
    ASSERT_TRUE(QApplication::overrideCursor());
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop.setBusyPointer(false);
    EXPECT_FALSE(QApplication::overrideCursor());
}

TEST(QtDesktop, FileDialogsStartInTheFolderAndAddNoSuffix) {
    const TempFolder folder;
    folder.put("Maps/one.script", "x");
    QtDesktop desktop;
    FileQuestion question{"Save script file",
                          folder.path("maps\\"),
                          {"Script files (*.script)", "*.script", "All files (*.*)", "*.*"},
                          true};
    whenOpen<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().path(), folder.path("Maps"));
        EXPECT_EQ(dialog.windowTitle(), "Save script file");
        auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
        name->setText("new");
        QTest::keyClick(name, Qt::Key_Return);
    });
    const FileAnswer saved = desktop.askFile(nullptr, question);
    ASSERT_TRUE(std::holds_alternative<QString>(saved));
    EXPECT_EQ(std::get<QString>(saved), folder.path("Maps/new"));

    question.save = false;
    question.folder = "C:\\No such folder";
    whenOpen<QFileDialog>([](QFileDialog& dialog) { dialog.reject(); });
    EXPECT_TRUE(std::holds_alternative<Cancelled>(desktop.askFile(nullptr, question)));
}

}  // namespace
}  // namespace brindlex
