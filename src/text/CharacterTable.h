#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace brindlex {

/// What the 256 characters of an 8-bit code page are: their Unicode values, their lower-case
/// partners and which of them make words. Every byte has a value of its own, so that bytes go to
/// Unicode and come back unchanged: a byte that the code page leaves undefined has the C1 control
/// of the same number.
class CharacterTable {
  public:
    /// The table of ISO 8859-1 (byte n is U+00n).
    static const CharacterTable& latin1();

    /// `unicode[b]` is the value of byte b; all values differ. `lower[b]` is the byte of b's
    /// lower-case letter, or b. `word[b]` tells whether b makes words, as letters and digits do.
    /// `ansiCodePage` is the Windows code page number (1252 and so on) that RTF names.
    CharacterTable(const std::array<char16_t, 256>& unicode,
                   const std::array<std::uint8_t, 256>& lower, const std::array<bool, 256>& word,
                   int ansiCodePage);

    char16_t unicode(unsigned char byte) const { return unicode_[byte]; }
    char lower(char byte) const {
        return static_cast<char>(lower_[static_cast<unsigned char>(byte)]);
    }
    /// Letters, digits and the underscore make words.
    bool isWord(char byte) const { return word_[static_cast<unsigned char>(byte)]; }
    int ansiCodePage() const { return ansiCodePage_; }

    /// The byte of a Unicode value, or -1 when the code page lacks it.
    int byteOf(char32_t character) const;

    std::string toLower(std::string_view text) const;

  private:
    std::array<char16_t, 256> unicode_;
    std::array<std::uint8_t, 256> lower_;
    std::array<bool, 256> word_;
    std::array<std::uint8_t, 256> bytesByValue_;  // bytes sorted by their Unicode value
    int ansiCodePage_;
};

}  // namespace brindlex
