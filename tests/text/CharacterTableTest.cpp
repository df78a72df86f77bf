#include "platform/text/CharacterTable.h"

#include <gtest/gtest.h>

#include <string>

namespace brindlex {
namespace {

/// A code page with letters out of the order of their values, and the euro at 0x80.
CharacterTable mixedTable() {
    std::array<char16_t, 256> unicode{};
    for (std::size_t byte = 0; byte < 256; ++byte) unicode[byte] = static_cast<char16_t>(byte);
    unicode[0x80] = 0x20AC;
    unicode[0xC1] = 0x0411;
    unicode[0xE1] = 0x0431;
    unicode[0xFF] = 0x0410;
    return {unicode, {}, {}, 1251};
}

TEST(CharacterTable, EveryByteComesBackAndNothingElseHasOne) {
    const CharacterTable mixed = mixedTable();
    for (const CharacterTable* table : {&CharacterTable::latin1(), &mixed}) {
        for (int byte = 0; byte < 256; ++byte) {
            EXPECT_EQ(table->byteOf(table->unicode(static_cast<unsigned char>(byte))), byte);
        }
        for (const char32_t character : {0x100U, 0x20ADU, 0x10041U, 0x1F600U, 0x10FFFFU}) {
            EXPECT_EQ(table->byteOf(character), -1) << static_cast<unsigned>(character);
        }
    }
    for (const char32_t character : {0x80U, 0xC1U, 0xFFU}) EXPECT_EQ(mixed.byteOf(character), -1);
}

TEST(CharacterTable, CaseAndWordsOfLatin1) {
    const CharacterTable& table = CharacterTable::latin1();
    EXPECT_EQ(table.toLower("AZaz[@`{09_ \xC0\xDE\xD7\xDF\xF7"),
              "azaz[@`{09_ \xE0\xFE\xD7\xDF\xF7");
    EXPECT_TRUE(table.equalIgnoringCase("Trigger \xC4", "tRIGGER \xE4"));
    EXPECT_FALSE(table.equalIgnoringCase("a", "ab"));
    EXPECT_FALSE(table.equalIgnoringCase("\xD7", "\xF7"));
    for (const char word : std::string("azAZ09_\xB5\xC0\xDF\xFF")) EXPECT_TRUE(table.isWord(word));
    for (const char other : std::string("@[`{/:\r\n\t -\x80\xA0\xD7\xF7") + '\0') {
        EXPECT_FALSE(table.isWord(other)) << other;
    }
}

}  // namespace
}  // namespace brindlex
