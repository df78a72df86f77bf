#pragma once

#include <QHash>
#include <QString>
#include <functional>

class QAction;
class QMenuBar;

namespace brindlex {

class frmMain;

/// Every command of the main window. One table of menu entries makes the menus and their shortcuts,
/// and tells the toolbar what its buttons run.
class Commands {
  public:
    /// Fills the menu bar. Each entry runs its handler of `window`, which owns the entries.
    Commands(frmMain& window, QMenuBar& menuBar);

    /// The entry of that name, as "funNew"; there must be one.
    QAction& entry(const QString& name) const;
    /// Enables or disables an entry. One whose command does not exist yet stays disabled.
    void enable(const QString& name, bool enabled);
    /// Runs the command of an entry, whether or not the entry is enabled.
    void run(const QString& name) const;

  private:
    struct Entry {
        QAction* action = nullptr;
        std::function<void()> command;  ///< empty: it does not exist yet
    };

    QHash<QString, Entry> entries_;
};

}  // namespace brindlex
