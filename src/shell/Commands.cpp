#include "shell/Commands.h"

#include <QAction>
#include <QHash>
#include <QMenuBar>

#include "shell/frmMain.h"

namespace brindlex {
namespace {

using Handler = void (frmMain::*)();
enum class Mark { No, Yes };

/// A row without a name is a separator, one without a handler is a menu.
struct Entry {
    const char* menu;  ///< the name of the menu that it stands in; empty: the menu bar
    const char* name;
    const char* caption;
    const char* shortcut;
    Handler handler;
    Mark mark = Mark::No;
};

constexpr Entry kEntries[] = {
    {"", "funFile", "&File", "", nullptr},
    {"funFile", "funNew", "&New", "Ctrl+N", &frmMain::funNew_Click},
    {"funFile", "funOpen", "&Open", "Ctrl+O", &frmMain::funOpen_Click},
    {"funFile", "", "", "", nullptr},
    {"funFile", "funSave", "&Save", "Ctrl+S", &frmMain::funSave_Click},
    {"funFile", "funSaveAs", "Save &As...", "", &frmMain::funSaveAs_Click},
    {"funFile", "", "", "", nullptr},
    {"funFile", "funSavePreset", "Save to &Preset", "", &frmMain::funSavePreset_Click},
    {"funFile", "", "", "", nullptr},
    {"funFile", "funClose", "E&xit", "", &frmMain::funClose_Click},
    {"", "funEdit", "&Edit", "", nullptr},
    {"funEdit", "funInsMap", "Insert &Mapname", "F5", &frmMain::funInsMap_Click},
    {"funEdit", "funInsTD", "Insert &Date", "F6", &frmMain::funInsTD_Click},
    {"", "funView", "&View", "", nullptr},
    {"funView", "funWindowSize", "&Window size", "", nullptr},
    {"funWindowSize", "funFull", "&Full screen", "", &frmMain::funFull_Click},
    {"funWindowSize", "funDefault", "&Default size", "", &frmMain::funDefault_Click},
    {"funWindowSize", "funSavePos", "&Save position", "", &frmMain::funSavePos_Click},
    {"funView", "funShowCmd", "Show Scripting &Reference", "Ctrl+T", &frmMain::funShowCmd_Click,
     Mark::Yes},
    {"funView", "funScriptTar", "Show Script/Targetname &import", "Ctrl+U",
     &frmMain::funScriptTar_Click, Mark::Yes},
};

QAction* makeEntry(const Entry& entry, frmMain& window) {
    auto* action = new QAction(QString::fromLatin1(entry.caption), &window);
    action->setObjectName(QString::fromLatin1(entry.name));
    action->setShortcut(QKeySequence(QString::fromLatin1(entry.shortcut)));
    action->setCheckable(entry.mark == Mark::Yes);
    QObject::connect(action, &QAction::triggered, &window,
                     [&window, handler = entry.handler] { (window.*handler)(); });
    return action;
}

}  // namespace

Commands::Commands(frmMain& window, QMenuBar& menuBar) : owner_(window) {
    QHash<QString, QMenu*> menus;
    for (const Entry& entry : kEntries) {
        QMenu* menu = menus.value(QString::fromLatin1(entry.menu));
        const QString caption = QString::fromLatin1(entry.caption);
        if (entry.handler) {
            menu->addAction(makeEntry(entry, window));
        } else if (*entry.name == '\0') {
            menu->addSeparator();
        } else {
            QMenu* made = menu ? menu->addMenu(caption) : menuBar.addMenu(caption);
            made->setObjectName(QString::fromLatin1(entry.name));
            menus.insert(made->objectName(), made);
        }
    }
    entry(QStringLiteral("funShowCmd")).setChecked(true);
}

QAction& Commands::entry(const QString& name) const {
    return *owner_.findChild<QAction*>(name);
}

}  // namespace brindlex
