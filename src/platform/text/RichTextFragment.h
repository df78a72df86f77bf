#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/text/Formats.h"

namespace brindlex {

/// A formatted text on its way in or out: what RTF describes. The lengths of `characters` add up to
/// the length of `text`, whose line breaks are all CR LF; the counts of `paragraphs` add up to its
/// number of lines.
struct RichTextFragment {
    struct Characters {
        std::size_t length = 0;
        CharFormat format;
        bool operator==(const Characters&) const = default;
    };
    struct Paragraphs {
        std::size_t count = 0;
        ParagraphFormat format;
        bool operator==(const Paragraphs&) const = default;
    };
    std::string text;
    std::vector<Characters> characters;  ///< neighbours differ
    std::vector<Paragraphs> paragraphs;  ///< neighbours differ
    bool operator==(const RichTextFragment&) const = default;
};

}  // namespace brindlex
