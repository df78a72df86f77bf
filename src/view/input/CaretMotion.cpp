#include "view/input/CaretMotion.h"

#include <algorithm>
#include <string_view>

namespace brindlex {

CaretMotion::Kind CaretMotion::kindOf(char byte) const {
    if (byte == '\r' || byte == '\n') return Kind::Break;
    if (byte == ' ' || byte == '\t') return Kind::Blank;
    return characters_.isWord(byte) ? Kind::Word : Kind::Other;
}

CaretMotion::Kind CaretMotion::kindBehind(Offset offset) const {
    return offset.value() < text_.size() ? kindOf(text_.at(offset)) : Kind::Break;
}

bool CaretMotion::isPairAt(Offset offset) const {
    return offset.value() + 1 < text_.size() && text_.at(offset) == '\r' &&
           text_.at(offset + 1) == '\n';
}

Offset CaretMotion::endOfRun(Offset from, Kind kind) const {
    Offset end = from;
    text_.visitPieces({from, Offset(text_.size())}, [&](std::string_view piece) {
        const auto stop = std::find_if(piece.begin(), piece.end(),
                                       [&](char byte) { return kindOf(byte) != kind; });
        end = end + static_cast<std::size_t>(stop - piece.begin());
        return stop == piece.end();
    });
    return end;
}

Offset CaretMotion::startOfRun(Offset from, Kind kind) const {
    Offset start = from;
    text_.visitPiecesBackward({Offset(0), from}, [&](std::string_view piece) {
        const auto stop = std::find_if(piece.rbegin(), piece.rend(),
                                       [&](char byte) { return kindOf(byte) != kind; });
        start = start - static_cast<std::size_t>(stop - piece.rbegin());
        return stop == piece.rend();
    });
    return start;
}

Offset CaretMotion::snapped(Offset offset) const {
    const Offset inside = std::min(offset, Offset(text_.size()));
    return inside.value() > 0 && isPairAt(inside - 1) ? inside - 1 : inside;
}

Offset CaretMotion::next(Offset offset) const {
    if (offset.value() >= text_.size()) return Offset(text_.size());
    return offset + (isPairAt(offset) ? 2 : 1);
}

Offset CaretMotion::previous(Offset offset) const {
    if (offset.value() == 0) return offset;
    return snapped(offset - 1);
}

Offset CaretMotion::nextWord(Offset offset) const {
    const Kind kind = kindBehind(offset);
    if (kind == Kind::Break) return next(offset);
    return endOfRun(endOfRun(offset, kind), Kind::Blank);
}

Offset CaretMotion::previousWord(Offset offset) const {
    if (offset.value() == 0) return offset;
    if (kindBefore(offset) == Kind::Break) return previous(offset);
    const Offset end = startOfRun(offset, Kind::Blank);
    if (end.value() == 0 || kindBefore(end) == Kind::Break) return end;
    return startOfRun(end, kindBefore(end));
}

Range CaretMotion::wordAt(Offset offset) const {
    const Offset at = snapped(offset);
    const bool atLineEnd = kindBehind(at) == Kind::Break;
    if (atLineEnd && (at.value() == 0 || kindBefore(at) == Kind::Break)) return {at, at};
    const Kind kind = atLineEnd ? kindBefore(at) : kindBehind(at);
    return {startOfRun(at, kind), endOfRun(at, kind)};
}

Offset CaretMotion::lineStart(Offset offset) const {
    return lineAt(offset).begin();
}

Offset CaretMotion::lineEnd(Offset offset) const {
    const Range line = lineAt(offset);
    const bool hasBreak = !line.empty() && text_.at(line.end() - 1) == '\n';
    return hasBreak ? snapped(line.end() - 1) : line.end();
}

Range CaretMotion::lineAt(Offset offset) const {
    const LineIndex line = text_.lineOf(offset);
    const bool last = line.value() == text_.breakCount();
    return {text_.lineStart(line), last ? Offset(text_.size()) : text_.lineStart(line + 1)};
}

}  // namespace brindlex
