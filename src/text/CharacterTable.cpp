#include "text/CharacterTable.h"

#include <algorithm>
#include <numeric>

#include "text/Windows1252.h"

namespace brindlex {

namespace {

constexpr int kMultiplicationSign = 0xD7;
constexpr int kDivisionSign = 0xF7;

bool isLatin1Upper(int byte) {
    return (byte >= 'A' && byte <= 'Z') ||
           (byte >= 0xC0 && byte <= 0xDE && byte != kMultiplicationSign);
}

bool isWordCharacter(int byte) {
    const bool ascii = (byte >= 'a' && byte <= 'z') || (byte >= '0' && byte <= '9');
    const bool sign = byte == 0xAA || byte == 0xB5 || byte == 0xBA;  // ordinals and micro
    return ascii || sign || isLatin1Upper(byte) || (byte >= 0xDF && byte != kDivisionSign);
}

CharacterTable makeLatin1() {
    std::array<char16_t, 256> unicode{};
    std::array<std::uint8_t, 256> lower{};
    std::array<bool, 256> word{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        const int value = static_cast<int>(byte);
        unicode[byte] = static_cast<char16_t>(value);
        lower[byte] = static_cast<std::uint8_t>(value + (isLatin1Upper(value) ? 0x20 : 0));
        word[byte] = isWordCharacter(value);
    }
    return {unicode, lower, word, kWindows1252};
}

}  // namespace

const CharacterTable& CharacterTable::latin1() {
    static const CharacterTable table = makeLatin1();
    return table;
}

CharacterTable::CharacterTable(const std::array<char16_t, 256>& unicode,
                               const std::array<std::uint8_t, 256>& lower,
                               const std::array<bool, 256>& word, int ansiCodePage)
    : unicode_(unicode), lower_(lower), word_(word), ansiCodePage_(ansiCodePage) {
    word_['_'] = true;
    std::iota(bytesByValue_.begin(), bytesByValue_.end(), std::uint8_t{0});
    std::ranges::sort(bytesByValue_, {}, [this](std::uint8_t byte) { return unicode_[byte]; });
}

int CharacterTable::byteOf(char32_t character) const {
    const auto valueOf = [this](std::uint8_t byte) { return char32_t{unicode_[byte]}; };
    const auto found = std::ranges::lower_bound(bytesByValue_, character, {}, valueOf);
    return found != bytesByValue_.end() && valueOf(*found) == character ? *found : -1;
}

std::string CharacterTable::toLower(std::string_view text) const {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [this](char byte) { return lower(byte); });
    return result;
}

}  // namespace brindlex
