#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/text/RichTextBox.h"

namespace {

/// Reads an input from its front.
class Input {
  public:
    explicit Input(std::string_view bytes) : rest_(bytes) {}
    bool isEmpty() const { return rest_.empty(); }
    std::size_t number() {
        if (rest_.empty()) return 0;
        const auto value = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return value;
    }
    std::string_view text() {
        const std::size_t length = number();
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(taken.size());
        return taken;
    }

  private:
    std::string_view rest_;
};

void edit(brindlex::RichTextBox& box, Input& input) {
    using brindlex::Offset;
    const std::size_t operation = input.number();
    const std::size_t begin = input.number();
    const std::size_t length = input.number();
    const std::string_view text = input.text();
    const auto range = brindlex::Range::at(Offset(begin), length);
    switch (operation % 6) {
        case 0:
            return box.SetText(text);
        case 1:
            return box.SetSelText(text);
        case 2:
            return box.select(Offset(begin), Offset(length));
        case 3:
            return box.SetMaxLength(static_cast<brindlex::Long>(length));
        case 4:
            return static_cast<void>(box.userMove(range, Offset(text.size())));
        default:
            return static_cast<void>(box.userReplace(range, text));
    }
}

}  // namespace

/// Any bytes, put in through every door for plain text, leave a sound box with whole line breaks.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Input input({reinterpret_cast<const char*>(data), size});
    brindlex::RichTextBox box;
    while (!input.isEmpty()) {
        edit(box, input);
        box.checkInvariants();
    }
    return 0;
}
