#pragma once

#include <Qt>

#include "platform/text/Units.h"

namespace brindlex {

// Values of the property MousePointer.
inline constexpr Long kDefaultPointer = 0;  ///< the pointer that fits the control
inline constexpr Long kLastPointer = 15;    ///< 1 to 15 are cursors of the system
inline constexpr Long kCustomPointer = 99;  ///< the picture of the property MouseIcon

/// Cursor of a value from 1 to kLastPointer; every other value is not allowed.
Qt::CursorShape cursorOf(Long pointer);

}  // namespace brindlex
