#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStorageInfo>
#include <algorithm>

#include "system/Files.h"

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace brindlex {
namespace {

// --- What the toolkit does not offer -------------------------------------------------------------

/// Waits until all that was written to an open file is on the disk. False when the disk reports a
/// failure; a disk that cannot be waited for is no failure.
bool waitForDisk(QFileDevice& file);

/// Gives an open, new file the owner and the group of the file that it is to replace. False when
/// this user may not.
bool takeOwner(QFileDevice& newFile, const QString& oldPath);

#ifdef Q_OS_WIN

bool waitForDisk(QFileDevice& file) {
    return file.flush() && _commit(file.handle()) == 0;
}

bool takeOwner(QFileDevice&, const QString&) {
    return true;
}

#else

bool waitForDisk(QFileDevice& file) {
    if (!file.flush()) return false;
    if (::fsync(file.handle()) == 0) return true;
    return errno == EINVAL || errno == ENOSYS || errno == EOPNOTSUPP;
}

bool takeOwner(QFileDevice& newFile, const QString& oldPath) {
    struct stat oldFile {};
    struct stat fresh {};
    if (::stat(QFile::encodeName(oldPath).constData(), &oldFile) != 0) return true;
    if (::fstat(newFile.handle(), &fresh) != 0) return false;
    if (oldFile.st_uid == fresh.st_uid && oldFile.st_gid == fresh.st_gid) return true;
    return ::fchown(newFile.handle(), oldFile.st_uid, oldFile.st_gid) == 0 &&
           ::fchmod(newFile.handle(), oldFile.st_mode & 07777) == 0;
}

#endif

// --- Ways to write -------------------------------------------------------------------------------

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
    if (!takeOwner(file, path)) return Outcome::Impossible;
    // A commit alone would report success on a full disk.
    const bool whole = writeAll(file, bytes) && waitForDisk(file) &&
                       file.error() == QFileDevice::NoError && file.size() == qint64(bytes.size());
    if (!whole) return Outcome::Failed;
    return file.commit() ? Outcome::Done : Outcome::Impossible;
}

/// Whether the disk has room for a second copy. Where it has none, a file can still be overwritten.
bool hasRoomFor(std::size_t size, const QString& path) {
    return QStorageInfo(QFileInfo(path).path()).bytesAvailable() >= static_cast<qint64>(size);
}

bool createInPlace(const QString& path, std::string_view bytes) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return false;
    const bool whole = writeAll(file, bytes) && waitForDisk(file);
    if (!whole) file.remove();
    return whole;
}

/// Grows the file first: a full disk then fails before an old byte has changed.
bool overwrite(QFile& file, std::size_t oldSize, std::string_view bytes) {
    const std::size_t head = std::min(oldSize, bytes.size());
    return writeAt(file, oldSize, bytes.substr(head)) && waitForDisk(file) &&
           writeAt(file, 0, bytes.substr(0, head)) &&
           file.resize(static_cast<qint64>(bytes.size())) && waitForDisk(file);
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
    if (outcome == Outcome::Done) return true;
    if (outcome == Outcome::Failed && hasRoomFor(bytes.size(), *target)) return false;
    return old.exists() ? writeInPlace(*target, bytes) : createInPlace(*target, bytes);
}

}  // namespace brindlex
