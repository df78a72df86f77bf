#pragma once

#include <QString>
#include <functional>

#include "reference/LeafPicker.h"

class QTreeWidget;

namespace brindlex {

class ReferenceDatabase;

/// The tree of the script commands, by category. The user picks a command; the one that is selected
/// is described.
class CommandTree {
  public:
    struct Callbacks {
        /// A command is picked.
        std::function<void(const QString& command)> insert;
        /// Another node is selected: the texts of a command; both empty for a category.
        std::function<void(const QString& usage, const QString& description)> describe;
    };

    /// `TreeView1` outlives this.
    CommandTree(QTreeWidget& TreeView1, Callbacks callbacks);

    /// Fills the tree. A database that is not there or cannot be used gives a message to
    /// `UpdateError`, and an empty tree.
    void LoadScriptRef(const ReferenceDatabase& database,
                       const std::function<void(const QString& ErrorMessage)>& UpdateError);

  private:
    void NodeClick();

    QTreeWidget& TreeView1_;
    Callbacks callbacks_;
    LeafPicker picker_;
};

}  // namespace brindlex
