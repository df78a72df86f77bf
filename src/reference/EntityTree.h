#pragma once

#include <QString>
#include <functional>

#include "reference/LeafPicker.h"

class QTreeWidget;

namespace brindlex {

struct MapEntities;

/// The tree of a map's entities: a root for each class, below it the records. The user picks the
/// value of a record.
class EntityTree {
  public:
    /// `TreeView2` outlives this; `insert` gets each value that the user picks.
    EntityTree(QTreeWidget& TreeView2, std::function<void(const QString& value)> insert);

    /// Replaces what the tree shows, in its order.
    void fill(const MapEntities& entities);
    void clear();

  private:
    QTreeWidget& TreeView2_;
    LeafPicker picker_;
};

}  // namespace brindlex
