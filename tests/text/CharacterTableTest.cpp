#include "platform/text/CharacterTable.h"

#include <gtest/gtest.h>

#include <string>

namespace brindlex {
namespace {

TEST(CharacterTable, CaseAndWordsOfLatin1) {
    const CharacterTable& table = CharacterTable::latin1();
    EXPECT_EQ(table.byteOf(0x10041), -1) << "no A";
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
