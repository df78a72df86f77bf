#include "system/DroppedFile.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

namespace brindlex {

QString localFileOf(const QMimeData& data) {
    const QList<QUrl> urls = data.urls();
    const auto file =
        std::find_if(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
    return file == urls.end() ? QString() : file->toLocalFile();
}

QString acceptFile(QDropEvent& event) {
    const QString path = localFileOf(*event.mimeData());
    if (path.isEmpty()) return path;
    event.setDropAction(Qt::CopyAction);  // the sender of a move would remove the file
    event.accept();
    return path;
}

}  // namespace brindlex
