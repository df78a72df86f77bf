#pragma once

#include <QString>
#include <QTimer>
#include <functional>
#include <utility>

namespace brindlex {

class Desktop;
class KELP_RTBSyntax;
class StatusPanes;
struct AppState;

/// The copy of the editor's text beside the program: one file a map, written over with each backup,
/// by the same means and with the same care as a script. The user's own file is not touched.
class AutoBackup {
  public:
    /// The parts of the program that backups work with. All of them outlive it.
    struct Parts {
        const AppState& state;
        Desktop& desktop;  ///< for the time
        const KELP_RTBSyntax& editor;
        StatusPanes& panes;
        QString programFolder;  ///< holds the folder Backups, which is not made when it is missing
    };

    /// Its timer becomes a child of `owner`.
    AutoBackup(Parts parts, QObject* owner);

    /// Backs the text up under the name of a map, unless the settings say no, and shows the time.
    /// Without a map there is no name and no backup. A failure passes in silence: the last good
    /// backup and its time stay.
    void SaveBackup(const QString& MapName);

    /// Minutes pass from here on; those of a timer that runs already go on.
    void start();
    /// The count of minutes stays.
    void stop() { timerAutoSave_.stop(); }
    /// Raised for each minute that has passed.
    std::function<void()> onTimer;
    /// Counts a minute: true when it is time for a backup.
    bool tick();

  private:
    Parts parts_;
    QTimer timerAutoSave_;
    long BackupTicks_ = 0;  // whole minutes since the last backup by time
};

}  // namespace brindlex
