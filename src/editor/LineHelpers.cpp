// The line helpers of KELP_RTBSyntax.

#include <algorithm>
#include <cstdint>
#include <limits>

#include "editor/KELP_RTBSyntax.h"

namespace brindlex {
namespace {

std::uint32_t word(int value) {
    using Word = std::numeric_limits<std::int16_t>;
    return static_cast<std::uint16_t>(std::clamp<int>(value, Word::min(), Word::max()));
}

}  // namespace

Long KELP_RTBSyntax::GetLineCount() const {
    return box().GetLineCount();
}

void KELP_RTBSyntax::LineScroll(Long Lines) {
    rtb().lineScroll(Lines);
}

Long KELP_RTBSyntax::GetCurrentLine() const {
    return GetLineFromChar(SelStart()) + 1;
}

std::string KELP_RTBSyntax::GetLineText() const {
    const LineIndex line(static_cast<std::size_t>(GetCurrentLine() - 1));
    return box().rope().bytes(box().lineContent(line));
}

Long KELP_RTBSyntax::GetColumn() const {
    return SelStart() - box().GetLineIndex(GetCurrentLine() - 1);
}

int KELP_RTBSyntax::LoWord(Long DWord) {
    return static_cast<std::int16_t>(DWord & 0xFFFF);
}

int KELP_RTBSyntax::HiWord(Long DWord) {
    return static_cast<std::int16_t>((DWord >> 16) & 0xFFFF);
}

Long KELP_RTBSyntax::GetPosFromChar(Long lSelStart) {
    const QPoint place = rtb().posFromChar(lSelStart);
    return static_cast<std::int32_t>(word(place.x()) | (word(place.y()) << 16));
}

Long KELP_RTBSyntax::GetCharNr(Long lngLineNumber) const {
    return box().GetLineIndex(lngLineNumber) - 1;
}

}  // namespace brindlex
