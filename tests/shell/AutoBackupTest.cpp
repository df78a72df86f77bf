#include "shell/AutoBackup.h"

#include <QLabel>
#include <QTest>
#include <QTimer>

#include "ShellTest.h"

namespace brindlex {
namespace {

class AutoBackupTest : public ShellTest {
  protected:
    AutoBackupTest() { folder.put("program/Backups/keep", ""); }

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
}

TEST_F(AutoBackupTest, MinutesOfNoSenseBackUpWithEachTickOrNever) {
    for (const char* minutes : {"0", "-5"}) {
        put("AutoBackupMins", minutes);
        startNamed();
        type("x");
        pass(1);
        EXPECT_EQ(backup(), "xspawn\r\n\r\n") << minutes;
        std::filesystem::remove(folder.at("program/Backups/battery_backup.script"));
    }
    put("AutoBackupMins", "2147483647");
    startNamed();
    pass(5);
    EXPECT_EQ(backup(), "(none)");
}

TEST_F(AutoBackupTest, WithoutNameOrWishThereIsNone) {
    start();
    type("x");
    pass(9);
    EXPECT_EQ(folder.count("program/Backups"), 1);
    put("AutoBackup", "0");
    startNamed();
    open("scripts/battery.script");
    trigger("funSave");
    pass(9);
    EXPECT_EQ(backup(), "(none)");
    EXPECT_EQ(pane(), "");
}

TEST_F(AutoBackupTest, TheNameEndsAtTheFirstMapInIt) {
    folder.put("scripts/a.mapB.MAP.map.script", "text");
    start();
    open("scripts/a.mapB.MAP.map.script");
    EXPECT_EQ(folder.get("program/Backups/a_backup.script"), "text\r\n");
}

TEST_F(AutoBackupTest, AFolderThatRefusesPassesInSilence) {
    const std::function<void()> ways[] = {
        [this] { std::filesystem::remove_all(folder.at("program/Backups")); },
        [this] { folder.put("program/Backups", "a file"); },
        [this] {
            std::filesystem::remove(folder.at("program/Backups"));
            folder.put("program/Backups/battery_backup.script/in the way", "");
        },
    };
    for (const auto& way : ways) {
        way();
        start();
        open("scripts/battery.script");
        type("x");
        trigger("funSave");
        pass(9);
        EXPECT_EQ(pane(), "");
        EXPECT_EQ(title(), "battery.script - Brindlex");
    }
}

}  // namespace
}  // namespace brindlex
