#pragma once

#include <QString>
#include <functional>

namespace brindlex {

class EntityTree;

/// Replaces what the tree shows by the entities of the map `MapName` in the folder `WolfDir`. A map
/// that is not there, or cannot be read to its end, gives a message to `UpdateError` and an empty
/// tree.
void ImportMapEntities(const QString& WolfDir, const QString& MapName, EntityTree& tree,
                       const std::function<void(const QString& ErrorMessage)>& UpdateError);

}  // namespace brindlex
