#include "shell/Module1.h"

#include <QApplication>
#include <QSessionManager>
#include <algorithm>
#include <utility>

#include "editor/ScriptSyntax.h"
#include "platform/Desktop.h"
#include "platform/Files.h"
#include "platform/QtDesktop.h"
#include "platform/SettingsStore.h"
#include "shell/frmMain.h"

namespace brindlex {

Program::Program(Surroundings surroundings) : surroundings_(std::move(surroundings)) {}

Program::~Program() = default;

void Main(Program& program) {
    program.state_.DefaultColors = {"0", "32768", "192", "8388608", "16711935"};
    program.state_.Keywords = scriptKeywords();
    program.state_.BlockNames = {"game_manager"};
    program.frmMain_ = std::make_unique<frmMain>(program.state_, program.surroundings_);
    program.frmMain_->Form_Load();
    program.frmMain_->show();
}

namespace {

/// The end of the session asks about unsaved text as the end of the program does. While a question
/// is open already, it waits for the next try.
void askAtLogOut(frmMain& window, QSessionManager& session) {
    if (!session.allowsInteraction()) return;
    if (window.document().busy() || !window.close()) session.cancel();
}

}  // namespace

int runProgram(int argc, char** argv) {
    const QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Brindlex"));
    QtDesktop desktop;
    SettingsStore settings;
    Program program({.desktop = desktop,
                     .settings = settings,
                     .programFolder = QCoreApplication::applicationDirPath(),
                     .commandLine = QCoreApplication::arguments().mid(1).join(' '),
                     .endProgram = [] { QCoreApplication::exit(0); }});
    Main(program);
    QObject::connect(
        &application, &QGuiApplication::commitDataRequest, &program.mainWindow(),
        [&program](QSessionManager& session) { askAtLogOut(program.mainWindow(), session); });
    return QApplication::exec();
}

bool FileExists(const QString& path) {
    return Files::exists(path);
}

QString FileNameOf(const QString& path) {
    return path.mid(std::max(path.lastIndexOf('\\'), path.lastIndexOf('/')) + 1);
}

QString BrowseForFolder(Desktop& desktop, const AppState& state, QWidget* owner,
                        const QString& title) {
    const QString folder = desktop.askFolder(owner, title, state.WolfDir).value_or(QString());
    return folder.isEmpty() ? state.WolfDir : folder;
}

}  // namespace brindlex
