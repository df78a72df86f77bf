#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

#include "ShellTest.h"
#include "shell/ErrorLine.h"

namespace brindlex {
namespace {

using MainWindowTest = ShellTest;

/// What shows and which marks are set.
std::string panels(frmMain& window) {
    std::string shown;
    for (const char* name : {"TreeView1", "Picture1", "TreeView2"})
        if (window.findChild<QWidget*>(name)->isVisible()) shown += name + std::string(" ");
    for (const char* name : {"funShowCmd", "funScriptTar"})
        if (window.findChild<QAction*>(name)->isChecked()) shown += name + std::string(" ");
    return shown;
}

TEST_F(MainWindowTest, AtMostOneSidePanelShows) {
    const std::string commands = "TreeView1 Picture1 funShowCmd ";
    const std::string entities = "TreeView2 funScriptTar ";
    const std::pair<const char*, std::string> starts[] = {
        {"0", entities}, {"4", ""}, {"1", commands}};
    for (const auto& [setting, shown] : starts) {
        put("ShowTreeView", setting);
        start();
        EXPECT_EQ(panels(window()), shown) << setting;
    }
    control("TreeView1").setFocus();
    const std::pair<const char*, std::string> steps[] = {
        {"funScriptTar", entities}, {"funShowCmd", commands}, {"funShowCmd", ""}};
    for (const auto& [entry, shown] : steps) {
        trigger(entry);
        EXPECT_EQ(panels(window()), shown) << entry;
        EXPECT_EQ(window().focusWidget(), &editor().rtb()) << "a panel that goes leaves it";
    }
    EXPECT_EQ(stored("ShowTreeView"), "1");
}

TEST_F(MainWindowTest, TheClipboardTakesAndGivesPlainTextWithWholeLineBreaks) {
    start();
    type("a\r\nb\xA4");
    editor().SetSelStart(1);
    editor().SetSelLength(3);
    window().funCopy_Click();
    EXPECT_EQ(desktop.clipboardText(), "\nb");
    window().funCut_Click();
    EXPECT_EQ(editor().Text(), "a\xA4preset\r\n");
    desktop.setClipboardText("x\ny");
    window().funPaste_Click();
    EXPECT_EQ(editor().Text(), "ax\r\ny\xA4preset\r\n");
    EXPECT_EQ(control<QLabel>("SB1_Pane1").text(), "Line: 2");
    EXPECT_EQ(window().CaretPosition(), 5);
    // Half a line break is copied as a whole one.
    editor().SetSelStart(1);
    editor().SetSelLength(2);
    window().funCut_Click();
    EXPECT_EQ(editor().Text(), "ay\xA4preset\r\n");
    window().funPaste_Click();
    EXPECT_EQ(editor().Text(), "ax\r\ny\xA4preset\r\n");
}

TEST_F(MainWindowTest, TheEditMenuEnablesWhatHasSomethingToWorkOn) {
    const auto enabled = [this] {
        emit control<QMenu>("funEdit").aboutToShow();
        std::string names;
        for (const char* name : {"funCut", "funCopy", "funPaste", "funDelete", "funInsMap"})
            if (control<QAction>(name).isEnabled()) names += name + std::string(" ");
        return names;
    };
    start();
    EXPECT_EQ(enabled(), "funDelete ");
    window().funSelectAll_Click();
    QTest::keyClick(&editor().rtb(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(desktop.clipboardText(), "preset\n") << "a key of the editor's own";
    EXPECT_EQ(enabled(), "funCut funCopy funPaste funDelete ");
    startNamed();
    EXPECT_EQ(enabled(), "funPaste funDelete funInsMap ");
}

TEST_F(MainWindowTest, EveryControlHasANameAndEveryMenuEntryKeysOfItsOwn) {
    start();
    for (const QWidget* widget : window().findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || widget->inherits("QMenu")) continue;
        EXPECT_TRUE(!widget->accessibleName().isEmpty() || widget->focusProxy())
            << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
    }
    QList<QList<QAction*>> menus{control<QMenuBar>("").actions()};
    for (const QMenu* menu : window().findChildren<QMenu*>()) menus += menu->actions();
    QStringList keys;
    for (int menu = 0; menu < menus.size(); ++menu) {
        for (const QAction* entry : menus[menu]) {
            if (entry->isSeparator()) continue;
            const QString mnemonic = entry->text().section('&', 1).left(1).toLower();
            EXPECT_FALSE(mnemonic.isEmpty()) << entry->text().toStdString();
            keys += QString::number(menu) + mnemonic;
            if (!entry->shortcut().isEmpty()) keys += entry->shortcut().toString();
        }
    }
    EXPECT_EQ(keys.removeDuplicates(), 0) << keys.join(' ').toStdString();
}

TEST_F(MainWindowTest, ErrorLinesAreTimedSelectedAndShownInFullByADoubleClick) {
    start();
    auto& list = control<QListWidget>("txtError");
    const auto expectBox = [this](const QString& text) {
        desktop.expectBox({text, "Error", BoxIcon::Information});
    };
    expectBox("");
    QTest::mouseDClick(list.viewport(), Qt::LeftButton);
    desktop.setNow(QDateTime(QDate(2003, 5, 29), QTime(7, 8, 9)));
    for (int i = 0; i <= ErrorLine::kMostLines; ++i) window().UpdateError(QString::number(i));
    expectBox("(07:08:09) - Error: " + QString::number(ErrorLine::kMostLines));
    QTest::mouseDClick(list.viewport(), Qt::LeftButton);
    list.setCurrentRow(0);
    expectBox("(07:08:09) - Error: 1");
    QTest::keyClick(&list, Qt::Key_Return);
}

TEST_F(MainWindowTest, ShortcutsReachTheirEntriesFromTheEditorOnce) {
    startNamed();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window()));
    window().activateWindow();
    RichTextView& view = editor().rtb();
    QTest::keyClick(&view, Qt::Key_F5);
    EXPECT_EQ(editor().SelText(), "battery");
    QTest::keyClicks(&view, "ab");
    QTest::keyClick(&view, Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(editor().Text(), "aspawn\r\n") << "one step a key, though the menu has it, too";
    QTest::keyClick(&view, Qt::Key_Y, Qt::ControlModifier);
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(editor().Text(), "abpawn\r\n") << "the editor's Del, not the menu's";
    QTest::keyClick(&view, Qt::Key_F6, Qt::ControlModifier);
    EXPECT_EQ(window().focusWidget(), &control("TreeView1"));
    QTest::keyClick(&view, Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(panels(window()), "");
}

}  // namespace
}  // namespace brindlex
