#pragma once

#include <QString>

class QAction;
class QMenuBar;
class QWidget;

namespace brindlex {

class frmMain;

/// Every command of the main window as one table of menu entries, and the menus built from it.
class Commands {
  public:
    /// Fills the menu bar; the entries run the handlers of `window`, which owns them.
    Commands(frmMain& window, QMenuBar& menuBar);

    /// The entry of that name, as "funNew"; there must be one.
    QAction& entry(const QString& name) const;
    /// Enables or disables that entry. One whose command does not exist yet stays disabled.
    void enable(const QString& name, bool enabled);

  private:
    QWidget& owner_;
};

}  // namespace brindlex
