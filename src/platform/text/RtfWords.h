#pragma once

#include <cstdint>
#include <string_view>

#include "platform/text/RtfTokens.h"

namespace brindlex {

class RtfReader;

/// A control word that the reader knows.
struct RtfWord {
    std::string_view name;
    std::uint8_t destinations;  ///< the bits of those in which it means something
    void (*apply)(RtfReader& reader, RtfNumber number);
};

/// A control word or symbol that stands for a character.
struct RtfCharacter {
    std::string_view name;
    char16_t value;
    char substitute;  ///< where the code page lacks it
};

/// Null for a name that is not known.
const RtfWord* findRtfWord(std::string_view name);
const RtfCharacter* findRtfCharacter(std::string_view name);

}  // namespace brindlex
