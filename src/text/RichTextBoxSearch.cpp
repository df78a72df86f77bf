#include <algorithm>
#include <string>

#include "text/LineEnds.h"
#include "text/RichTextBox.h"
#include "text/TextSearch.h"

namespace brindlex {

Long RichTextBox::Find(std::string_view text, std::optional<Long> start, std::optional<Long> end,
                       Long options) {
    const bool within = !start && !end && !selection().empty();
    const Offset from = start ? offsetOf(*start) : selection().begin();
    const Offset to = end ? offsetOf(*end) : (within ? selection().end() : Offset(rope_.size()));
    std::string storage;
    const std::optional<Range> match = findText(
        rope_, characters_, {std::min(from, to), std::max(from, to)}, withCrLf(text, storage),
        {.wholeWord = (options & FindWholeWord) != 0,
         .matchCase = (options & FindMatchCase) != 0,
         .direction = to < from ? Direction::Backward : Direction::Forward});
    if (!match) return -1;
    if ((options & FindNoHighlight) == 0) select(match->begin(), match->end());
    return static_cast<Long>(match->begin().value());
}

void RichTextBox::Span(std::string_view set, bool forward, bool negate) {
    const Offset from = selection().begin();
    const Offset edge = forward ? Offset(rope_.size()) : Offset(0);
    const CharacterSet beyond(set, !negate);
    const auto direction = forward ? Direction::Forward : Direction::Backward;
    select(from, findCharacter(rope_, from, beyond, direction).value_or(edge));
}

void RichTextBox::UpTo(std::string_view set, bool forward, bool negate) {
    const auto direction = forward ? Direction::Forward : Direction::Backward;
    const auto stop = findCharacter(rope_, caret_, CharacterSet(set, negate), direction);
    if (stop) select(*stop, *stop);
}

}  // namespace brindlex
