#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>

#include "shell/Module1.h"
#include "shell/frmMain.h"
#include "system/QtDesktop.h"
#include "system/SettingsStore.h"

namespace {

/// Ends the event loop when a window has painted for the first time, with the milliseconds since
/// the process began its work on standard output.
class FirstPaint : public QObject {
  public:
    explicit FirstPaint(const QElapsedTimer& clock) : clock_(clock) {
        QCoreApplication::instance()->installEventFilter(this);
    }
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::Paint || !watched->isWidgetType()) return false;
        QCoreApplication::instance()->removeEventFilter(this);
        QMetaObject::invokeMethod(
            this, [this] { report(); }, Qt::QueuedConnection);
        return false;
    }

  private:
    void report() const {
        std::printf("%.3f\n", static_cast<double>(clock_.nsecsElapsed()) / 1e6);
        QCoreApplication::exit(0);
    }
    const QElapsedTimer& clock_;
};

}  // namespace

/// Usage: start_probe empty|program    Starts an empty window of the toolkit, or the program with
/// an empty document, and prints how long it took to the end of the first painting.
int main(int argc, char** argv) {
    QElapsedTimer clock;
    clock.start();
    const QApplication application(argc, argv);
    const FirstPaint firstPaint(clock);
    if (argc == 2 && qstrcmp(argv[1], "empty") == 0) {
        QWidget window;
        window.resize(930, 740);
        window.show();
        return QApplication::exec();
    }
    const QTemporaryDir folder;
    QFile::link(QCoreApplication::applicationDirPath() + "/../brindlex/scriptref.mdb",
                folder.filePath("scriptref.mdb"));
    brindlex::QtDesktop desktop;
    brindlex::SettingsStore settings(folder.path());
    brindlex::Program program({.desktop = desktop,
                               .settings = settings,
                               .programFolder = folder.path(),
                               .commandLine = {},
                               .endProgram = [] {}});
    brindlex::Main(program);
    return QApplication::exec();
}
