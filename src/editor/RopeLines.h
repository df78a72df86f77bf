#pragma once

#include <string>
#include <string_view>

#include "platform/text/Rope.h"
#include "platform/text/Units.h"

namespace brindlex {

/// Calls `visit(std::string_view line, bool hasBreak)` for the lines of `range`, each without its
/// CR LF. `range` begins at a line's start and ends at the end of a line's text; an empty range has
/// one empty line. Only a line that does not lie in one piece of the rope is copied.
template <typename Visit>
void forEachLine(const Rope& rope, Range range, Visit&& visit) {
    std::string carried;  // the beginning of a line whose end lies in a later piece
    const auto visitBroken = [&visit](std::string_view withBreak) {
        visit(withBreak.substr(0, withBreak.size() - 2), true);
    };
    rope.visitPieces(range, [&](std::string_view piece) {
        while (!piece.empty()) {
            const std::size_t lf = piece.find('\n');
            const std::string_view head = piece.substr(0, lf == piece.npos ? lf : lf + 1);
            if (lf == piece.npos) {
                carried += head;
            } else if (carried.empty()) {
                visitBroken(head);
            } else {
                visitBroken(carried += head);
                carried.clear();
            }
            piece.remove_prefix(head.size());
        }
        return true;
    });
    visit(std::string_view(carried), false);
}

}  // namespace brindlex
