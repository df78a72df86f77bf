#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "text/RichTextBox.h"

namespace {

using brindlex::Offset;
using brindlex::Range;
using brindlex::RichTextBox;

/// Reads an input from its front; at its end it reads zeros.
class Input {
  public:
    explicit Input(std::string_view bytes) : rest_(bytes) {}
    bool isEmpty() const { return rest_.empty(); }
    std::size_t byte() {
        if (rest_.empty()) return 0;
        const auto value = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return value;
    }
    std::size_t number() {
        const std::size_t low = byte();
        const std::size_t middle = byte();
        return low | middle << 8U | byte() << 16U;
    }
    /// Anywhere in a text, and a little behind its end.
    Offset offset(const RichTextBox& box) { return Offset(number() % (box.length() + 3)); }
    /// A few bytes of the input, repeated so that they may fill several chunks.
    std::string text() {
        const std::string_view piece = rest_.substr(0, byte() % 32);
        rest_.remove_prefix(piece.size());
        std::string result;
        for (std::size_t times = byte() % 128; times > 0; --times) result += piece;
        return result;
    }

  private:
    std::string_view rest_;
};

void edit(RichTextBox& box, Input& input) {
    constexpr std::size_t kEnough = 100'000;
    const std::size_t operation = box.length() > kEnough ? 0 : input.byte();
    const Offset begin = input.offset(box);
    const Offset end = std::max(begin, input.offset(box));
    switch (operation % 6) {
        case 0:
            return box.SetText(input.text());
        case 1:
            return box.SetSelText(input.text());
        case 2:
            return box.select(end, begin);
        case 3:
            return box.SetMaxLength(static_cast<brindlex::Long>(input.number()));
        case 4:
            return static_cast<void>(box.userMove(Range(begin, end), input.offset(box)));
        default:
            return static_cast<void>(box.userReplace(Range(begin, end), input.text()));
    }
}

}  // namespace

/// Any edits leave a sound box with whole line breaks, and an older value of the text as it was.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input({reinterpret_cast<const char*>(data), size});
    RichTextBox box;
    while (!input.isEmpty()) {
        const brindlex::Rope kept = box.rope();
        const std::string text = kept.bytes();
        edit(box, input);
        box.checkInvariants();
        if (kept.bytes() != text) std::abort();
    }
    return 0;
}
