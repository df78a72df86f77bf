#include "shell/AutoBackup.h"

#include "editor/KELP_RTBSyntax.h"
#include "platform/Desktop.h"
#include "shell/AppState.h"
#include "shell/ScriptFile.h"
#include "shell/StatusPanes.h"

namespace brindlex {

void AutoBackup::SaveBackup(const QString& MapName) {
    const qsizetype extension = MapName.indexOf(QLatin1String(".map"));
    if (!parts_.state.AutoBackupEnabled || extension < 0) return;
    const QString path =
        parts_.programFolder + "/Backups/" + MapName.left(extension) + "_backup.script";
    if (writeScript(path, parts_.editor.rtb().box().rope()))
        parts_.panes.showBackupTime(parts_.desktop.now().time());
}

bool AutoBackup::tick() {
    if (++BackupTicks_ < parts_.state.AutoBackupMins) return false;
    BackupTicks_ = 0;
    return true;
}

}  // namespace brindlex
