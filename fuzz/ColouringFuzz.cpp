#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <vector>

#include "editor/LineColorizer.h"
#include "text/RichTextBox.h"

namespace {

using namespace brindlex;

/// Another color for each class.
constexpr ClassColors kColors = {1, 2, 3, 4, 5, 6, 7, 8, 9};

/// Takes the marks and lists from the front of the input, each up to a NUL.
Syntax syntaxFrom(std::string_view& input) {
    Syntax syntax;
    const auto take = [&input](std::string& part) {
        const std::string_view taken = input.substr(0, input.find('\0'));
        part = taken;
        input.remove_prefix(std::min(taken.size() + 1, input.size()));
    };
    take(syntax.delimiter);
    take(syntax.stringMark);
    for (const WordClass wordClass : {ClassComment, ClassReserved, ClassOperator, ClassConstant})
        take(syntax.lists[wordClass]);
    return syntax;
}

/// One color for each byte. Aborts unless the runs cover just the lines.
std::vector<ColorRef> colorsOf(LineColorizer& colorizer, const Rope& rope, Range lines) {
    std::vector<ColorRef> colors;
    for (const ColorRun& run : colorizer.colorsOf(rope, lines))
        colors.insert(colors.end(), run.length, run.color);
    if (colors.size() != lines.length()) std::abort();
    return colors;
}

}  // namespace

/// Any text under any marks and lists: the colours of the whole text are those of its lines, one by
/// one.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string_view input(reinterpret_cast<const char*>(data), size);
    const Syntax syntax = syntaxFrom(input);
    RichTextBox box;
    box.SetText(input);
    const Rope& rope = box.rope();
    const WordLookup words(box.characters(), syntax);
    LineColorizer colorizer(words, kColors);

    const auto whole = colorsOf(colorizer, rope, {Offset(), Offset(rope.size())});
    for (LineIndex line; line.value() <= rope.breakCount(); line = line + 1) {
        const Range range = box.lineContent(line);
        const auto colors = colorsOf(colorizer, rope, range);
        if (!std::equal(colors.begin(), colors.end(), whole.data() + range.begin().value()))
            std::abort();
    }
    return 0;
}
