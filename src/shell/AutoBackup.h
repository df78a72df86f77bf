#pragma once

#include <QString>
#include <functional>

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

    explicit AutoBackup(Parts parts) : parts_(std::move(parts)) {}

    /// Backs the text up under the name of a map, unless the settings say no, and shows the time.
    /// Without a map there is no name and no backup. A failure passes in silence: the last good
    /// backup and its time stay.
    void SaveBackup(const QString& MapName);
    /// A minute has passed: true when it is time for a backup.
    bool tick();

  private:
    Parts parts_;
    long BackupTicks_ = 0;  // whole minutes since the last backup by time
};

}  // namespace brindlex
