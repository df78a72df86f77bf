#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace brindlex {

/// Whole files. Paths may hold "\" or "/", both separate, on every system. No character of a name
/// is a wildcard.
///
/// For reading, a name that is not there exactly is looked up without regard to case. Nothing is
/// looked up for writing: who means to write a file back resolves its path when he reads it, and
/// keeps the result.
namespace Files {

/// The path with this system's separators; no look-up. Empty for a path with a NUL, which no system
/// can have.
QString toSystemPath(const QString& path);

/// The entry on the disk that a path leads to, as a system path: an exact hit first, else, for each
/// component, the first name (by character code) that differs in case alone. Nothing when there is
/// no such entry, or when a file has a backslash in its name, which cannot be told from a path.
std::optional<QString> resolve(const QString& path);

/// Whether the path resolves to a plain file that is not hidden. False for an empty path, a folder,
/// a device, a pipe.
bool exists(const QString& path);

/// All bytes of the plain file that the path resolves to, as many as it has when it is opened.
/// Nothing when it cannot be opened, is no plain file, has more than 1 GiB, or cannot be read to
/// its end. Never waits for a pipe or a device.
std::optional<std::string> read(const QString& path);

/// The same, given to `take` piece by piece. False when the file cannot be read to its end; then
/// `take` may have had some of it.
bool readPieces(const QString& path, const std::function<void(std::string_view)>& take);

/// Writes a file of exactly this name, through a symbolic link to its target: beside the old one,
/// flushed to the disk and checked, then renamed over it. Permissions and owner stay. A failed
/// write returns false and leaves the old file whole. Where that cannot be done (the folder takes
/// no new file, the disk has no room for a second one, or the new one cannot have the owner of the
/// old) and the file itself may be written, it is written in place, and put back should that fail.
/// Refused: a file that may not be written, and whatever is no plain file.
[[nodiscard]] bool write(const QString& path, std::string_view bytes);

}  // namespace Files
}  // namespace brindlex
