#include "reference/EntityTree.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyledItemDelegate>
#include <QTreeWidget>

#include "reference/MapEntities.h"

namespace brindlex {
namespace {

/// Shows as much of a text as a screen is wide: the whole value of a damaged map, which can be the
/// rest of the file, takes seconds to paint.
class ShownText : public QStyledItemDelegate {
  public:
    using QStyledItemDelegate::QStyledItemDelegate;
    QString displayText(const QVariant& value, const QLocale&) const override {
        return value.toString().left(1000);
    }
};

QTreeWidgetItem* makeNode(const QString& text) {
    return new QTreeWidgetItem(QStringList(text));
}

}  // namespace

EntityTree::EntityTree(QTreeWidget& TreeView2, std::function<void(const QString& value)> insert)
    : TreeView2_(TreeView2), insert_(std::move(insert)) {
    TreeView2_.setItemDelegate(new ShownText(&TreeView2_));
    TreeView2_.installEventFilter(this);
    TreeView2_.viewport()->installEventFilter(this);
}

void EntityTree::fill(const MapEntities& entities) {
    QList<QTreeWidgetItem*> roots;
    for (const MapEntities::Class& entityClass : entities.classes) {
        QList<QTreeWidgetItem*> leaves;
        leaves.reserve(entityClass.records.size());
        for (const QString& record : entityClass.records) leaves += makeNode(record);
        roots += makeNode(entityClass.name);
        roots.back()->addChildren(leaves);
    }
    clear();
    TreeView2_.addTopLevelItems(roots);
}

void EntityTree::clear() {
    TreeView2_.clear();
}

bool EntityTree::eventFilter(QObject* watched, QEvent* event) {
    const bool isMouse = watched == TreeView2_.viewport();
    if (isMouse && event->type() == QEvent::MouseButtonPress)
        MouseDown(*static_cast<QMouseEvent*>(event));
    if (isMouse && event->type() == QEvent::MouseButtonDblClick)
        DblClick(*static_cast<QMouseEvent*>(event));
    if (isMouse || event->type() != QEvent::KeyPress) return false;
    const int key = static_cast<QKeyEvent*>(event)->key();
    return (key == Qt::Key_Return || key == Qt::Key_Enter) &&
           insertRecord(TreeView2_.currentItem());
}

void EntityTree::MouseDown(const QMouseEvent& event) {
    HitNode2_ = TreeView2_.itemAt(event.pos()) != nullptr;
}

void EntityTree::DblClick(const QMouseEvent& event) {
    // A press on the sign that opens a class selects nothing.
    const QTreeWidgetItem* const selected = TreeView2_.currentItem();
    if (event.button() == Qt::LeftButton && HitNode2_ && TreeView2_.itemAt(event.pos()) == selected)
        insertRecord(selected);
}

bool EntityTree::insertRecord(const QTreeWidgetItem* node) {
    if (!node || !node->parent()) return false;
    const QString text = node->text(0);
    const QLatin1String separator = MapEntities::kSeparator;
    insert_(text.sliced(text.indexOf(separator) + separator.size()));
    return true;
}

}  // namespace brindlex
