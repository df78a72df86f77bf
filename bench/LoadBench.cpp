#include <benchmark/benchmark.h>

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>

#include "bench/ScriptGenerator.h"
#include "platform/QtDesktop.h"
#include "platform/SettingsStore.h"
#include "shell/Module1.h"
#include "shell/frmMain.h"

namespace brindlex::bench {
namespace {

/// A desktop whose user always picks the same file.
class PickingDesktop : public QtDesktop {
  public:
    explicit PickingDesktop(QString path) : path_(std::move(path)) {}
    FileAnswer askFile(QWidget*, const FileQuestion&) override { return path_; }

  private:
    QString path_;
};

/// From the answered file dialog to the coloured text in the window, both yields included.
void openFile(benchmark::State& state) {
    QTemporaryDir folder;
    const QString path = folder.filePath("bench.script");
    const std::string text = generateScript(static_cast<std::size_t>(state.range(0)));
    QFile file(path);
    if (!file.open(QFile::WriteOnly) ||
        file.write(text.data(), static_cast<qint64>(text.size())) != file.size()) {
        return state.SkipWithError("cannot write the script");
    }
    file.close();

    PickingDesktop desktop(path);
    SettingsStore settings(folder.path());
    Program program({desktop, settings, folder.path(), {}, [] {}});
    Main(program);
    QApplication::processEvents();
    for (auto _ : state) program.mainWindow().OpenFile();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(openFile)->Arg(100'000)->Arg(1'000'000)->Arg(10'000'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlex::bench
