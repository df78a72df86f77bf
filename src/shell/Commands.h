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

  private:
    QWidget& owner_;
};

}  // namespace brindlex
