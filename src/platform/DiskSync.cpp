#include "platform/DiskSync.h"

#include <QFile>

#ifdef Q_OS_WIN
#include <io.h>
#else
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#endif

namespace brindlex::DiskSync {

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

}  // namespace brindlex::DiskSync
