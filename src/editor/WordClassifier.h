#pragma once

#include <array>
#include <string>
#include <string_view>

#include "editor/WordTable.h"

namespace brindlex {

/// The word lists, each by the class that its entries take. Those of strings and of normal text are
/// not searched.
using WordLists = std::array<std::string, kWordClassCount>;

/// Tells the class of a word: the first list, in a fixed order, that holds delimiter + word +
/// delimiter decides. Case does not count.
///
/// A word without a byte of the delimiter can only be found as a whole entry, so the entries stand
/// in a hash table and a look-up costs the length of the word. A word with such a byte, and any
/// word when the delimiter is empty, is searched for in the lists.
class WordClassifier {
  public:
    /// `characters` must outlive the classifier.
    WordClassifier(const CharacterTable& characters, const std::string& delimiter,
                   const WordLists& lists);

    WordClass classOf(std::string_view word) const;
    /// The same for a scanner that knows the hash of the word, and whether a byte of the delimiter
    /// is in it, already. `word` is not empty.
    WordClass classOf(std::string_view word, WordHash hash, bool holdsDelimiterByte) const {
        if (holdsDelimiterByte || delimiter_.empty()) return search(word);
        return table_.find(word, hash);
    }
    /// Whether the byte, but for case, is one of the delimiter.
    bool isDelimiterByte(char byte) const {
        return delimiterBytes_[static_cast<unsigned char>(byte)];
    }

  private:
    WordClass search(std::string_view word) const;
    void addEntries(WordClass wordClass);
    bool standsBetweenDelimiters(std::string_view list, std::string_view entry) const;

    const CharacterTable& characters_;
    std::string delimiter_;  // in lower case, as the lists
    std::array<bool, 256> delimiterBytes_{};
    WordLists lists_;
    WordTable table_;
};

}  // namespace brindlex
