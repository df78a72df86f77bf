#include "document/AutoBackup.h"

#include <QLabel>
#include <QThread>
#include <QTimer>

#include "shell/ShellTest.h"

namespace brindlex {
namespace {

class AutoBackupTest : public ShellTest {
  protected:
    std::string backup() { return folder.get("program/Backups/battery_backup.script"); }
    std::string pane() { return control<QLabel>("SB1_Pane2").text().toStdString(); }
    /// Lets the timer fire as after so many minutes.
    void pass(int minutes) {
        auto& timer = control<QTimer>("timerAutoSave");
        for (; minutes > 0; --minutes) {
            timer.start(0);
            QCoreApplication::processEvents();
        }
        timer.start(60000);
    }
};

TEST_F(AutoBackupTest, OpenAndSaveMakeABackupAndTheTimerDoesAfterItsMinutes) {
    startNamed();
    EXPECT_EQ(backup(), "(none)") << "none for the command line";
    open("scripts/battery.script");
    EXPECT_EQ(backup(), "spawn\r\n\r\n");
    EXPECT_EQ(pane(), "Last AutoBackup saved at: 12:00:00");
    type("x");
    trigger("funSave");
    EXPECT_EQ(backup(), "xspawn\r\n\r\n");
    type("y");
    pass(2);
    EXPECT_EQ(backup(), "xspawn\r\n\r\n");
    desktop.expectBox(saveQuestion("Do you want to save battery.script?"), BoxAnswer::No);
    trigger("funNew");
    desktop.setNow(QDateTime(QDate(2003, 5, 29), QTime(13, 1, 2)));
    pass(1);
    EXPECT_EQ(backup(), "preset\r\n\r\n") << "the map's name stays, and the count of minutes";
    EXPECT_EQ(pane(), "Last AutoBackup saved at: 13:01:02");
    folder.put("scripts/a.mapB.MAP.map.script", "text");
    open("scripts/a.mapB.MAP.map.script");
    EXPECT_EQ(folder.get("program/Backups/a_backup.script"), "text\r\n") << "to the first .map";
}

TEST_F(AutoBackupTest, WithoutNameOrWishThereIsNone) {
    put("AutoBackupMins", "-5");
    start();
    type("x");
    pass(9);
    EXPECT_EQ(folder.count("program/Backups"), 1);
    startNamed();
    type("x");
    pass(1);
    EXPECT_EQ(backup(), "xspawn\r\n\r\n") << "with each tick";
    type("y");
    const MessageBox question = saveQuestion("Do you want to save battery.script?");
    desktop.expectBox(question, BoxAnswer::No, [this] { pass(1); });
    trigger("funNew");
    EXPECT_EQ(backup(), "xspawn\r\n\r\n") << "the new text is not the old script's";
    put("AutoBackup", "0");
    startNamed();
    trigger("funSave");
    pass(9);
    EXPECT_EQ(pane(), "");
}

TEST_F(AutoBackupTest, AScriptThatCannotBeReadKeepsItsBackupUntilTheTextIsChanged) {
    folder.put("program/Backups/battery_backup.script", "good");
    std::filesystem::remove(folder.at("scripts/battery.script"));
    folder.put("scripts/battery.script/in the way", "");
    startNamed();
    pass(9);
    EXPECT_EQ(backup(), "good");
    type("x");
    std::filesystem::remove_all(folder.at("program/Backups"));
    pass(3);
    EXPECT_EQ(pane(), "") << "nowhere to write";
    folder.put("program/Backups/keep", "");
    pass(3);
    EXPECT_EQ(backup(), "x\r\n");
}

TEST_F(AutoBackupTest, TheTimerFollowsTheDocumentAndIsNotPutOffByTyping) {
    startNamed();
    auto& timer = control<QTimer>("timerAutoSave");
    EXPECT_EQ(timer.interval(), 60000);
    trigger("funNew");
    EXPECT_FALSE(timer.isActive());
    type("x");
    EXPECT_TRUE(timer.isActive());
    timer.start(20);
    QThread::msleep(30);
    type("x");
    EXPECT_LE(timer.remainingTime(), 0);
}

}  // namespace
}  // namespace brindlex
