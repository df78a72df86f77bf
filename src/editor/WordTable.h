#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "editor/WordClass.h"
#include "platform/text/CharacterTable.h"

namespace brindlex {

/// The hash of a word without regard to case, built byte by byte while the word is scanned.
class WordHash {
  public:
    /// `lower` is the lower-case partner of the next byte of the word.
    void add(std::uint8_t lower) { value_ = value_ * 31 + lower; }
    bool operator==(const WordHash&) const = default;
    /// The hash with what all its bits tell in the low ones.
    std::uint32_t spread() const {
        constexpr std::uint32_t kGoldenRatio = 0x9E3779B1;
        const std::uint32_t product = value_ * kGoldenRatio;
        return product ^ (product >> 15);
    }

  private:
    std::uint32_t value_ = 0;
};

/// Words with their classes, found without regard to case. A look-up costs the length of the word.
class WordTable {
  public:
    /// `characters` must outlive the table.
    explicit WordTable(const CharacterTable& characters);

    /// `lowerWord` is in lower case. A word that is there already keeps its class.
    void add(std::string_view lowerWord, WordClass wordClass);
    /// `hash` is that of `word`. ClassNormal for a word that is not in the table.
    WordClass find(std::string_view word, WordHash hash) const {
        return slots_[slotOf(word, hash)].wordClass;
    }

  private:
    struct Slot {
        WordHash hash;
        std::uint32_t length = 0;  // 0: the slot is free
        std::uint32_t begin = 0;   // in bytes_
        WordClass wordClass = ClassNormal;
    };

    /// The slot of the word, or the free one where it would go.
    std::size_t slotOf(std::string_view word, WordHash hash) const {
        std::size_t slot = hash.spread() & (slots_.size() - 1);
        while (slots_[slot].length != 0 && !holds(slots_[slot], word, hash))
            slot = (slot + 1) & (slots_.size() - 1);
        return slot;
    }
    bool holds(const Slot& slot, std::string_view word, WordHash hash) const;
    void grow();

    const CharacterTable& characters_;
    std::string bytes_;        // all words, in lower case
    std::vector<Slot> slots_;  // a power of two of them, at most half in use
    std::size_t used_ = 0;
};

}  // namespace brindlex
