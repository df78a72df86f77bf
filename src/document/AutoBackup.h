#pragma once

#include <QString>
#include <QTimer>
#include <functional>

namespace brindlex {

class KELP_RTBSyntax;
struct AppState;
struct Environment;

/// Copies the editor's text to one backup file a map, in the folder Backups beside the program, and
/// times the backups. A backup overwrites the last one of its name, with the same care as a script
/// is saved. The user's own file is not touched.
class AutoBackup {
  public:
    /// All references outlive this object; the timer is a child of `editor`. `due` is called when a
    /// backup by time is to be made.
    AutoBackup(const AppState& state, const Environment& environment, KELP_RTBSyntax& editor,
               std::function<void()> due);

    /// Writes the backup that is named after `MapName`. False when the settings switch backups off,
    /// there is no map, the folder is missing or the disk refuses; then the last backup stays.
    bool SaveBackup(const QString& MapName);

    /// Starts counting minutes; does nothing when they are being counted.
    void start();
    /// The count of minutes stays.
    void stop() { timerAutoSave_.stop(); }

  private:
    void timerAutoSave_Timer();

    const AppState& state_;
    const Environment& environment_;
    const KELP_RTBSyntax& editor_;
    std::function<void()> due_;
    QTimer timerAutoSave_;
    long BackupTicks_ = 0;  // whole minutes since the last backup by time
};

}  // namespace brindlex
