#pragma once

#include <optional>
#include <string>
#include <utility>

#include "editor/WordClassifier.h"

namespace brindlex {

/// The word lists and the delimiter of their entries as the host sets them. The classifier is made
/// anew on its first use after a change.
class SyntaxLists {
  public:
    /// `characters` must outlive the lists.
    explicit SyntaxLists(const CharacterTable& characters) : characters_(characters) {}

    const CharacterTable& characters() const { return characters_; }
    const std::string& delimiter() const { return delimiter_; }
    void setDelimiter(std::string delimiter) { assign(delimiter_, std::move(delimiter)); }
    /// The list whose entries take the class. That of comments is the comment mark itself.
    const std::string& list(WordClass wordClass) const { return lists_[wordClass]; }
    void setList(WordClass wordClass, std::string list) {
        assign(lists_[wordClass], std::move(list));
    }
    /// Valid until the next change.
    const WordClassifier& classifier() const {
        if (!classifier_) classifier_.emplace(characters_, delimiter_, lists_);
        return *classifier_;
    }

  private:
    void assign(std::string& target, std::string&& value) {
        target = std::move(value);
        classifier_.reset();
    }

    const CharacterTable& characters_;
    std::string delimiter_;
    WordLists lists_;
    mutable std::optional<WordClassifier> classifier_;
};

}  // namespace brindlex
