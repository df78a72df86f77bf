#pragma once

#include <array>
#include <cstdint>

namespace brindlex {

/// The number of the code page of western Europe.
inline constexpr std::int32_t kWindows1252 = 1252;

/// The Unicode value of a byte in it; an undefined byte has the C1 control of the same number.
constexpr char16_t windows1252(unsigned char byte) {
    constexpr std::array<char16_t, 32> kC1Part = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    return byte >= 0x80 && byte < 0xA0 ? kC1Part[byte - 0x80U] : char16_t{byte};
}

}  // namespace brindlex
