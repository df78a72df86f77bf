#include "reference/CommandTree.h"

#include <QTreeWidget>
#include <utility>

#include "reference/Categories.h"
#include "reference/ReferenceDatabase.h"

namespace brindlex {
namespace {

// What a node of a command holds besides its text.
constexpr int RefUsage = Qt::UserRole;
constexpr int RefDescr = Qt::UserRole + 1;

QTreeWidgetItem* makeNode(const QString& text) {
    return new QTreeWidgetItem(QStringList(text));
}

QTreeWidgetItem* makeNode(const ReferenceRow& row) {
    QTreeWidgetItem* const node = makeNode(row.command);
    node->setData(0, RefUsage, row.usage);
    node->setData(0, RefDescr, row.description);
    return node;
}

}  // namespace

CommandTree::CommandTree(QTreeWidget& TreeView1, Callbacks callbacks)
    : TreeView1_(TreeView1),
      callbacks_(std::move(callbacks)),
      picker_(TreeView1, [this](const QTreeWidgetItem& node) { callbacks_.insert(node.text(0)); }) {
    QObject::connect(&TreeView1_, &QTreeWidget::currentItemChanged, &picker_,
                     [this] { NodeClick(); });
}

void CommandTree::LoadScriptRef(
    const ReferenceDatabase& database,
    const std::function<void(const QString& ErrorMessage)>& UpdateError) {
    TreeView1_.clear();
    if (!database.exists())
        return UpdateError("Script reference database 'scriptref.mdb' not found.");
    QList<QTreeWidgetItem*> roots;
    for (const Category& category : kCategories) roots += makeNode(category.name);
    const DatabaseResult result =
        database.read([&roots](std::size_t category, const ReferenceRow& row) {
            roots[static_cast<qsizetype>(category)]->addChild(makeNode(row));
        });
    if (result) return TreeView1_.addTopLevelItems(roots);
    qDeleteAll(roots);
    UpdateError("Script reference database 'scriptref.mdb' cannot be used: " + result.failure +
                ".");
}

/// For keys, too: whatever selects a node.
void CommandTree::NodeClick() {
    const QTreeWidgetItem* const node = TreeView1_.currentItem();
    if (node)
        callbacks_.describe(node->data(0, RefUsage).toString(), node->data(0, RefDescr).toString());
}

}  // namespace brindlex
