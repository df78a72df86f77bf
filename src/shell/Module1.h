#pragma once

#include <QString>
#include <functional>
#include <memory>

#include "shell/AppState.h"

class QWidget;

namespace brindlex {

class Desktop;
class SettingsStore;
class frmMain;

/// What a run of the program is given by its surroundings. What it refers to outlives the run.
struct Surroundings {
    Desktop& desktop;
    SettingsStore& settings;
    QString programFolder;  ///< where the program and its data files lie
    QString commandLine;    ///< the words behind the program's name, joined by one blank
    /// Ends the event loop. It must not destroy the program: handlers still run.
    std::function<void()> endProgram;
};

/// One run of the program: the shared state and the main window. Any number of them may live in one
/// process.
class Program {
  public:
    explicit Program(Surroundings surroundings);
    ~Program();

    AppState& state() { return state_; }
    frmMain& mainWindow() { return *frmMain_; }
    /// Whether the program has ended itself, which it may do while it starts.
    bool ended() const;

  private:
    friend void Main(Program& program);

    Surroundings surroundings_;
    AppState state_;
    std::unique_ptr<frmMain> frmMain_;
};

/// Fills the shared state with its first values, loads the main window and shows it.
void Main(Program& program);

/// The process: the application, the services of the platform, one program, and the event loop.
/// Returns the exit code.
int runProgram(int argc, char** argv);

/// Whether a plain file, not hidden, stands at that name, whatever its case. False for an empty
/// path. No character is a wildcard.
bool FileExists(const QString& path);

/// What stands behind the last separator, the whole text if it has none.
QString FileNameOf(const QString& path);

/// The folder that the user picks; `WolfDir` if the user picks none.
QString BrowseForFolder(Desktop& desktop, const AppState& state, QWidget* owner,
                        const QString& title);

}  // namespace brindlex
