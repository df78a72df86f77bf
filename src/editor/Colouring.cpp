// The colouring of KELP_RTBSyntax: which lines a change touches, and putting in their colours.

#include <algorithm>

#include "editor/KELP_RTBSyntax.h"
#include "editor/RedrawPause.h"
#include "text/LineEnds.h"

namespace brindlex {
namespace {

/// Sets a flag and clears it at the end, whatever it was before: so a Text that a handler assigns
/// while another is being assigned is coloured at once.
class FlagHold {
  public:
    explicit FlagHold(bool& flag) : flag_(flag) { flag_ = true; }
    ~FlagHold() { flag_ = false; }
    FlagHold(const FlagHold&) = delete;
    FlagHold& operator=(const FlagHold&) = delete;

  private:
    bool& flag_;
};

/// The start of the line of the last character before `from`: a caret at column 0 takes the line
/// above, so that both halves of a line that was split are coloured.
Offset startOfTouchedLines(const Rope& rope, Offset from) {
    if (from == Offset()) return from;
    return rope.lineStart(rope.lineOf(from - 1));
}

/// The first end of a line at or behind `caret`. A caret between CR and LF stands behind the end of
/// its own line.
Offset endOfTouchedLines(const RichTextBox& box, Offset caret) {
    const LineIndex line = box.rope().lineOf(caret);
    const Offset end = box.lineContent(line).end();
    return end >= caret ? end : box.lineContent(line + 1).end();
}

/// The end of the lines to colour next: so few that what is made of them stays in the processor's
/// cache, and the memory for it does not grow with the text.
Offset endOfBatch(const RichTextBox& box, Range lines) {
    constexpr std::size_t kBatchBytes = 64 * 1024;
    if (lines.length() <= kBatchBytes) return lines.end();
    return endOfTouchedLines(box, lines.begin() + kBatchBytes);
}

}  // namespace

void KELP_RTBSyntax::SetText(const Rope& text) {
    {
        const FlagHold hold(colorizing_);
        box().SetText(text);
    }
    ReColorize();
}

bool KELP_RTBSyntax::SetTextRTF(std::string_view rtf) {
    bool taken = false;
    {
        const FlagHold hold(colorizing_);
        taken = box().SetTextRTF(rtf);
    }
    ReColorize();
    return taken;
}

void KELP_RTBSyntax::ReColorize() {
    const RedrawPause pause(rtb());
    const Offset anchor = box().anchor();
    const Offset caret = box().caret();
    const Offset end(box().length());
    box().select(end, end);
    notifyHost(onChange);
    if (!colorizing_) colorize(Range(Offset(), Offset(box().length())));
    box().select(anchor, caret);
    prevSelStart_ = curSelStart_ = SelStart();
}

void KELP_RTBSyntax::rtb_Change() {
    const Long before = prevSelStart_;
    notifyHost(onChange);
    if (colorizing_) return;
    // An edit inside the handler, as completion makes it, has coloured its own line alone.
    prevSelStart_ = std::min(prevSelStart_, before);
    colorize(changedLines());
}

/// The lines from the older caret position to the newer one. When the older position is the later
/// of the two, only the line of the newer one counts; when it lies beyond the end of the text, all
/// lines from there to the end.
Range KELP_RTBSyntax::changedLines() const {
    const Offset caret(static_cast<std::size_t>(SelStart()));
    const Offset before(static_cast<std::size_t>(prevSelStart_));
    const Offset textEnd(box().length());
    const Offset start = startOfTouchedLines(box().rope(), std::min(before, caret));
    return {start, std::max(before, caret) > textEnd ? textEnd : endOfTouchedLines(box(), caret)};
}

void KELP_RTBSyntax::colorize(Range lines) {
    const FlagHold hold(colorizing_);
    const RedrawPause pause(rtb());
    if (!lines.empty()) ColorizeBlock(lines);
    prevSelStart_ = curSelStart_ = SelStart();
}

void KELP_RTBSyntax::ColorizeBlock(Range lines) {
    commentCharLen_ = static_cast<int>(Syntax_CommentChar().size());
    stringCharLen_ = static_cast<int>(Syntax_StringChar().size());
    LineColorizer colorizer(words(), classColors());
    for (Offset at = lines.begin(); at < lines.end();) {
        const Range batch(at, endOfBatch(box(), {at, lines.end()}));
        box().colorRuns(at, colorizer.colorsOf(box().rope(), batch));
        at = batch.end() + kLineBreak.size();
    }
}

const WordLookup& KELP_RTBSyntax::words() const {
    if (!words_) words_.emplace(rtb().codePage().characters(), syntax_);
    return *words_;
}

ClassColors KELP_RTBSyntax::classColors() const {
    const auto shown = [this](Long value) -> ColorRef {
        const ColorValue color(static_cast<std::uint32_t>(value));
        return color.plain(palette()).value() & 0xFFFFFF;
    };
    ClassColors colors{};
    std::ranges::transform(colors_, colors.begin(), shown);
    return colors;
}

}  // namespace brindlex
