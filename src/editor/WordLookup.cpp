#include "editor/WordLookup.h"

#include <algorithm>
#include <utility>

namespace brindlex {
namespace {

constexpr std::array kSearchOrder = {ClassComment,  ClassReserved, ClassProcedure, ClassLogical,
                                     ClassOperator, ClassObject,   ClassConstant};
constexpr std::size_t kFirstSlots = 64;

bool mayBegin(std::string_view mark, char byte) {
    return mark.empty() || mark.front() == byte;
}

}  // namespace

WordLookup::WordLookup(const CharacterTable& characters, const Syntax& syntax)
    : characters_(characters),
      syntax_(syntax),
      delimiter_(characters.toLower(syntax.delimiter)),
      slots_(kFirstSlots) {
    for (std::size_t value = 0; value < flags_.size(); ++value)
        flags_[value] = flagsOf(static_cast<char>(value));
    for (const WordClass wordClass : kSearchOrder) {
        lists_[wordClass] = characters.toLower(syntax.lists[wordClass]);
        if (!delimiter_.empty()) addEntries(wordClass);
    }
}

std::uint8_t WordLookup::flagsOf(char byte) const {
    const bool isBlank = byte == ' ' || byte == '\t';
    const bool mayComment = mayBegin(syntax_.commentMark(), byte);
    const bool mayString = mayBegin(syntax_.stringMark, byte);
    // As many characters as the string mark has are compared with a blank.
    const bool isPlain = isBlank && !mayComment && !mayString && syntax_.stringMark.size() == 1;
    const bool delimits = delimiter_.find(characters_.lower(byte)) != std::string::npos;
    return static_cast<std::uint8_t>((isBlank ? kBlank : 0) | (mayComment ? kCommentFirst : 0) |
                                     (mayString ? kStringFirst : 0) | (isPlain ? kPlainBlank : 0) |
                                     (delimits ? kDelimiter : 0));
}

WordClass WordLookup::classOf(std::string_view word) const {
    if (word.empty()) return search(word);  // an empty entry is none that the table could hold
    const bool holdsDelimiterByte =
        std::ranges::any_of(word, [this](char byte) { return (flags(byte) & kDelimiter) != 0; });
    const std::string padded = std::string(word) + std::string(kPadding, '\0');
    return classOfPadded(std::string_view(padded).substr(0, word.size()), holdsDelimiterByte);
}

/// The key of a word as the code page lowers it.
WordLookup::Key WordLookup::lowerKeyOf(std::string_view word) const {
    const std::string lower = characters_.toLower(word) + std::string(kPadding, '\0');
    return keyOf(std::string_view(lower).substr(0, word.size()));
}

/// The slot of the word, or the free one where it would go.
std::size_t WordLookup::slotOf(const Key& key, std::string_view word) const {
    const std::size_t last = slots_.size() - 1;
    std::size_t slot = firstSlotOf(key);
    while (slots_[slot].key.length != 0 &&
           !(slots_[slot].key == key && isEntry(slots_[slot], word)))
        slot = (slot + 1) & last;
    return slot;
}

/// Whether a word that has the key of the slot is its entry.
bool WordLookup::isEntry(const Slot& slot, std::string_view word) const {
    return word.size() <= 2 * kInKey ||
           std::ranges::equal(word, std::string_view(entries_).substr(slot.begin, word.size()), {},
                              [this](char byte) { return characters_.lower(byte); });
}

WordClass WordLookup::search(std::string_view word) const {
    const std::string needle = delimiter_ + characters_.toLower(word) + delimiter_;
    for (const WordClass wordClass : kSearchOrder)
        if (lists_[wordClass].find(needle) != std::string::npos) return wordClass;
    return ClassNormal;
}

void WordLookup::addEntries(WordClass wordClass) {
    const std::string_view list = lists_[wordClass];
    std::size_t begin = list.find_first_not_of(delimiter_);
    while (begin != std::string_view::npos) {
        const std::size_t end = std::min(list.find_first_of(delimiter_, begin), list.size());
        const bool stands =
            list.substr(0, begin).ends_with(delimiter_) && list.substr(end).starts_with(delimiter_);
        if (stands) add(list.substr(begin, end - begin), wordClass);
        begin = list.find_first_not_of(delimiter_, end);
    }
}

/// A word that is there already keeps its class.
void WordLookup::add(std::string_view entry, WordClass wordClass) {
    const Key key = lowerKeyOf(entry);
    if (slots_[slotOf(key, entry)].key.length != 0) return;
    if (4 * (used_ + 1) > slots_.size()) makeRoom();
    slots_[slotOf(key, entry)] = {key, wordClass, static_cast<std::uint32_t>(entries_.size())};
    entries_ += entry;
    ++used_;
}

void WordLookup::makeRoom() {
    const std::vector<Slot> old = std::exchange(slots_, std::vector<Slot>(slots_.size() * 2));
    for (const Slot& slot : old) {
        const auto entry = std::string_view(entries_).substr(slot.begin, slot.key.length);
        if (!entry.empty()) slots_[slotOf(slot.key, entry)] = slot;
    }
}

}  // namespace brindlex
