#include "shell/MainMenu.h"

#include <QAction>
#include <QMenuBar>

#include "shell/frmMain.h"

namespace brindlex {
namespace {

using Handler = frmMain::Command;
enum class Mark { No, Yes };

/// A row without a name is a separator. One without a shortcut field (null) is a menu; its handler
/// runs each time it opens. An entry without a handler does not work yet and is never enabled.
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

constexpr Row kEntries[] = {
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

QAction* makeEntry(const Row& entry, frmMain& window) {
    auto* action = new QAction(QString::fromLatin1(entry.caption), &window);
    action->setObjectName(QString::fromLatin1(entry.name));
    action->setShortcut(QKeySequence(QString::fromLatin1(entry.shortcut)));
    action->setCheckable(entry.mark == Mark::Yes);
    action->setEnabled(entry.handler != nullptr);
    if (entry.handler)
        QObject::connect(action, &QAction::triggered, &window,
                         [&window, command = entry.handler] { window.run(command); });
    return action;
}

QMenu* makeMenu(const Row& entry, QMenu* parent, QMenuBar& menuBar, frmMain& window) {
    const QString caption = QString::fromLatin1(entry.caption);
    QMenu* menu = parent ? parent->addMenu(caption) : menuBar.addMenu(caption);
    menu->setObjectName(QString::fromLatin1(entry.name));
    if (entry.handler)
        QObject::connect(menu, &QMenu::aboutToShow, &window,
                         [&window, handler = entry.handler] { (window.*handler)(); });
    return menu;
}

}  // namespace

MainMenu::MainMenu(frmMain& window, QMenuBar& menuBar) {
    QHash<QString, QMenu*> menus;
    for (const Row& entry : kEntries) {
        QMenu* menu = menus.value(QString::fromLatin1(entry.menu));
        const QString name = QString::fromLatin1(entry.name);
        if (entry.shortcut == kMenu) {
            menus.insert(name, makeMenu(entry, menu, menuBar, window));
        } else if (name.isEmpty()) {
            menu->addSeparator();
        } else {
            entries_.insert(name, {makeEntry(entry, window), entry.handler != nullptr});
            menu->addAction(entries_[name].action);
        }
    }
}

QAction& MainMenu::entry(const QString& name) const {
    Q_ASSERT(entries_.contains(name));
    return *entries_[name].action;
}

void MainMenu::enable(const QString& name, bool enabled) {
    entry(name).setEnabled(enabled && entries_[name].works);
}

}  // namespace brindlex
