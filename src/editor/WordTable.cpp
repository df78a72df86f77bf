#include "editor/WordTable.h"

#include <algorithm>
#include <utility>

namespace brindlex {
namespace {

constexpr std::size_t kFirstSlots = 64;

WordHash hashOf(std::string_view lowerWord) {
    WordHash hash;
    for (const char byte : lowerWord) hash.add(static_cast<std::uint8_t>(byte));
    return hash;
}

}  // namespace

WordTable::WordTable(const CharacterTable& characters)
    : characters_(characters), slots_(kFirstSlots) {}

void WordTable::add(std::string_view lowerWord, WordClass wordClass) {
    const WordHash hash = hashOf(lowerWord);
    if (slots_[slotOf(lowerWord, hash)].length != 0) return;
    if (2 * (used_ + 1) > slots_.size()) grow();
    slots_[slotOf(lowerWord, hash)] = {hash, static_cast<std::uint32_t>(lowerWord.size()),
                                       static_cast<std::uint32_t>(bytes_.size()), wordClass};
    bytes_ += lowerWord;
    ++used_;
}

bool WordTable::holds(const Slot& slot, std::string_view word, WordHash hash) const {
    if (slot.hash != hash || slot.length != word.size()) return false;
    const std::string_view lowerWord = std::string_view(bytes_).substr(slot.begin, slot.length);
    // Nearly every word of a script is in lower case already: comparing the bytes is faster.
    return word == lowerWord || std::ranges::equal(word, lowerWord, {}, [this](char byte) {
               return characters_.lower(byte);
           });
}

void WordTable::grow() {
    std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
    for (const Slot& slot : old) {
        if (slot.length == 0) continue;
        std::size_t place = slot.hash.spread() & (slots_.size() - 1);
        while (slots_[place].length != 0) place = (place + 1) & (slots_.size() - 1);
        slots_[place] = slot;
    }
}

}  // namespace brindlex
