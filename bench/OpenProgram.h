#pragma once

#include <QTemporaryDir>
#include <memory>

#include "shell/Module1.h"
#include "shell/frmMain.h"
#include "system/QtDesktop.h"
#include "system/SettingsStore.h"

namespace brindlex::bench {

/// A desktop whose user always picks the same file.
class PickingDesktop : public QtDesktop {
  public:
    explicit PickingDesktop(QString path) : path_(std::move(path)) {}
    FileAnswer askFile(QWidget*, const FileQuestion&) override { return path_; }

  private:
    QString path_;
};

/// A run of the program with the reference, with a generated script at hand for OpenFile. It
/// completes no words unless its state is told to.
class OpenProgram {
  public:
    explicit OpenProgram(std::size_t scriptBytes);

    AppState& state() { return program_->state(); }
    frmMain& window() { return program_->mainWindow(); }
    std::size_t scriptBytes() const { return scriptBytes_; }

  private:
    QTemporaryDir folder_;
    std::size_t scriptBytes_;
    PickingDesktop desktop_{folder_.filePath(QStringLiteral("bench.script"))};
    SettingsStore settings_{folder_.path()};
    std::unique_ptr<Program> program_;
};

}  // namespace brindlex::bench
