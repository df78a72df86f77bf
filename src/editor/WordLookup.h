#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "text/CharacterTable.h"

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

/// Word lists and marks. In a list each entry stands between two delimiters.
struct Syntax {
    std::string delimiter;
    /// By the class that the entries of a list take; that of comments is the comment mark itself.
    /// Strings and normal text have none.
    std::array<std::string, kWordClassCount> lists;
    std::string stringMark;

    const std::string& commentMark() const { return lists[ClassComment]; }
};

/// What a byte can be to the colouring; any of them together.
enum ByteFlag : std::uint8_t {
    kBlank = 1,
    kCommentFirst = 2,  ///< begins the comment mark; the empty mark begins at every byte
    kStringFirst = 4,   ///< begins the string mark
    kPlainBlank = 8,    ///< begins no mark, and separates words wherever it stands
    kDelimiter = 16,    ///< but for case, a byte of the delimiter
    kMayEndWord = kBlank | kCommentFirst | kStringFirst,
};

/// Finds the class of a word: the first list, in a fixed order, that holds delimiter + word +
/// delimiter decides. Case does not count.
///
/// A word without a byte of the delimiter can only be found as a whole entry, so the entries stand
/// in a hash table, and a look-up compares two numbers. A word with such a byte, and any word when
/// the delimiter is empty, is searched for in the lists.
class WordLookup {
  public:
    /// So many bytes behind a text are read, whatever they hold.
    static constexpr std::size_t kPadding = 8;

    /// `characters` and `syntax` must outlive the look-up, and `syntax` must not change.
    WordLookup(const CharacterTable& characters, const Syntax& syntax);

    const Syntax& syntax() const { return syntax_; }
    /// A sum of ByteFlag.
    std::uint8_t flags(char byte) const { return flags_[static_cast<unsigned char>(byte)]; }

    WordClass classOf(std::string_view word) const;
    /// The same, faster, for a word that is not empty and has kPadding bytes behind it.
    /// `holdsDelimiterByte`: one of its bytes has the flag kDelimiter.
    WordClass classOfPadded(std::string_view word, bool holdsDelimiterByte) const;

  private:
    /// The first eight and the last eight bytes of a word; a shorter word stands in both.
    struct Key {
        std::uint64_t first = 0;
        std::uint64_t last = 0;
        std::uint64_t length = 0;
        bool operator==(const Key&) const = default;
    };
    struct Slot {
        Key key;  // in lower case; its length is 0 when the slot is free
        WordClass wordClass = ClassNormal;
        std::uint32_t begin = 0;  // of the entry in entries_
    };
    static constexpr std::size_t kInKey = 8;
    static constexpr std::uint64_t kOfEachByte = 0x0101010101010101;
    static constexpr std::uint64_t kHighBits = 0x80 * kOfEachByte;

    std::uint8_t flagsOf(char byte) const;
    static std::uint64_t load(const char* bytes);
    static std::uint64_t lowerAscii(std::uint64_t bytes);
    static Key keyOf(std::string_view padded);
    Key lowerKeyOf(std::string_view word) const;
    std::size_t firstSlotOf(const Key& key) const;
    std::size_t slotOf(const Key& key, std::string_view word) const;
    bool isEntry(const Slot& slot, std::string_view word) const;
    WordClass search(std::string_view word) const;
    void addEntries(WordClass wordClass);
    void add(std::string_view entry, WordClass wordClass);
    void makeRoom();

    const CharacterTable& characters_;
    const Syntax& syntax_;
    std::string delimiter_;  // in lower case, as the lists
    std::array<std::string, kWordClassCount> lists_;
    std::array<std::uint8_t, 256> flags_{};
    std::string entries_;      // those in slots_, one behind the other
    std::vector<Slot> slots_;  // a power of two of them, at most a quarter in use
    std::size_t used_ = 0;
};

inline std::uint64_t WordLookup::load(const char* bytes) {
    std::uint64_t value = 0;
    std::memcpy(&value, bytes, sizeof value);
    return value;
}

/// Turns the letters A to Z of eight bytes into small ones; no byte has its high bit set.
inline std::uint64_t WordLookup::lowerAscii(std::uint64_t bytes) {
    const std::uint64_t fromA = bytes + (0x80 - 'A') * kOfEachByte;
    const std::uint64_t behindZ = bytes + (0x7F - 'Z') * kOfEachByte;
    return bytes | (((fromA ^ behindZ) & kHighBits) >> 2);
}

inline WordLookup::Key WordLookup::keyOf(std::string_view padded) {
    const std::size_t inKey = std::min(padded.size(), kInKey);
    const std::size_t unused = (kInKey - inKey) * 8;
    constexpr std::uint64_t kAll = ~std::uint64_t{0};
    const bool little = std::endian::native == std::endian::little;
    const std::uint64_t mask = little ? kAll >> unused : kAll << unused;
    return {load(padded.data()) & mask, load(padded.data() + (padded.size() - inKey)) & mask,
            padded.size()};
}

inline std::size_t WordLookup::firstSlotOf(const Key& key) const {
    constexpr std::uint64_t kGoldenRatio = 0x9E3779B97F4A7C15;
    const std::uint64_t product = (key.first + std::rotl(key.last, 23)) * kGoldenRatio;
    return (product >> 40) & (slots_.size() - 1);
}

inline WordClass WordLookup::classOfPadded(std::string_view word, bool holdsDelimiterByte) const {
    if (holdsDelimiterByte || delimiter_.empty()) return search(word);
    Key key = keyOf(word);
    const bool isAscii = ((key.first | key.last) & kHighBits) == 0;
    key = isAscii ? Key{lowerAscii(key.first), lowerAscii(key.last), key.length} : lowerKeyOf(word);
    // One branch that nearly always goes the same way, for words that are entries and words that
    // are not: a free slot has the class of normal text.
    const Slot& slot = slots_[firstSlotOf(key)];
    const std::uint64_t difference =
        (slot.key.first ^ key.first) | (slot.key.last ^ key.last) | (slot.key.length ^ key.length);
    const bool decided = (difference == 0 && word.size() <= 2 * kInKey) || slot.key.length == 0;
    return decided ? slot.wordClass : slots_[slotOf(key, word)].wordClass;
}

}  // namespace brindlex
