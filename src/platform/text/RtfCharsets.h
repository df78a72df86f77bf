#pragma once

#include <array>
#include <cstdint>

namespace brindlex {

/// The number by which a font of RTF names the code page of its characters.
struct RtfCharset {
    std::int32_t charset;
    std::int32_t codePage;
};

inline constexpr std::int32_t kDefaultRtfCharset = 1;  ///< the code page of the document

inline constexpr std::array kRtfCharsets = {
    RtfCharset{0, 1252},   RtfCharset{204, 1251}, RtfCharset{238, 1250}, RtfCharset{161, 1253},
    RtfCharset{162, 1254}, RtfCharset{177, 1255}, RtfCharset{178, 1256}, RtfCharset{186, 1257},
    RtfCharset{163, 1258}, RtfCharset{222, 874},  RtfCharset{128, 932},  RtfCharset{134, 936},
    RtfCharset{129, 949},  RtfCharset{136, 950},  RtfCharset{130, 1361},
};

/// The charset of a code page; kDefaultRtfCharset for one that has none.
constexpr std::int32_t rtfCharsetOf(std::int32_t codePage) {
    for (const RtfCharset& entry : kRtfCharsets) {
        if (entry.codePage == codePage) return entry.charset;
    }
    return kDefaultRtfCharset;
}

/// The code page of a charset; 0 for one that has none.
constexpr std::int32_t rtfCodePageOf(std::int32_t charset) {
    for (const RtfCharset& entry : kRtfCharsets) {
        if (entry.charset == charset) return entry.codePage;
    }
    return 0;
}

/// Whether characters of the code page may take two bytes.
constexpr bool isDoubleByteCodePage(std::int32_t codePage) {
    return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950 ||
           codePage == 1361;
}

/// The Unicode value of a byte in Windows code page 1252.
constexpr char16_t windows1252(unsigned char byte) {
    constexpr std::array<char16_t, 32> kC1Part = {
        0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
        0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};
    return byte >= 0x80 && byte < 0xA0 ? kC1Part[byte - 0x80U] : char16_t{byte};
}

}  // namespace brindlex
