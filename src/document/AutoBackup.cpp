#include "document/AutoBackup.h"

#include <utility>

#include "document/AppState.h"
#include "document/Environment.h"
#include "document/ScriptFile.h"
#include "editor/KELP_RTBSyntax.h"

namespace brindlex {

AutoBackup::AutoBackup(const AppState& state, const Environment& environment,
                       KELP_RTBSyntax& editor, std::function<void()> due)
    : state_(state),
      environment_(environment),
      editor_(editor),
      due_(std::move(due)),
      timerAutoSave_(&editor) {
    timerAutoSave_.setObjectName(QStringLiteral("timerAutoSave"));
    timerAutoSave_.setInterval(60000);
    timerAutoSave_.callOnTimeout([this] { timerAutoSave_Timer(); });
}

bool AutoBackup::SaveBackup(const QString& MapName) {
    const qsizetype extension = MapName.indexOf(QLatin1String(".map"));
    if (!state_.AutoBackupEnabled || extension < 0) return false;
    return writeScript(
        environment_.programFolder + "/Backups/" + MapName.left(extension) + "_backup.script",
        editor_.box().rope());
}

void AutoBackup::start() {
    // Starting a running timer anew with each typed character would put its tick off for ever.
    if (!timerAutoSave_.isActive()) timerAutoSave_.start();
}

void AutoBackup::timerAutoSave_Timer() {
    if (++BackupTicks_ < state_.AutoBackupMins) return;
    BackupTicks_ = 0;
    due_();
}

}  // namespace brindlex
