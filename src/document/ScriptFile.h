#pragma once

#include <QString>

#include "text/Rope.h"

namespace brindlex {

/// The text of a script file as it is on the disk (Files::read), in lines of any ends. Nothing when
/// it cannot be read or memory is short.
std::optional<Rope> readScript(const QString& path);

/// Writes a script file: the bytes of `text` and one line end. False when the disk refused it or
/// memory is short; what stood there before is whole then.
[[nodiscard]] bool writeScript(const QString& path, const Rope& text);

}  // namespace brindlex
