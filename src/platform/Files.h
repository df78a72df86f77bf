#pragma once

#include <QString>
#include <optional>
#include <string>
#include <string_view>

namespace brindlex {

/// Files of text in the system's code page. Paths may hold "\" or "/", both separate; they become
/// the system's at the moment of use. A name that is not there exactly is looked up without regard
/// to case, each component of the path: an exact hit first, then the first (by character code) that
/// differs in case. No character of a name is a wildcard.
namespace Files {

/// The path as this system writes it, with each component in the case that it has on the disk (on a
/// disk that ignores case: as it was written). What does not exist stays as it was written. Empty
/// for a path with a NUL, which no system can have.
QString toSystemPath(const QString& path);

/// Whether a plain file, not hidden, stands at exactly this name (but for case). False for an empty
/// path, a folder, a device, a pipe.
bool exists(const QString& path);

/// All bytes of a plain file, as many as it has when it is opened; nothing when it cannot be
/// opened, is no plain file, is larger than 2 GiB, or cannot be read to its end. Never waits for a
/// pipe or a device.
std::optional<std::string> read(const QString& path);

/// Writes a file whole: beside the old one, flushed to the disk and checked, then renamed over it,
/// through a symbolic link to its target, keeping its permissions and its owner. A failed write
/// returns false and leaves the old file whole. Where that cannot be done (the folder takes no new
/// file, or only another user's file would do) and the file itself may be written, it is written in
/// place, and put back should that fail. Refused: a file that may not be written, and whatever is
/// no plain file.
[[nodiscard]] bool write(const QString& path, std::string_view bytes);

}  // namespace Files
}  // namespace brindlex
