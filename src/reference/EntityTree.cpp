#include "reference/EntityTree.h"

#include <QStyledItemDelegate>
#include <QTreeWidget>
#include <utility>

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

QString valueOf(const QString& record) {
    const QLatin1String separator = MapEntities::kSeparator;
    return record.sliced(record.indexOf(separator) + separator.size());
}

}  // namespace

EntityTree::EntityTree(QTreeWidget& TreeView2, std::function<void(const QString& value)> insert)
    : TreeView2_(TreeView2),
      picker_(TreeView2, [insert = std::move(insert)](const QTreeWidgetItem& record) {
          insert(valueOf(record.text(0)));
      }) {
    TreeView2_.setItemDelegate(new ShownText(&TreeView2_));
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

}  // namespace brindlex
