// The block editing of KELP_RTBSyntax. Handlers may edit during each edit, so no offset is kept
// across one, except for the selection that an operation restores.

#include <algorithm>
#include <string>
#include <string_view>

#include "editor/KELP_RTBSyntax.h"
#include "editor/RedrawPause.h"
#include "system/KeyCodes.h"
#include "text/LineEnds.h"

namespace brindlex {
namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kMark = "//";

/// The 0-based lines from `first` to `last`, both included; none when `last` is smaller.
struct LineSpan {
    Long first;
    Long last;
    Long count() const { return last - first + 1; }
};

/// Stops repainting while it lives; then the view follows the caret, as after any edit.
class BlockEdit {
  public:
    explicit BlockEdit(RichTextView& view) : view_(view), pause_(view) {}
    ~BlockEdit() { view_.followCaret(); }
    BlockEdit(const BlockEdit&) = delete;
    BlockEdit& operator=(const BlockEdit&) = delete;

  private:
    RichTextView& view_;
    RedrawPause pause_;
};

Long toLong(Offset offset) {
    return static_cast<Long>(offset.value());
}

// --- What stands where ---------------------------------------------------------------------------

/// The lines of the selected characters. With nothing selected the character before the caret is
/// the last one; at the start of the text, `last` is -1.
LineSpan linesOfSelection(const RichTextBox& box) {
    const Long start = box.SelStart();
    const Long lastSelected = start + box.SelLength() - 1;
    return {box.GetLineFromChar(start), lastSelected < 0 ? -1 : box.GetLineFromChar(lastSelected)};
}

/// Where the selection starts, or in front of the break that this splits.
Offset snappedStart(const RichTextBox& box) {
    return inFrontOfBreak(box.rope(), box.selection().begin());
}

/// The lines of both ends of the selection and all between.
LineSpan linesOfEnds(const RichTextBox& box) {
    const Long start = box.SelStart();
    return {box.GetLineFromChar(start), box.GetLineFromChar(start + box.SelLength())};
}

/// Behind the blanks and tabs that `range` begins with.
Offset endOfBlanks(const Rope& rope, Range range) {
    Offset end = range.begin();
    rope.visitPieces(range, [&end](std::string_view piece) {
        const std::size_t blanks = std::min(piece.find_first_not_of(kBlanks), piece.size());
        end = end + blanks;
        return blanks == piece.size();
    });
    return end;
}

std::size_t tabsBefore(const Rope& rope, Offset offset) {
    std::size_t tabs = 0;
    rope.visitPiecesBackward({Offset(), offset}, [&tabs](std::string_view piece) {
        const std::size_t other = piece.find_last_not_of('\t');
        const std::size_t inPiece = piece.size() - (other == piece.npos ? 0 : other + 1);
        tabs += inPiece;
        return inPiece == piece.size();
    });
    return tabs;
}

/// The bytes of `range`, cut at the end of the text.
std::string bytesWithin(const Rope& rope, Range range) {
    const Offset end(rope.size());
    return rope.bytes({std::min(range.begin(), end), std::min(range.end(), end)});
}

// --- Steps through the selection -----------------------------------------------------------------

/// Puts the caret at the start of a line; false when there is no such line.
bool goToLine(RichTextBox& box, Long line) {
    const Long start = box.GetLineIndex(line);
    if (start >= 0) box.SetSelStart(start);
    return start >= 0;
}

/// Calls `edit()` with the caret at the start of each line, until a line is no longer there.
template <typename Edit>
void editLines(RichTextBox& box, LineSpan lines, Edit&& edit) {
    for (Long line = lines.first; line <= lines.last && goToLine(box, line); ++line) edit();
}

/// Selects from the caret to `end`; an end before the caret is refused.
void selectTo(RichTextBox& box, Long end) {
    const Long length = end - box.SelStart();
    if (length >= 0) box.SetSelLength(length);
}

void selectLines(RichTextBox& box, LineSpan lines) {
    if (!goToLine(box, lines.first)) return;
    const Long next = box.GetLineIndex(lines.last + 1);
    selectTo(box, next < 0 ? static_cast<Long>(box.length()) : next);
}

/// Selects a line with the CR of its break; selects nothing of a line without a break.
void selectUpToLf(RichTextBox& box, LineSpan lines) {
    if (goToLine(box, lines.first)) selectTo(box, box.GetLineIndex(lines.last + 1) - 1);
}

void removeAhead(RichTextBox& box, Long length) {
    box.SetSelLength(length);
    box.SetSelText("");
}

/// Takes away the blank or tab behind the caret; false when there is none.
bool removeBlank(RichTextBox& box) {
    const std::string behind = bytesWithin(box.rope(), Range::at(box.caret(), 1));
    const bool isBlank = behind.find_first_of(kBlanks) != behind.npos;
    if (isBlank) removeAhead(box, 1);
    return isBlank;
}

/// Takes away the comment mark that follows the caret directly or behind blanks and tabs.
void removeMark(RichTextBox& box) {
    const Rope& rope = box.rope();
    const Offset mark = endOfBlanks(rope, {box.caret(), Offset(rope.size())});
    if (bytesWithin(rope, Range::at(mark, kMark.size())) != kMark) return;
    box.SetSelStart(toLong(mark));
    removeAhead(box, static_cast<Long>(kMark.size()));
}

void insertTabs(RichTextBox& box, Long count) {
    for (; count > 0; --count) box.SetSelText("\t");
}

}  // namespace

void KELP_RTBSyntax::AutoIndent(int intKeyCode) {
    if (intKeyCode != kAsciiEnter || SelStart() == 0) return;
    const Rope& rope = box().rope();
    const Offset caret = snappedStart(box());
    const Offset above = caret == Offset() ? caret : caret - 1;
    const Offset line = rope.lineStart(rope.lineOf(above));
    const Offset behindCaret = std::min(caret + 1, Offset(rope.size()));
    const Offset end = endOfBlanks(rope, {line, behindCaret});
    SetSelText(std::string(kLineBreak) + rope.bytes({line, end}));
}

void KELP_RTBSyntax::BlockIndent(int intKeyCode) {
    if (intKeyCode != int{'{'} || SelStart() == 0) return;
    constexpr Long kBreakAndBrace = kLineBreak.size() + 1;
    const BlockEdit edit(rtb());
    const auto tabs = static_cast<Long>(tabsBefore(box().rope(), snappedStart(box())));
    SetSelLength(0);
    SetSelText(std::string("{").append(kLineBreak));
    insertTabs(box(), tabs + 1);
    SetSelText(kLineBreak);
    insertTabs(box(), tabs);
    SetSelText("}");
    SetSelStart(std::max(Long{0}, SelStart() - tabs - kBreakAndBrace));
    SetFocus();
}

void KELP_RTBSyntax::MultiTab() {
    const LineSpan lines = linesOfSelection(box());
    const BlockEdit edit(rtb());
    if (lines.last <= lines.first) {
        SetSelText("\t");
        return;
    }
    editLines(box(), lines, [this] { SetSelText("\t"); });
    selectLines(box(), lines);
}

void KELP_RTBSyntax::BackTab() {
    const LineSpan lines = linesOfSelection(box());
    if (lines.last < 0) return;
    const BlockEdit edit(rtb());
    if (lines.last > lines.first) {
        editLines(box(), lines, [this, lines] {
            if (removeBlank(box())) selectLines(box(), lines);
        });
    } else if (goToLine(box(), lines.first) && removeBlank(box())) {
        selectUpToLf(box(), lines);
    }
}

void KELP_RTBSyntax::CommentBlock() {
    const LineSpan lines = linesOfEnds(box());
    const Long length = SelLength();
    const Long start = length > 0 ? SelStart() : toLong(snappedStart(box()));
    const BlockEdit edit(rtb());
    editLines(box(), lines, [this] { SetSelText(kMark); });
    SetSelStart(start);
    SetSelLength(length + static_cast<Long>(kMark.size()) * lines.count());
    SetFocus();
}

void KELP_RTBSyntax::UnCommentBlock() {
    const LineSpan lines = linesOfEnds(box());
    const Long start = SelStart();
    const BlockEdit edit(rtb());
    editLines(box(), lines, [this] { removeMark(box()); });
    SetSelStart(start);
    SetFocus();
}

}  // namespace brindlex
