#include <QLabel>
#include <QListWidget>
#include <QTest>
#include <QTreeWidget>

#include "ShellTest.h"

namespace brindlex {
namespace {

class ReferencePanelTest : public ShellTest {
  protected:
    ReferencePanelTest() { put("ShowTreeView", "1"); }

    /// The errors since the start, without their time.
    QStringList errors() {
        QStringList lines;
        auto& list = control<QListWidget>("txtError");
        for (int row = 0; row < list.count(); ++row)
            lines += list.item(row)->text().section(" - Error: ", 1);
        return lines;
    }
};

TEST_F(ReferencePanelTest, DescribesACommandAndTypesIt) {
    start();
    auto& tree = control<QTreeWidget>("TreeView1");
    ASSERT_EQ(tree.topLevelItemCount(), 14);
    EXPECT_EQ(tree.topLevelItem(13)->text(0), "Sound");
    const QTreeWidgetItem* const category = tree.topLevelItem(0);
    tree.setCurrentItem(category->child(1));
    EXPECT_TRUE(control<QLabel>("Label3").text().startsWith("activate"));
    EXPECT_EQ(control<QLabel>("Label4").toolTip(), control<QLabel>("Label4").text());
    editor().SetSelStart(1);
    editor().SetSelLength(3);
    QTest::keyClick(&tree, Qt::Key_Return);
    EXPECT_EQ(editor().Text(), "pactivateet\r\n");
    EXPECT_EQ(editor().SelText(), "activate");
    EXPECT_EQ(window().focusWidget(), &editor().rtb());
    tree.setCurrentItem(tree.topLevelItem(0));
    EXPECT_EQ(control<QLabel>("Label3").text() + control<QLabel>("Label4").text(), "");
}

TEST_F(ReferencePanelTest, TellsOnceOfADatabaseThatIsOfNoUse) {
    const char* const file = "program/scriptref.mdb";
    const QString name = "Script reference database 'scriptref.mdb' ";
    const std::pair<const char*, QString> rows[] = {
        {nullptr, "not found."},
        {"", "cannot be used: no such table: MAIN."},
        {"no database at all, but some text of some length",
         "cannot be used: file is not a database."}};
    for (const auto& [bytes, problem] : rows) {
        std::filesystem::remove(folder.at(file));
        if (bytes) folder.put(file, bytes);
        start();
        EXPECT_EQ(errors(), QStringList(name + problem)) << problem.toStdString();
        EXPECT_EQ(control<QTreeWidget>("TreeView1").topLevelItemCount(), 0);
        program->state().AutoCompleteEnabled = true;
        QTest::keyClicks(&editor().rtb(), "tr");
        QCoreApplication::processEvents();
        EXPECT_EQ(editor().SelText(), "igger") << "completion needs no database";
    }
}

}  // namespace
}  // namespace brindlex
