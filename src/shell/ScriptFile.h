#pragma once

#include <QString>

#include "platform/text/Rope.h"

namespace brindlex {

/// Writes a script file: the bytes of `text` and one line end. False when the disk refused it or
/// memory is short; what stood there before is whole then.
[[nodiscard]] bool writeScript(const QString& path, const Rope& text);

}  // namespace brindlex
