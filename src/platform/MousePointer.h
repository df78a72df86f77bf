#pragma once

#include <QCursor>
#include <QPixmap>

#include "platform/text/Units.h"

namespace brindlex {

// Values of the property MousePointer.
inline constexpr Long kDefaultPointer = 0;  ///< the pointer that fits the control
inline constexpr Long kLastPointer = 15;    ///< 1 to 15 are cursors of the system
inline constexpr Long kCustomPointer = 99;  ///< the picture of the property MouseIcon

/// The property takes no other value.
constexpr bool isMousePointer(Long value) {
    return (value >= kDefaultPointer && value <= kLastPointer) || value == kCustomPointer;
}

/// Cursor of a value from 1 to kLastPointer; every other value is not allowed.
Qt::CursorShape cursorOf(Long pointer);

/// A picture as a cursor, with its hot spot in the middle. A larger one than 32 x 32 is made
/// smaller in its proportions: a display server may end the program that hands it a huge one.
QCursor cursorOf(const QPixmap& picture);

}  // namespace brindlex
