#include "text/TextUnits.h"

#include <algorithm>
#include <string_view>

#include "text/LineEnds.h"

namespace brindlex {

TextUnits::Kind TextUnits::kindOf(char byte) const {
    if (byte == '\r' || byte == '\n') return Kind::Break;
    if (byte == ' ' || byte == '\t') return Kind::Blank;
    return characters_.isWord(byte) ? Kind::Word : Kind::Other;
}

TextUnits::Kind TextUnits::kindBehind(Offset offset) const {
    return offset.value() < text_.size() ? kindOf(text_.at(offset)) : Kind::Break;
}

Offset TextUnits::endOfRun(Offset from, Kind kind) const {
    Offset end = from;
    text_.visitPieces({from, Offset(text_.size())}, [&](std::string_view piece) {
        const auto stop = std::find_if(piece.begin(), piece.end(),
                                       [&](char byte) { return kindOf(byte) != kind; });
        end = end + static_cast<std::size_t>(stop - piece.begin());
        return stop == piece.end();
    });
    return end;
}

Offset TextUnits::startOfRun(Offset from, Kind kind) const {
    Offset start = from;
    text_.visitPiecesBackward({Offset(0), from}, [&](std::string_view piece) {
        const auto stop = std::find_if(piece.rbegin(), piece.rend(),
                                       [&](char byte) { return kindOf(byte) != kind; });
        start = start - static_cast<std::size_t>(stop - piece.rbegin());
        return stop == piece.rend();
    });
    return start;
}

Offset TextUnits::snapped(Offset offset) const {
    return inFrontOfBreak(text_, std::min(offset, Offset(text_.size())));
}

Offset TextUnits::next(Offset offset) const {
    if (offset.value() >= text_.size()) return Offset(text_.size());
    return offset + (text_.at(offset) == kLineBreak.front() ? kLineBreak.size() : 1);
}

Offset TextUnits::previous(Offset offset) const {
    if (offset.value() == 0) return offset;
    return snapped(offset - 1);
}

Offset TextUnits::nextWord(Offset offset) const {
    const Kind kind = kindBehind(offset);
    if (kind == Kind::Break) return next(offset);
    return endOfRun(endOfRun(offset, kind), Kind::Blank);
}

Offset TextUnits::previousWord(Offset offset) const {
    if (offset.value() == 0) return offset;
    if (kindBefore(offset) == Kind::Break) return previous(offset);
    const Offset end = startOfRun(offset, Kind::Blank);
    if (end.value() == 0 || kindBefore(end) == Kind::Break) return end;
    return startOfRun(end, kindBefore(end));
}

Range TextUnits::wordAt(Offset offset) const {
    const Offset at = snapped(offset);
    const bool atLineEnd = kindBehind(at) == Kind::Break;
    if (atLineEnd && (at.value() == 0 || kindBefore(at) == Kind::Break)) return {at, at};
    const Kind kind = atLineEnd ? kindBefore(at) : kindBehind(at);
    return {startOfRun(at, kind), endOfRun(at, kind)};
}

Offset TextUnits::lineStart(Offset offset) const {
    return lineAt(offset).begin();
}

Offset TextUnits::lineEnd(Offset offset) const {
    const Range line = lineAt(offset);
    const bool hasBreak = !line.empty() && text_.at(line.end() - 1) == '\n';
    return hasBreak ? line.end() - kLineBreak.size() : line.end();
}

Range TextUnits::lineAt(Offset offset) const {
    const LineIndex line = text_.lineOf(offset);
    const bool last = line.value() == text_.breakCount();
    return {text_.lineStart(line), last ? Offset(text_.size()) : text_.lineStart(line + 1)};
}

}  // namespace brindlex
