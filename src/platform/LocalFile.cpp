#include "platform/LocalFile.h"

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

}  // namespace brindlex
