#pragma once

#include <QHash>
#include <QString>

class QAction;
class QMenuBar;

namespace brindlex {

class frmMain;

/// Every command of the main window as one table of menu entries, and the menus built from it.
class MainMenu {
  public:
    /// Fills the menu bar; the entries run the handlers of `window`, which owns them.
    MainMenu(frmMain& window, QMenuBar& menuBar);

    /// The entry of that name, as "funNew"; there must be one.
    QAction& entry(const QString& name) const;
    /// Enables or disables that entry. One whose command does not exist yet stays disabled.
    void enable(const QString& name, bool enabled);

  private:
    struct Entry {
        QAction* action = nullptr;
        bool works = false;  ///< the command exists
    };

    QHash<QString, Entry> entries_;
};

}  // namespace brindlex
