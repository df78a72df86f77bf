#include "reference/LeafPicker.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QTreeWidget>
#include <utility>

namespace brindlex {

LeafPicker::LeafPicker(QTreeWidget& tree, std::function<void(const QTreeWidgetItem& leaf)> pick)
    : tree_(tree), pick_(std::move(pick)) {
    tree_.installEventFilter(this);
    tree_.viewport()->installEventFilter(this);
}

bool LeafPicker::eventFilter(QObject* watched, QEvent* event) {
    const bool isMouse = watched == tree_.viewport();
    if (isMouse && event->type() == QEvent::MouseButtonPress)
        MouseDown(*static_cast<QMouseEvent*>(event));
    if (isMouse && event->type() == QEvent::MouseButtonDblClick)
        DblClick(*static_cast<QMouseEvent*>(event));
    if (isMouse || event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    return (key == Qt::Key_Return || key == Qt::Key_Enter) && pick(tree_.currentItem());
}

void LeafPicker::MouseDown(const QMouseEvent& event) {
    HitNode_ = tree_.itemAt(event.pos()) != nullptr;
}

void LeafPicker::DblClick(const QMouseEvent& event) {
    // A press on the sign that opens a root selects nothing.
    const QTreeWidgetItem* const selected = tree_.currentItem();
    if (event.button() == Qt::LeftButton && HitNode_ && tree_.itemAt(event.pos()) == selected)
        pick(selected);
}

bool LeafPicker::pick(const QTreeWidgetItem* node) {
    if (!node || !node->parent()) return false;
    pick_(*node);
    return true;
}

}  // namespace brindlex
