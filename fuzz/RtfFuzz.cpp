#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "text/rtf/Rtf.h"

/// Any bytes are read without a crash, and what was read is written and read back equal. The target
/// puts the start of RTF in front of half of its input, so that it need not find it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace brindlex;
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string rtf = size % 2 == 0 ? std::string(input) : "{\\rtf1" + std::string(input);
    const CharacterTable& characters = CharacterTable::latin1();
    const auto rich = readRtf(rtf, characters);
    if (rich && readRtf(writeRtf(*rich, characters), characters) != rich) std::abort();
    return 0;
}
