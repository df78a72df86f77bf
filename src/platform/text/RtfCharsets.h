#pragma once

#include <array>
#include <cstdint>

#include "platform/text/Windows1252.h"

namespace brindlex {

/// The number by which a font of RTF names the code page of its characters.
struct RtfCharset {
    std::int32_t charset;
    std::int32_t codePage;
};

inline constexpr std::int32_t kDefaultRtfCharset = 1;  ///< the code page of the document

inline constexpr std::array kRtfCharsets = {
    RtfCharset{0, kWindows1252}, RtfCharset{204, 1251}, RtfCharset{238, 1250},
    RtfCharset{161, 1253},       RtfCharset{162, 1254}, RtfCharset{177, 1255},
    RtfCharset{178, 1256},       RtfCharset{186, 1257}, RtfCharset{163, 1258},
    RtfCharset{222, 874},        RtfCharset{128, 932},  RtfCharset{134, 936},
    RtfCharset{129, 949},        RtfCharset{136, 950},  RtfCharset{130, 1361},
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

}  // namespace brindlex
