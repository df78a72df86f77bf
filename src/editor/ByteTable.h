#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "editor/WordClassifier.h"

namespace brindlex {

enum ByteFlag : std::uint8_t {
    kBlank = 1,
    kCommentFirst = 2,  ///< begins the comment mark
    kStringFirst = 4,   ///< begins the string mark
    kMayEndWord = kBlank | kCommentFirst | kStringFirst,
    kDelimiter = 8,  ///< but for case, a byte of the delimiter of the word lists
};

/// What a byte can be to the colouring, and its lower-case partner.
struct ByteTraits {
    std::uint8_t lower = 0;
    std::uint8_t flags = 0;
};

/// The traits of every byte under one set of marks.
class ByteTable {
  public:
    /// An empty mark begins at every byte.
    ByteTable(const CharacterTable& characters, const WordClassifier& classifier,
              std::string_view commentMark, std::string_view stringMark);

    ByteTraits operator[](char byte) const { return traits_[static_cast<unsigned char>(byte)]; }

  private:
    std::array<ByteTraits, 256> traits_;
};

}  // namespace brindlex
