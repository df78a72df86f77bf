#include "system/QtDesktop.h"

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
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        box.accept();
    });
    desktop.showBox(nullptr, {"<b>a</b> & b\r\nsecond\rthird", "Title"});
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    desktop.setBusyPointer(false);
    EXPECT_FALSE(QApplication::overrideCursor());
}

/// Accepts the name that the dialog shows, or another.
void acceptName(QFileDialog& dialog, const QString& name = {}) {
    auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
    if (!name.isEmpty()) edit->setText(name);
    QTest::keyClick(edit, Qt::Key_Return);
}

class FileDialogs : public testing::Test {
  protected:
    FileDialogs() { folder.put("Maps/one.script", "x"); }

    FileAnswer ask(bool save) {
        const QStringList filters{"Script files (*.script)", "*.script", "All files (*.*)", "*.*"};
        return desktop.askFile(nullptr, {"Script file", folder.path("maps\\"), filters, save});
    }

    TempFolder folder;
    QtDesktop desktop;
};

TEST_F(FileDialogs, StartInTheFolderAndReturnTheTypedPath) {
    for (const bool save : {false, true}) {
        const QString name = save ? "new" : "one.script";
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            EXPECT_EQ(dialog.directory().path(), folder.path("Maps"));
            acceptName(dialog, name);
        });
        EXPECT_EQ(ask(save), FileAnswer(folder.path("Maps/") + name));
    }
}

TEST_F(FileDialogs, SavingIntoAMissingFolderIsRefusedAndAskedAgain) {
    for (const char* name : {"gone/new", "gone\\new", "one.script/new"}) {
        SCOPED_TRACE(name);
        whenOpen<QFileDialog>([&](QFileDialog& dialog) {
            acceptName(dialog, name);
            whenOpen<QMessageBox>([&](QMessageBox& box) {
                box.accept();
                whenOpen<QFileDialog>([](QFileDialog& again) { acceptName(again); });
            });
        });
        EXPECT_EQ(ask(true), FileAnswer(folder.path("Maps/new")));
    }
}

TEST_F(FileDialogs, SavingOverAnotherFileIsAskedAbout) {
    whenOpen<QFileDialog>([](QFileDialog& dialog) {
        whenOpen<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
        acceptName(dialog, "one.script");
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    EXPECT_TRUE(std::holds_alternative<Cancelled>(ask(true)));
}

}  // namespace
}  // namespace brindlex
