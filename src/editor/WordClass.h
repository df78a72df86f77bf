#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/text/Formats.h"

namespace brindlex {

/// What a stretch of a line is to the colouring.
enum WordClass : std::uint8_t {
    ClassComment,
    ClassString,
    ClassReserved,
    ClassProcedure,
    ClassNormal,
    ClassOperator,
    ClassLogical,
    ClassConstant,
    ClassObject,
};
inline constexpr std::size_t kWordClassCount = 9;

/// The colour of each class.
using ClassColors = std::array<ColorRef, kWordClassCount>;

}  // namespace brindlex
