#pragma once

#include <QCursor>
#include <QPixmap>
#include <cstdint>
#include <optional>

namespace brindlex {

// Values of the property MousePointer.
inline constexpr std::int64_t kDefaultPointer = 0;  ///< the pointer that fits the control
inline constexpr std::int64_t kLastPointer = 15;    ///< 1 to 15 are cursors of the system
inline constexpr std::int64_t kCustomPointer = 99;  ///< the picture of the property MouseIcon

/// Whether the property takes the value.
constexpr bool isMousePointer(std::int64_t value) {
    return (value >= kDefaultPointer && value <= kLastPointer) || value == kCustomPointer;
}

/// The cursor that a value asks for; unset for the one that fits the control, which a value outside
/// the table and a custom pointer without an icon stand for as well. An icon has its hot spot in
/// the middle. A larger one than 32 x 32 is made smaller in its proportions: a display server may
/// end the program that hands it a huge one.
std::optional<QCursor> cursorOf(std::int64_t pointer, const QPixmap& icon);

}  // namespace brindlex
