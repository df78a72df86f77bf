#include "shell/AutoBackup.h"

#include "editor/KELP_RTBSyntax.h"
#include "platform/Desktop.h"
#include "shell/AppState.h"
#include "shell/ScriptFile.h"
#include "shell/StatusPanes.h"

namespace brindlex {

AutoBackup::AutoBackup(Parts parts, QObject* owner)
    : parts_(std::move(parts)), timerAutoSave_(owner) {
    timerAutoSave_.setObjectName(QStringLiteral("timerAutoSave"));
    timerAutoSave_.setInterval(60000);
    timerAutoSave_.callOnTimeout([this] { onTimer(); });
}

void AutoBackup::SaveBackup(const QString& MapName) {
    const qsizetype extension = MapName.indexOf(QLatin1String(".map"));
    if (!parts_.state.AutoBackupEnabled || extension < 0) return;
    const QString path =
        parts_.programFolder + "/Backups/" + MapName.left(extension) + "_backup.script";
    if (writeScript(path, parts_.editor.box().rope()))
        parts_.panes.showBackupTime(parts_.desktop.now().time());
}

void AutoBackup::start() {
    // Starting a timer that runs would put its tick off, with each typed character anew.
    if (!timerAutoSave_.isActive()) timerAutoSave_.start();
}

bool AutoBackup::tick() {
    if (++BackupTicks_ < parts_.state.AutoBackupMins) return false;
    BackupTicks_ = 0;
    return true;
}

}  // namespace brindlex
