#include "reference/ImportMapEntities.h"

#include "reference/EntityTree.h"
#include "reference/MapEntities.h"
#include "system/CodePage.h"
#include "system/Files.h"

namespace brindlex {

void ImportMapEntities(const QString& WolfDir, const QString& MapName, EntityTree& tree,
                       const std::function<void(const QString& ErrorMessage)>& UpdateError) {
    const std::optional<QString> path = Files::resolve(WolfDir + '\\' + MapName);
    const auto entities = path ? readMapEntities(*path, CodePage::system()) : std::nullopt;
    if (entities) return tree.fill(*entities);
    tree.clear();
    UpdateError(path ? QStringLiteral("Unknown error involving the script or map file.")
                     : "Map file '" + MapName +
                           "' not found. Could not import entity scriptnames/targetnames.");
}

}  // namespace brindlex
