#pragma once

class QFileDevice;
class QString;

namespace brindlex {

/// What saving a file asks of the disk and the toolkit does not offer.
namespace DiskSync {

/// Waits until all that was written to an open file is on the disk. False when the disk reports a
/// failure; a disk that knows no such wait is no failure.
bool waitForDisk(QFileDevice& file);

/// Gives an open, new file the owner and group of the file that it is to replace. False when this
/// user may not.
bool takeOwner(QFileDevice& newFile, const QString& oldPath);

}  // namespace DiskSync
}  // namespace brindlex
