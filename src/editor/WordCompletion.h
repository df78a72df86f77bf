#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "text/Rope.h"
#include "text/Units.h"

namespace brindlex {

/// The longest word that completion looks at, in bytes. A longer one is no start of any word.
inline constexpr std::size_t kLongestWord = 4096;

/// What stands between the last blank, tab or line break in front of `caret` and the caret, with
/// whatever signs it has. Of a word longer than kLongestWord the last kLongestWord + 1 bytes.
/// Cost: O(log n) and the bytes returned.
std::string wordInFrontOf(const Rope& text, Offset caret);

/// Whether `entry` begins with what `word` stands for: "?" is any one byte, "#" any digit,
/// "[abx-z]" one byte of that set, "[!ab]" one that is not in it, "[]" nothing; any other byte is
/// itself. A
/// "[" without its "]" and a range that runs backwards match nothing; so does a word with a "*" or
/// one that is too long.
bool beginsWith(std::string_view entry, std::string_view word);

}  // namespace brindlex
