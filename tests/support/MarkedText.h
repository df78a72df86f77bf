#pragma once

#include <string>

#include "text/RichTextBox.h"

namespace brindlex::test {

/// Gives the box a text in which '|' stands for the caret, and '^' for the other end of the
/// selection if something is selected.
inline void putMarked(RichTextBox& box, std::string text) {
    std::string plain = text;
    std::erase(plain, '^');
    const std::size_t caret = plain.find('|');
    std::erase(plain, '|');
    std::erase(text, '|');
    const std::size_t anchor = text.find('^');
    box.SetText(plain);
    box.select(Offset(anchor == text.npos ? caret : anchor), Offset(caret));
}

/// The text of the box, marked in the same way.
inline std::string marked(const RichTextBox& box) {
    const std::size_t caret = box.caret().value();
    const std::size_t anchor = box.anchor().value();
    std::string text = box.Text();
    text.insert(caret, "|");
    if (anchor != caret) text.insert(anchor + (anchor > caret ? 1 : 0), "^");
    return text;
}

}  // namespace brindlex::test
