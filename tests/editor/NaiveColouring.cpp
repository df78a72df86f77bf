#include "editor/NaiveColouring.h"

#include <algorithm>
#include <array>
#include <utility>

namespace brindlex::test {
WordClass NaiveColouring::classOf(const std::string& word) const {
    const CharacterTable& characters = editor_.rtb().codePage().characters();
    const std::string delimiter = editor_.Syntax_Delimiter();
    const std::string needle = characters.toLower(delimiter + word + delimiter);
    const std::array<std::pair<std::string, WordClass>, 7> lists = {{
        {editor_.Syntax_CommentChar(), ClassComment},
        {editor_.Syntax_ReservedWords(), ClassReserved},
        {editor_.Syntax_ProceduresORFunctions(), ClassProcedure},
        {editor_.Syntax_LogicalOperators(), ClassLogical},
        {editor_.Syntax_Operators(), ClassOperator},
        {editor_.Syntax_Objects(), ClassObject},
        {editor_.Syntax_Constants(), ClassConstant},
    }};
    for (const auto& [list, wordClass] : lists) {
        if (characters.toLower(list).find(needle) != std::string::npos) return wordClass;
    }
    return ClassNormal;
}

void NaiveColouring::paint(const std::string& text, std::size_t start, std::size_t end,
                           std::vector<ColorRef>& colors) const {
    for (std::size_t next = 0; start <= end; start = next + 2) {
        next = std::min(text.find("\r\n", start), end);
        paintLine(text.substr(start, next - start), start, colors);
    }
}

void NaiveColouring::paintChange(const std::string& text, std::size_t before, std::size_t caret,
                                 std::vector<ColorRef>& colors) const {
    const std::string whole = text + "\r\n";
    std::size_t start = std::min(before, caret);
    std::size_t end = std::max(before, caret);
    const std::size_t above =
        start < 2 ? std::string::npos : whole.substr(0, start - 1).rfind("\r\n");
    start = above == std::string::npos ? 0 : above + 2;
    const bool endsInText = end < whole.size() && whole.find("\r\n", end) != std::string::npos;
    end = endsInText ? whole.find("\r\n", caret) : text.size();
    if (start != end) paint(text, start, end, colors);
}

void NaiveColouring::paintLine(const std::string& line, std::size_t offset,
                               std::vector<ColorRef>& colors) const {
    const std::string commentMark = editor_.Syntax_CommentChar();
    const std::string stringMark = editor_.Syntax_StringChar();
    enum { Between, InWord, InString } state = Between;
    std::size_t tokenStart = 0;
    const auto apply = [&](WordClass wordClass, std::size_t from, std::size_t length) {
        std::fill_n(colors.begin() + static_cast<std::ptrdiff_t>(offset + from), length,
                    colorOf(wordClass));
    };
    std::size_t i = 0;
    const auto closeWord = [&] {
        if (state != InWord) return;
        const std::size_t length = i - tokenStart;
        apply(classOf(line.substr(tokenStart, length)), tokenStart, length);
        state = Between;
    };
    for (; i < line.size(); ++i) {
        const std::string taken = line.substr(i, stringMark.size());
        if (state != InString && line.compare(i, commentMark.size(), commentMark) == 0) {
            closeWord();
            apply(ClassComment, i, line.size() - i);
            return;
        }
        if (taken == stringMark && state == InString) {
            apply(ClassString, tokenStart, i - tokenStart + stringMark.size());
            state = Between;
        } else if (taken == stringMark) {
            closeWord();
            state = InString;
            tokenStart = i;
        } else if (taken == " " || taken == "\t") {
            closeWord();
            apply(ClassNormal, i, 1);
        } else if (state == Between) {
            state = InWord;
            tokenStart = i;
        }
    }
    if (state == InString) apply(ClassString, tokenStart, i - tokenStart);
    closeWord();
}

ColorRef NaiveColouring::colorOf(WordClass wordClass) const {
    const std::array<Long, kWordClassCount> colors = {
        editor_.ColorOf_Comments(),         editor_.ColorOf_Strings(),
        editor_.ColorOf_ReservedWords(),    editor_.ColorOf_ProceduresORFunctions(),
        editor_.ColorOf_Normal(),           editor_.ColorOf_Operators(),
        editor_.ColorOf_LogicalOperators(), editor_.ColorOf_Constants(),
        editor_.ColorOf_Objects()};
    return static_cast<ColorRef>(colors[wordClass]);
}

std::vector<ColorRef> colorsOf(const KELP_RTBSyntax& editor) {
    const RichTextBox& box = editor.rtb().box();
    std::vector<ColorRef> colors;
    box.visitFormats(Range(Offset(), Offset(box.length())),
                     [&colors](Range range, const CharFormat& format) {
                         colors.insert(colors.end(), range.length(), format.color);
                         return true;
                     });
    return colors;
}

void paintAll(KELP_RTBSyntax& editor, ColorRef color) {
    RichTextBox& box = editor.rtb().box();
    const ColorRun run{static_cast<std::uint32_t>(box.length()), color};
    if (box.length() != 0) box.colorRuns(Offset(), {&run, 1});
}

}  // namespace brindlex::test
