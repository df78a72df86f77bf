#include "shell/Module1.h"

#include <QApplication>
#include <QSessionManager>
#include <csignal>
#include <utility>

#include "editor/ScriptSyntax.h"
#include "shell/frmMain.h"
#include "system/Desktop.h"
#include "system/QtDesktop.h"
#include "system/SettingsStore.h"

namespace brindlex {

Program::Program(Environment environment) : environment_(std::move(environment)) {}

Program::~Program() = default;

void Main(Program& program) {
    for (std::size_t i = 0; i < kUserColorCount; ++i)
        program.state_.DefaultColors[i] = QString::fromLatin1(kUserColors[i].firstValue);
    program.state_.Keywords = scriptKeywords();
    program.state_.BlockNames = {"game_manager"};
    program.frmMain_ = std::make_unique<frmMain>(program.state_, program.environment_);
    program.frmMain_->Form_Load();
    program.frmMain_->show();
}

namespace {

/// The end of the session asks about unsaved text as the end of the program does. While a command
/// waits for the user, the session goes on.
void askAtLogOut(frmMain& window, QSessionManager& session) {
    if (!session.allowsInteraction()) return;
    if (window.commandRuns() || !window.close()) session.cancel();
}

}  // namespace

int runProgram(int argc, char** argv) {
#ifdef SIGXFSZ
    // A file that may not grow further fails a write, which is told as such.
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    // All arguments together are one path, which the toolkit must not take options out of. Only a
    // session manager starts the program with an option, and without a path.
    const QString commandLine = QCoreApplication(argc, argv).arguments().mid(1).join(' ');
    const bool isSession = commandLine.startsWith(QLatin1String("-session "));
    int toolkitArguments = isSession ? argc : 1;
    const QApplication application(toolkitArguments, argv);
    QCoreApplication::setApplicationName(kProgram);
    QtDesktop desktop;
    SettingsStore settings;
    Program program({.desktop = desktop,
                     .settings = settings,
                     .programFolder = QCoreApplication::applicationDirPath(),
                     .commandLine = isSession ? QString() : commandLine,
                     .endProgram = [] { QCoreApplication::exit(0); }});
    Main(program);
    QObject::connect(
        &application, &QGuiApplication::commitDataRequest, &program.mainWindow(),
        [&program](QSessionManager& session) { askAtLogOut(program.mainWindow(), session); });
    return QApplication::exec();
}

}  // namespace brindlex
