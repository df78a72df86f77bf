#include "document/Paths.h"

#include <algorithm>

#include "document/AppState.h"
#include "system/Desktop.h"
#include "system/Files.h"

namespace brindlex {

bool FileExists(const QString& path) {
    return Files::exists(path);
}

QString FileNameOf(const QString& path) {
    return path.mid(std::max(path.lastIndexOf('\\'), path.lastIndexOf('/')) + 1);
}

QString BrowseForFolder(Desktop& desktop, const AppState& state, QWidget* owner,
                        const QString& title) {
    const QString folder = desktop.askFolder(owner, title, state.WolfDir).value_or(QString());
    return folder.isEmpty() ? state.WolfDir : folder;
}

}  // namespace brindlex
