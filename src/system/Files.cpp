#include "system/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <new>
#include <vector>

namespace brindlex {
namespace {

constexpr qint64 kLargestFile = qint64{1} << 30;
constexpr qint64 kChunkBytes = 256 * 1024;

/// Also a link that leads nowhere is there.
bool isThere(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymbolicLink();
}

/// The name of an entry of `folder`, which ends in "/" or is empty.
std::optional<QString> nameOnDisk(const QString& folder, const QString& name) {
    if (isThere(folder + name)) return name;
    std::optional<QString> first;
    const QDir dir(folder.isEmpty() ? QStringLiteral(".") : folder);
    const QDir::Filters all = QDir::AllEntries | QDir::Hidden | QDir::System;
    for (const QString& entry : dir.entryList(all, QDir::Unsorted)) {
        const bool hit = entry.compare(name, Qt::CaseInsensitive) == 0;
        if (hit && (!first || entry < *first)) first = entry;
    }
    return first;
}

bool readOpened(QFile& file, const std::function<void(std::string_view)>& take) {
    const qint64 size = file.size();
    if (size > kLargestFile) return false;
    std::vector<char> chunk(static_cast<std::size_t>(std::min(size, kChunkBytes)));
    for (qint64 left = size; left > 0;) {
        const qint64 count = file.read(chunk.data(), std::min(left, kChunkBytes));
        if (count <= 0) return false;  // or the file became shorter
        take({chunk.data(), static_cast<std::size_t>(count)});
        left -= count;
    }
    return true;
}

/// Whether a system whose separator is the slash has a file of exactly this name. It is not opened:
/// its path also leads to another place.
bool hasBackslashInName(const QString& path) {
    return QDir::separator() == '/' && path.contains('\\') && isThere(path);
}

}  // namespace

QString Files::toSystemPath(const QString& path) {
    if (path.contains(QChar(0))) return {};
    QString slashed = path;
    slashed.replace('\\', '/');
    // The toolkit takes a leading colon for the files inside the program.
    if (slashed.startsWith(':')) slashed.prepend(QLatin1String("./"));
    return QDir::toNativeSeparators(slashed);
}

std::optional<QString> Files::resolve(const QString& path) {
    const QString asked = QDir::fromNativeSeparators(toSystemPath(path));
    if (asked.isEmpty() || hasBackslashInName(path)) return std::nullopt;
    if (isThere(asked)) return QDir::toNativeSeparators(asked);
    QString found;
    const QStringList components = asked.split('/');
    for (qsizetype i = 0; i < components.size(); ++i) {
        if (i > 0) found += '/';
        if (components[i].isEmpty()) continue;
        const std::optional<QString> name = nameOnDisk(found, components[i]);
        if (!name) return std::nullopt;
        found += *name;
    }
    return QDir::toNativeSeparators(found);
}

bool Files::exists(const QString& path) {
    const std::optional<QString> found = resolve(path);
    if (!found) return false;
    const QFileInfo info(*found);
    return info.isFile() && !info.isHidden();
}

std::optional<std::string> Files::read(const QString& path) {
    std::string bytes;
    const auto take = [&bytes](std::string_view piece) { bytes += piece; };
    return readPieces(path, take) ? std::optional(std::move(bytes)) : std::nullopt;
}

bool Files::readPieces(const QString& path, const std::function<void(std::string_view)>& take) {
    const std::optional<QString> found = resolve(path);
    // Asked before the file is opened, for to open a pipe is to wait for its other end.
    if (!found || !QFileInfo(*found).isFile()) return false;
    QFile file(*found);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return false;
    if (file.isSequential()) return false;
    try {
        return readOpened(file, take);
    } catch (const std::bad_alloc&) {
        return false;
    }
}

}  // namespace brindlex
