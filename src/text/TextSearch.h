#pragma once

#include <array>
#include <optional>
#include <string_view>

#include "text/CharacterTable.h"
#include "text/Rope.h"
#include "text/Units.h"

namespace brindlex {

enum class Direction { Forward, Backward };

struct SearchRules {
    bool wholeWord = false;  ///< no word character may stand beside a match, in range or not
    bool matchCase = false;
    Direction direction = Direction::Forward;
};

/// The first (backward: the last) match of `pattern`, which is not empty, that lies wholly in
/// `range`. Cost: O(log n + pattern + the bytes from the searched end of the range to the match),
/// whatever text and pattern look like; nothing is copied.
std::optional<Range> findText(const Rope& rope, const CharacterTable& characters, Range range,
                              std::string_view pattern, SearchRules rules);

/// A set of bytes.
class CharacterSet {
  public:
    /// The bytes of `members`, or with `negate` all others.
    CharacterSet(std::string_view members, bool negate);
    bool contains(char byte) const { return contains_[static_cast<unsigned char>(byte)]; }

  private:
    std::array<bool, 256> contains_;
};

/// Looks for the first character that is in `set`, from `from` on. Returns the side of it that
/// faces `from`: forward its offset, backward the offset behind it.
std::optional<Offset> findCharacter(const Rope& rope, Offset from, const CharacterSet& set,
                                    Direction direction);

}  // namespace brindlex
