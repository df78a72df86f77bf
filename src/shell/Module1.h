#pragma once

#include <memory>

#include "document/AppState.h"
#include "document/Environment.h"

namespace brindlex {

class frmMain;

/// One run of the program: the shared state and the main window. Any number of them may live in one
/// process.
class Program {
  public:
    explicit Program(Environment environment);
    ~Program();

    AppState& state() { return state_; }
    frmMain& mainWindow() { return *frmMain_; }

  private:
    friend void Main(Program& program);

    Environment environment_;
    AppState state_;
    std::unique_ptr<frmMain> frmMain_;
};

/// Fills the shared state with its first values, loads the main window and shows it.
void Main(Program& program);

/// The process: the application, the services of the system, one program, and the event loop.
/// Returns the exit code.
int runProgram(int argc, char** argv);

}  // namespace brindlex
