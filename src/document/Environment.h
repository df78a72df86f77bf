#pragma once

#include <QString>
#include <functional>

namespace brindlex {

class Desktop;
class SettingsStore;

/// What a run of the program gets from outside. What it refers to outlives the run.
struct Environment {
    Desktop& desktop;
    SettingsStore& settings;
    QString programFolder;  ///< holds the program and its data files
    QString commandLine;    ///< the arguments, joined by one blank
    /// Ends the event loop. It must not destroy the program: handlers still run.
    std::function<void()> endProgram;
};

}  // namespace brindlex
