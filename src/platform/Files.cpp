#include "platform/Files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <new>

namespace brindlex {
namespace {

/// Positions in a text are 32-bit numbers at the borders of the program.
constexpr qint64 kLargestFile = 0x7FFFFFFF;

bool isThere(const QString& path) {
    const QFileInfo info(path);
    return info.exists() || info.isSymbolicLink();
}

/// The name that a component has on the disk; `folder` ends in "/" or is empty.
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

QString lookUp(const QString& path) {
    QString found;
    bool lost = false;
    const QStringList components = path.split('/');
    for (qsizetype i = 0; i < components.size(); ++i) {
        if (i > 0) found += '/';
        std::optional<QString> name = components[i];
        if (!lost && !name->isEmpty()) name = nameOnDisk(found, components[i]);
        lost = lost || !name;
        found += name.value_or(components[i]);
    }
    return found;
}

std::optional<std::string> readOpened(QFile& file) {
    const qint64 size = file.size();
    if (size > kLargestFile) return std::nullopt;
    std::string bytes(static_cast<std::size_t>(size), '\0');
    qint64 done = 0;
    while (done < size) {
        const qint64 count = file.read(bytes.data() + done, size - done);
        if (count < 0) return std::nullopt;
        if (count == 0) break;  // the file became shorter
        done += count;
    }
    bytes.resize(static_cast<std::size_t>(done));
    return bytes;
}

}  // namespace

QString Files::toSystemPath(const QString& path) {
    if (path.contains(QChar(0))) return {};
    QString slashed = path;
    slashed.replace('\\', '/');
    // The toolkit takes a leading colon for the files inside the program.
    if (slashed.startsWith(':')) slashed.prepend(QLatin1String("./"));
    return QDir::toNativeSeparators(QFileInfo::exists(slashed) ? slashed : lookUp(slashed));
}

bool Files::exists(const QString& path) {
    const QFileInfo info(toSystemPath(path));
    return info.isFile() && !info.isHidden();
}

std::optional<std::string> Files::read(const QString& path) {
    QFile file(toSystemPath(path));
    // Asked before the file is opened, for to open a pipe is to wait for its other end.
    if (!QFileInfo(file).isFile()) return std::nullopt;
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return std::nullopt;
    if (file.isSequential()) return std::nullopt;
    try {
        return readOpened(file);
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    }
}

}  // namespace brindlex
