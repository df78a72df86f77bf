#include <QAbstractButton>
#include <QMenu>
#include <QTest>
#include <QTimer>

#include "shell/ShellTest.h"
#include "support/MarkedText.h"

namespace brindlex {
namespace {

/// A command that waits, for the user or in a yield of a load.
enum class Wait { OpenDialog, SaveDialog, SaveQuestion, PresetQuestion, FirstYield, LastYield };

class CommandLockTest : public ShellTest, public testing::WithParamInterface<Wait> {
  protected:
    CommandLockTest() {
        folder.put("scripts/next.script", "next");
        folder.put("program/Backups/keep", "");
        put("AutoBackupMins", "1");
        startNamed();
        type("one");
        type("two");
        editor().SetSelStart(1);
        editor().SetSelLength(4);
        desktop.setClipboardText("pasted");
    }

    /// Starts the command of the parameter; `meanwhile` runs while it waits.
    void waiting(const std::function<void()>& meanwhile) {
        const MessageBox question = saveQuestion("Do you want to save battery.script");
        switch (GetParam()) {
            case Wait::OpenDialog:
                desktop.expectBox(question, BoxAnswer::No);
                desktop.expectFile(openDialog(), Cancelled(), meanwhile);
                return trigger("funOpen");
            case Wait::SaveDialog:
                desktop.expectFile(saveDialog(), Cancelled(), meanwhile);
                return trigger("funSaveAs");
            case Wait::SaveQuestion:
                desktop.expectBox(question, BoxAnswer::Cancel, meanwhile);
                return trigger("funOpen");
            case Wait::PresetQuestion:
                desktop.expectBox(kPresetQuestion, BoxAnswer::No, meanwhile);
                return trigger("funSavePreset");
            case Wait::FirstYield:
                desktop.expectBox(question, BoxAnswer::No);
                return open("scripts/next.script", [&] { inAYield(meanwhile); });
            case Wait::LastYield:
                desktop.expectBox(question, BoxAnswer::No);
                return open("scripts/next.script", [&] { inAYield([&] { inAYield(meanwhile); }); });
        }
    }

    /// Everything that a command could have changed.
    std::string state() {
        const AppState& shared = program->state();
        return test::marked(editor().box()) + '|' + title() + '|' +
               desktop.clipboardText().toStdString() + '|' +
               std::to_string(shared.UndoStack.size()) + '|' +
               std::to_string(shared.RedoStack.size()) + '|' +
               std::to_string(control("TreeView1").isHidden()) + '|' +
               folder.get("scripts/battery.script") + '|' + std::to_string(backups()) + '|' +
               std::to_string(ends);
    }
    std::ptrdiff_t backups() { return folder.count("program/Backups") - 1; }
    void everyCommand() {
        for (const QAction* entry : window().findChildren<QAction*>())
            if (entry->objectName().startsWith("fun") && !entry->menu())
                trigger(entry->objectName().toLatin1());
        for (auto* button : window().findChildren<QAbstractButton*>())
            if (button->objectName().startsWith("tb")) button->click();
        for (const Qt::Key key : {Qt::Key_Z, Qt::Key_Y, Qt::Key_X, Qt::Key_C, Qt::Key_V})
            QTest::keyClick(&editor().rtb(), key, Qt::ControlModifier);
        drop(window(), "scripts/next.script");
    }
};

TEST_P(CommandLockTest, RefusesEveryCommandAndKeepsACloseAndABackupForLater) {
    waiting([&] {
        const std::string before = state();
        everyCommand();
        window().close();
        auto& timer = control<QTimer>("timerAutoSave");
        timer.start(0);
        QTest::qWait(5);
        timer.stop();
        EXPECT_EQ(state(), before);
        if (GetParam() != Wait::FirstYield && GetParam() != Wait::LastYield)
            desktop.expectBox(
                saveQuestion("Do you want to save changes to battery.script?", "Brindlex"),
                BoxAnswer::No);
    });
    EXPECT_TRUE(desktop.allAsked()) << "once, behind the command";
    EXPECT_EQ(ends, 1);
    EXPECT_EQ(backups(), 1);
}

INSTANTIATE_TEST_SUITE_P(Waits, CommandLockTest,
                         testing::Values(Wait::OpenDialog, Wait::SaveDialog, Wait::SaveQuestion,
                                         Wait::PresetQuestion, Wait::FirstYield, Wait::LastYield));

}  // namespace
}  // namespace brindlex
