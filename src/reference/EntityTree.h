#pragma once

#include <QObject>
#include <functional>

class QMouseEvent;
class QTreeWidget;
class QTreeWidgetItem;

namespace brindlex {

struct MapEntities;

/// The tree of a map's entities: a root for each class, below it the records. The user picks the
/// value of a record by a double click or by Enter.
class EntityTree : public QObject {
  public:
    /// `TreeView2` outlives this; `insert` gets each value that the user picks.
    EntityTree(QTreeWidget& TreeView2, std::function<void(const QString& value)> insert);

    /// Replaces what the tree shows, in its order.
    void fill(const MapEntities& entities);
    void clear();

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void MouseDown(const QMouseEvent& event);
    void DblClick(const QMouseEvent& event);
    /// False for a class, and for no node.
    bool insertRecord(const QTreeWidgetItem* node);

    QTreeWidget& TreeView2_;
    std::function<void(const QString&)> insert_;
    bool HitNode2_ = false;  // the last mouse-down was on a node
};

}  // namespace brindlex
