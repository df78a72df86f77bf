#include "platform/text/CharacterTable.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/text/FormatTable.h"
#include "platform/text/Formats.h"

namespace brindlex {
namespace {

/// A code page with letters out of the order of their values, and the euro at 0x80.
CharacterTable mixedTable() {
    std::array<char16_t, 256> unicode{};
    std::array<std::uint8_t, 256> lower{};
    std::array<bool, 256> letter{};
    for (std::size_t byte = 0; byte < 256; ++byte) {
        unicode[byte] = static_cast<char16_t>(byte);
        lower[byte] = static_cast<std::uint8_t>(byte);
        letter[byte] = byte >= 0xE0;
    }
    unicode[0x80] = 0x20AC;
    unicode[0xC1] = 0x0411;
    unicode[0xE1] = 0x0431;
    unicode[0xFF] = 0x0410;
    lower[0xC1] = 0xE1;
    return {unicode, lower, letter, 1251};
}

TEST(CharacterTable, EveryByteComesBack) {
    const CharacterTable mixed = mixedTable();
    for (const CharacterTable* table : {&CharacterTable::latin1(), &mixed}) {
        for (int byte = 0; byte < 256; ++byte) {
            EXPECT_EQ(table->byteOf(table->unicode(static_cast<unsigned char>(byte))), byte);
        }
    }
}

TEST(CharacterTable, AValueThatTheCodePageLacksHasNoByte) {
    const CharacterTable mixed = mixedTable();
    for (const char32_t character : {0x80U, 0xC1U, 0xFFU, 0x100U, 0x20ADU, 0x1F600U, 0x10FFFFU}) {
        EXPECT_EQ(mixed.byteOf(character), -1) << std::hex << static_cast<unsigned>(character);
    }
    // No value is cut to 16 bits on its way.
    EXPECT_EQ(CharacterTable::latin1().byteOf(0x10041), -1);
}

TEST(CharacterTable, CaseAndWordsOfLatin1) {
    const CharacterTable& table = CharacterTable::latin1();
    EXPECT_EQ(table.toLower("AZaz[@`{09_ \xC0\xDE\xD7\xDF\xF7"),
              "azaz[@`{09_ \xE0\xFE\xD7\xDF\xF7");
    EXPECT_TRUE(table.equalIgnoringCase("Trigger \xC4", "tRIGGER \xE4"));
    EXPECT_FALSE(table.equalIgnoringCase("a", "ab"));
    EXPECT_FALSE(table.equalIgnoringCase("[", "{"));
    EXPECT_FALSE(table.equalIgnoringCase("\xD7", "\xF7"));
    for (const char word : std::string("azAZ09_\xB5\xC0\xDF\xFF")) {
        EXPECT_TRUE(table.isWord(word)) << word;
    }
    for (const char other : std::string("@[`{/:\r\n\t -\x80\xA0\xD7\xF7") + '\0') {
        EXPECT_FALSE(table.isWord(other)) << other;
    }
}

TEST(FormatTable, EqualFormatsShareANumberAndDifferentOnesDoNot) {
    FormatTable<CharFormat> table;
    EXPECT_EQ(table.idOf(CharFormat{}), 0U);
    const CharFormat& plain = table.format(0);
    std::vector<FormatId> ids;
    for (ColorRef color = 0; color < 2000; ++color) {
        for (const bool bold : {false, true}) {
            CharFormat format;
            format.color = color;
            format.bold = bold;
            format.fontName = "Courier";
            ids.push_back(table.idOf(format));
            ASSERT_EQ(table.format(ids.back()), format);
            ASSERT_EQ(table.idOf(format), ids.back());
            ASSERT_EQ(ids.back(), ids.size());
        }
    }
    EXPECT_EQ(&table.format(0), &plain) << "a format stays where it is";

    FormatTable<ParagraphFormat> paragraphs;
    ParagraphFormat tabs;
    tabs.tabs = {720, 1440};
    EXPECT_NE(paragraphs.idOf(tabs), 0U);
    EXPECT_EQ(paragraphs.format(paragraphs.idOf(tabs)), tabs);
}

}  // namespace
}  // namespace brindlex
