#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <algorithm>

#include "platform/DiskSync.h"
#include "platform/Files.h"

namespace brindlex {
namespace {

constexpr int kMostLinks = 40;

/// Where a path leads when every symbolic link is followed, also to a file that is not there yet;
/// nothing when the links go in a circle.
std::optional<QString> followLinks(QString path) {
    for (int hop = 0; hop < kMostLinks; ++hop) {
        const QFileInfo info(path);
        if (info.exists()) return info.canonicalFilePath();
        if (!info.isSymbolicLink()) return path;
        // A ".." in the link counts from the folder that the link really stands in.
        const QString folder = QFileInfo(info.path()).canonicalFilePath();
        path = QFileInfo(folder + '/' + info.fileName()).symLinkTarget();
    }
    return std::nullopt;
}

bool writeAll(QFileDevice& file, std::string_view bytes) {
    const auto size = static_cast<qint64>(bytes.size());
    return file.write(bytes.data(), size) == size;
}

bool writeAt(QFileDevice& file, std::size_t position, std::string_view bytes) {
    return file.seek(static_cast<qint64>(position)) && writeAll(file, bytes);
}

enum class Outcome { Done, Failed, Impossible };

Outcome writeBeside(const QString& path, std::string_view bytes) {
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) return Outcome::Impossible;
    if (!DiskSync::takeOwner(file, path)) return Outcome::Impossible;
    // A commit alone would report success on a full disk.
    const bool whole = writeAll(file, bytes) && DiskSync::waitForDisk(file) &&
                       file.error() == QFileDevice::NoError && file.size() == qint64(bytes.size());
    if (!whole) return Outcome::Failed;
    return file.commit() ? Outcome::Done : Outcome::Impossible;
}

bool createInPlace(const QString& path, std::string_view bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return false;
    const bool whole = writeAll(file, bytes) && DiskSync::waitForDisk(file);
    if (!whole) file.remove();
    return whole;
}

/// Grows the file first: where the disk is full, it fails before an old byte has changed.
bool overwrite(QFile& file, std::size_t oldSize, std::string_view bytes) {
    const std::size_t head = std::min(oldSize, bytes.size());
    return writeAt(file, oldSize, bytes.substr(head)) && DiskSync::waitForDisk(file) &&
           writeAt(file, 0, bytes.substr(0, head)) &&
           file.resize(static_cast<qint64>(bytes.size())) && DiskSync::waitForDisk(file);
}

bool writeInPlace(const QString& path, std::string_view bytes) {
    const std::optional<std::string> old = Files::read(path);
    QFile file(path);
    const auto mode = QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered;
    if (!old || !file.open(mode) || file.isSequential()) return false;
    if (overwrite(file, old->size(), bytes)) return true;
    writeAt(file, 0, *old);
    file.resize(static_cast<qint64>(old->size()));
    return false;
}

}  // namespace

bool Files::write(const QString& path, std::string_view bytes) {
    const std::optional<QString> target = followLinks(toSystemPath(path));
    if (!target || target->isEmpty()) return false;
    const QFileInfo old(*target);
    if (old.exists() && !(old.isFile() && old.isWritable())) return false;
    const Outcome outcome = writeBeside(*target, bytes);
    if (outcome != Outcome::Impossible) return outcome == Outcome::Done;
    return old.exists() ? writeInPlace(*target, bytes) : createInPlace(*target, bytes);
}

}  // namespace brindlex
