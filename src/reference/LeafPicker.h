#pragma once

#include <QObject>
#include <functional>

class QMouseEvent;
class QTreeWidget;
class QTreeWidgetItem;

namespace brindlex {

/// The ways in which the user picks a leaf of a tree of two levels: a double click that began on a
/// node, and Enter.
class LeafPicker : public QObject {
  public:
    /// `tree` outlives this; `pick` gets each node that the user picks, never a root.
    LeafPicker(QTreeWidget& tree, std::function<void(const QTreeWidgetItem& leaf)> pick);

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void MouseDown(const QMouseEvent& event);
    void DblClick(const QMouseEvent& event);
    /// False for a root, and for no node.
    bool pick(const QTreeWidgetItem* node);

    QTreeWidget& tree_;
    std::function<void(const QTreeWidgetItem&)> pick_;
    bool HitNode_ = false;  // the last mouse-down was on a node
};

}  // namespace brindlex
