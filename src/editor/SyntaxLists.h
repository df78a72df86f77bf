#pragma once

#include <optional>
#include <string>
#include <utility>

#include "editor/ByteTable.h"
#include "editor/WordClassifier.h"

namespace brindlex {

/// The word lists, the delimiter of their entries and the string mark as the host sets them. What
/// the colouring makes of them is made anew on its first use after a change.
class SyntaxLists {
  public:
    /// `characters` must outlive the lists.
    explicit SyntaxLists(const CharacterTable& characters) : characters_(characters) {}

    const std::string& delimiter() const { return delimiter_; }
    void setDelimiter(std::string delimiter) { assign(delimiter_, std::move(delimiter)); }
    /// The list whose entries take the class. That of comments is the comment mark itself.
    const std::string& list(WordClass wordClass) const { return lists_[wordClass]; }
    void setList(WordClass wordClass, std::string list) {
        assign(lists_[wordClass], std::move(list));
    }
    const std::string& stringMark() const { return stringMark_; }
    void setStringMark(std::string mark) { assign(stringMark_, std::move(mark)); }
    /// Both are valid until the next change.
    const WordClassifier& classifier() const { return compiled().classifier; }
    const ByteTable& bytes() const { return compiled().bytes; }

  private:
    struct Compiled {
        explicit Compiled(const SyntaxLists& lists)
            : classifier(lists.characters_, lists.delimiter_, lists.lists_),
              bytes(lists.characters_, classifier, lists.list(ClassComment), lists.stringMark_) {}

        WordClassifier classifier;
        ByteTable bytes;
    };

    const Compiled& compiled() const {
        if (!compiled_) compiled_.emplace(*this);
        return *compiled_;
    }
    void assign(std::string& target, std::string&& value) {
        target = std::move(value);
        compiled_.reset();
    }

    const CharacterTable& characters_;
    std::string delimiter_;
    WordLists lists_;
    std::string stringMark_;
    mutable std::optional<Compiled> compiled_;
};

}  // namespace brindlex
