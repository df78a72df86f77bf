#include "shell/Commands.h"

#include <QAction>
#include <QMenuBar>

#include "shell/frmMain.h"

namespace brindlex {
namespace {

using Handler = frmMain::Command;
enum class Mark { No, Yes };

/// A row without a name is a separator. One whose shortcut is kMenu is a menu; its handler runs
/// each time the menu opens. A command without a handler does not exist yet.
struct Row {
    const char* menu;  ///< the name of the menu that it stands in; empty: the menu bar
    const char* name;
    const char* caption;
    const char* shortcut;
    Handler handler;
    Mark mark = Mark::No;
};

constexpr const char* kMenu = nullptr;

constexpr Row separatorIn(const char* menu) {
    return {menu, "", "", "", nullptr};
}

constexpr Row kRows[] = {
    {"", "funFile", "&File", kMenu, nullptr},
    {"funFile", "funNew", "&New", "Ctrl+N", &frmMain::funNew_Click},
    {"funFile", "funOpen", "&Open", "Ctrl+O", &frmMain::funOpen_Click},
    separatorIn("funFile"),
    {"funFile", "funSave", "&Save", "Ctrl+S", &frmMain::funSave_Click},
    {"funFile", "funSaveAs", "Save &As...", "", &frmMain::funSaveAs_Click},
    separatorIn("funFile"),
    {"funFile", "funSavePreset", "Save to &Preset", "", &frmMain::funSavePreset_Click},
    separatorIn("funFile"),
    {"funFile", "funClose", "E&xit", "", &frmMain::funClose_Click},

    {"", "funEdit", "&Edit", kMenu, &frmMain::funEdit_Click},
    {"funEdit", "funUndo", "&Undo", "Ctrl+Z", &frmMain::funUndo_Click},
    {"funEdit", "funRedo", "&Redo", "Ctrl+Y", &frmMain::funRedo_Click},
    separatorIn("funEdit"),
    {"funEdit", "funCut", "Cu&t", "Ctrl+X", &frmMain::funCut_Click},
    {"funEdit", "funCopy", "&Copy", "Ctrl+C", &frmMain::funCopy_Click},
    {"funEdit", "funPaste", "&Paste", "Ctrl+V", &frmMain::funPaste_Click},
    {"funEdit", "funDelete", "De&lete", "Del", &frmMain::funDelete_Click},
    separatorIn("funEdit"),
    {"funEdit", "funSearch", "&Find...", "Ctrl+F", nullptr},
    {"funEdit", "funReplace", "R&eplace...", "Ctrl+H", nullptr},
    {"funEdit", "funGoTo", "&Go To...", "Ctrl+G", nullptr},
    separatorIn("funEdit"),
    {"funEdit", "funSelectAll", "Select &All", "Ctrl+A", &frmMain::funSelectAll_Click},
    separatorIn("funEdit"),
    {"funEdit", "funInsMap", "Insert &Mapname", "F5", &frmMain::funInsMap_Click},
    {"funEdit", "funInsTD", "Insert &Date", "F6", &frmMain::funInsTD_Click},
    separatorIn("funEdit"),
    {"funEdit", "funOptions", "&Options", "", nullptr},

    {"", "funTools", "&Tools", kMenu, nullptr},
    {"funTools", "funFont", "&Font", "", nullptr},
    separatorIn("funTools"),
    {"funTools", "funCount", "C&ount { }", "", nullptr},
    {"funTools", "funAccum", "&Accum count", "", nullptr},
    separatorIn("funTools"),
    {"funTools", "funComBlock", "&Comment block", "Ctrl+J", &frmMain::funComBlock_Click},
    {"funTools", "funUnComBlock", "&Uncomment block", "Ctrl+K", &frmMain::funUnComBlock_Click},
    separatorIn("funTools"),
    {"funTools", "funEditScriptRef", "&Edit Scripting Reference", "", nullptr},

    {"", "funView", "&View", kMenu, nullptr},
    {"funView", "funWindowSize", "&Window size", kMenu, nullptr},
    {"funWindowSize", "funFull", "&Full screen", "", &frmMain::funFull_Click},
    {"funWindowSize", "funDefault", "&Default size", "", &frmMain::funDefault_Click},
    {"funWindowSize", "funSavePos", "&Save position", "", &frmMain::funSavePos_Click},
    {"funView", "funShowCmd", "Show Scripting &Reference", "Ctrl+T", &frmMain::funShowCmd_Click,
     Mark::Yes},
    {"funView", "funScriptTar", "Show Script/Targetname &import", "Ctrl+U",
     &frmMain::funScriptTar_Click, Mark::Yes},

    {"", "funHelp", "&Help", kMenu, nullptr},
    {"funHelp", "funAbout", "&About", "", nullptr},
    {"funHelp", "funReadme", "&Readme", "", nullptr},
};

std::function<void()> commandOf(const Row& row, frmMain& window) {
    if (!row.handler) return nullptr;
    return [&window, handler = row.handler] { window.run(handler); };
}

QAction* makeEntry(const Row& row, const std::function<void()>& command, frmMain& window) {
    auto* action = new QAction(QString::fromLatin1(row.caption), &window);
    action->setObjectName(QString::fromLatin1(row.name));
    action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
    action->setCheckable(row.mark == Mark::Yes);
    action->setEnabled(command != nullptr);
    if (command) QObject::connect(action, &QAction::triggered, &window, command);
    return action;
}

QMenu* makeMenu(const Row& row, QMenu* parent, QMenuBar& menuBar, frmMain& window) {
    const QString caption = QString::fromLatin1(row.caption);
    QMenu* menu = parent ? parent->addMenu(caption) : menuBar.addMenu(caption);
    menu->setObjectName(QString::fromLatin1(row.name));
    if (row.handler) QObject::connect(menu, &QMenu::aboutToShow, &window, row.handler);
    return menu;
}

}  // namespace

Commands::Commands(frmMain& window, QMenuBar& menuBar) {
    QHash<QString, QMenu*> menus;
    for (const Row& row : kRows) {
        QMenu* menu = menus.value(QString::fromLatin1(row.menu));
        const QString name = QString::fromLatin1(row.name);
        if (row.shortcut == kMenu) {
            menus.insert(name, makeMenu(row, menu, menuBar, window));
        } else if (name.isEmpty()) {
            menu->addSeparator();
        } else {
            const std::function<void()> command = commandOf(row, window);
            QAction* action = makeEntry(row, command, window);
            menu->addAction(action);
            entries_.insert(name, {action, command});
        }
    }
}

QAction& Commands::entry(const QString& name) const {
    Q_ASSERT(entries_.contains(name));
    return *entries_[name].action;
}

void Commands::enable(const QString& name, bool enabled) {
    entry(name).setEnabled(enabled && entries_[name].command);
}

void Commands::run(const QString& name) const {
    if (const auto& command = entries_[name].command) command();
}

}  // namespace brindlex
