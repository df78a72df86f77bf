#include "editor/WordClassifier.h"

#include <algorithm>

namespace brindlex {
namespace {

constexpr std::array kSearchOrder = {ClassComment,  ClassReserved, ClassProcedure, ClassLogical,
                                     ClassOperator, ClassObject,   ClassConstant};

}  // namespace

WordClassifier::WordClassifier(const CharacterTable& characters, const std::string& delimiter,
                               const WordLists& lists)
    : characters_(characters), delimiter_(characters.toLower(delimiter)), table_(characters) {
    for (std::size_t byte = 0; byte < delimiterBytes_.size(); ++byte)
        delimiterBytes_[byte] =
            delimiter_.find(characters.lower(static_cast<char>(byte))) != std::string::npos;
    for (const WordClass wordClass : kSearchOrder) {
        lists_[wordClass] = characters.toLower(lists[wordClass]);
        if (!delimiter_.empty()) addEntries(wordClass);
    }
}

WordClass WordClassifier::classOf(std::string_view word) const {
    WordHash hash;
    bool holdsDelimiterByte = word.empty();  // an empty entry is no run that the table could hold
    for (const char byte : word) {
        hash.add(static_cast<std::uint8_t>(characters_.lower(byte)));
        holdsDelimiterByte = holdsDelimiterByte || isDelimiterByte(byte);
    }
    return classOf(word, hash, holdsDelimiterByte);
}

WordClass WordClassifier::search(std::string_view word) const {
    const std::string needle = delimiter_ + characters_.toLower(word) + delimiter_;
    for (const WordClass wordClass : kSearchOrder)
        if (lists_[wordClass].find(needle) != std::string::npos) return wordClass;
    return ClassNormal;
}

void WordClassifier::addEntries(WordClass wordClass) {
    const std::string_view list = lists_[wordClass];
    std::size_t begin = list.find_first_not_of(delimiter_);
    while (begin != std::string_view::npos) {
        const std::size_t end = std::min(list.find_first_of(delimiter_, begin), list.size());
        const std::string_view entry = list.substr(begin, end - begin);
        if (standsBetweenDelimiters(list, entry)) table_.add(entry, wordClass);
        begin = list.find_first_not_of(delimiter_, end);
    }
}

bool WordClassifier::standsBetweenDelimiters(std::string_view list, std::string_view entry) const {
    const auto begin = static_cast<std::size_t>(entry.data() - list.data());
    return list.substr(0, begin).ends_with(delimiter_) &&
           list.substr(begin + entry.size()).starts_with(delimiter_);
}

}  // namespace brindlex
