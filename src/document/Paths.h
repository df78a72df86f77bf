#pragma once

#include <QString>

class QWidget;

namespace brindlex {

class Desktop;
struct AppState;

/// Whether a plain file, not hidden, stands at that name, whatever its case. False for an empty
/// path. No character is a wildcard.
bool FileExists(const QString& path);

/// What stands behind the last separator, the whole text if it has none.
QString FileNameOf(const QString& path);

/// The folder that the user picks; `WolfDir` if the user picks none.
QString BrowseForFolder(Desktop& desktop, const AppState& state, QWidget* owner,
                        const QString& title);

}  // namespace brindlex
