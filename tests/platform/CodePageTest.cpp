#include "platform/CodePage.h"

#include <gtest/gtest.h>

#include <numeric>

namespace brindlex {
namespace {

std::string allBytes() {
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

class EveryCodePage : public testing::TestWithParam<int> {};

TEST_P(EveryCodePage, BringsBackEveryByteAloneAndBesideEveryOther) {
    const CodePage page = CodePage::windows(GetParam());
    EXPECT_EQ(page.characters().ansiCodePage(), GetParam());
    for (int first = 0; first < 256; ++first) {
        for (int second = 0; second < 256; ++second) {
            const std::string pair{static_cast<char>(first), static_cast<char>(second)};
            ASSERT_EQ(page.fromUnicode(page.toUnicode(pair)), pair) << first << ' ' << second;
        }
    }
}

TEST_P(EveryCodePage, KeepsAsciiAndItsCase) {
    const CodePage page = CodePage::windows(GetParam());
    const std::string ascii = allBytes().substr(0, 128);
    EXPECT_EQ(page.toUnicode(ascii), QString::fromLatin1(ascii.data(), 128));
    EXPECT_EQ(page.characters().lower('Q'), 'q');
    EXPECT_EQ(page.characters().lower('\0'), '\0');
}

INSTANTIATE_TEST_SUITE_P(Windows, EveryCodePage,
                         testing::Values(874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257,
                                         1258));

struct Letters {
    int page;
    const char* utf8;
    std::string bytes;
};

class LettersOfPage : public testing::TestWithParam<Letters> {};

// Among them are letters behind bytes that the page leaves undefined.
TEST_P(LettersOfPage, StandWhereThePageHasThem) {
    const auto& [number, utf8, bytes] = GetParam();
    const CodePage page = CodePage::windows(number);
    EXPECT_EQ(page.toUnicode(bytes), QString::fromUtf8(utf8)) << number;
    EXPECT_EQ(page.fromUnicode(QString::fromUtf8(utf8)), bytes) << number;
}

INSTANTIATE_TEST_SUITE_P(
    Pages, LettersOfPage,
    testing::Values(Letters{874, "€กฺ฿๛", "\x80\xA1\xDA\xDF\xFB"},
                    Letters{1250, "Łż˙", "\xA3\xBF\xFF"}, Letters{1251, "При", "\xCF\xF0\xE8"},
                    Letters{1252, "€\u0081Ÿÿ", "\x80\x81\x9F\xFF"},
                    Letters{1253, "ΡΣώ", "\xD1\xD3\xFE"}, Letters{1254, "İış", "\xDD\xFD\xFE"},
                    Letters{1255, "את\u200E", "\xE0\xFA\xFD"}, Letters{1256, "پے", "\x81\xFF"},
                    Letters{1257, "¢Ųž", "\xA2\xD8\xFE"}, Letters{1258, "Ăđ₫", "\xC3\xF0\xFE"},
                    Letters{4711, "€", "\x80"}));

TEST(CodePage, CaseAndWordsAreThoseOfThePage) {
    const CodePage cyrillic = CodePage::windows(1251);
    EXPECT_EQ(cyrillic.characters().lower('\xCF'), '\xEF');
    EXPECT_TRUE(cyrillic.characters().isWord('\xCF'));
    EXPECT_FALSE(cyrillic.characters().isWord('\xB9'));  // the number sign
}

struct Nearest {
    int page;
    const char* utf8;
    std::string bytes;
};

class NearestLetter : public testing::TestWithParam<Nearest> {};

TEST_P(NearestLetter, StandsForWhatThePageLacks) {
    const auto& [page, utf8, bytes] = GetParam();
    EXPECT_EQ(CodePage::windows(page).fromUnicode(QString::fromUtf8(utf8)), bytes) << utf8;
}

INSTANTIATE_TEST_SUITE_P(
    Texts, NearestLetter,
    testing::Values(Nearest{1252, "", ""},              //
                    Nearest{1252, "ĄęŁ Şő", "AeL So"},  // base letters
                    Nearest{1251, "café Ærø “x” – …", "cafe AEro \x93x\x94 \x96 \x85"},
                    Nearest{874, "„x‚ ‹y› −", "\"x' <y> -"},      // quotes and dashes
                    Nearest{1252, "ﬁ ２ ½ Ⅷ", "fi 2 \xBD VIII"},  // ligatures and wide forms
                    Nearest{1250, "½", "1/2"},                    //
                    Nearest{1252, "日本 При", "?? ???"},          //
                    Nearest{1252, "x\U0001F600y", "x?y"},         // one for a pair of surrogates
                    Nearest{1252, "cafe\u0301 z\u0302", "caf\xE9 z"},  // accents of their own
                    Nearest{1252, "\u0301", "?"},                      //
                    Nearest{1258, "\u1EBF", "\xEA\xEC"},  // the page holds the accent alone
                    Nearest{1253, "Ò", "O"},              // an undefined byte is no letter
                    Nearest{1252, "\xEF\xBF\xBD", "?"}));

TEST(CodePage, LoneSurrogatesAreOneQuestionMarkEach) {
    const char16_t text[] = {u'a', 0xDC00, 0xD800, u'b', 0xD83D};
    EXPECT_EQ(CodePage::windows(1252).fromUnicode(QStringView(text, 5)), "a??b?");
}

struct LocalePage {
    const char* locale;
    int number;
};

class CodePageOfLocale : public testing::TestWithParam<LocalePage> {};

TEST_P(CodePageOfLocale, IsItsOwnOrThatOfItsLanguage) {
    const CodePage page = CodePage::ofLocale(QString::fromLatin1(GetParam().locale));
    EXPECT_EQ(page.characters().ansiCodePage(), GetParam().number) << GetParam().locale;
    const std::string bytes = allBytes();
    EXPECT_EQ(page.fromUnicode(page.toUnicode(bytes)), bytes) << GetParam().locale;
}

INSTANTIATE_TEST_SUITE_P(
    Locales, CodePageOfLocale,
    testing::Values(LocalePage{"", 1252}, LocalePage{"C", 1252}, LocalePage{"C.UTF-8", 1252},
                    LocalePage{"nonsense.NO-SUCH-SET", 1252}, LocalePage{"zh_CN.GB18030", 1252},
                    LocalePage{"de_DE.UTF-8", 1252}, LocalePage{"pl_PL.UTF-8", 1250},
                    LocalePage{"ru_RU", 1251}, LocalePage{"sr_RS.UTF-8", 1251},
                    LocalePage{"sr_RS@latin", 1250}, LocalePage{"el_GR.UTF-8", 1253},
                    LocalePage{"tr_TR", 1254}, LocalePage{"he_IL.utf8", 1255},
                    LocalePage{"fa_IR", 1256}, LocalePage{"lt_LT", 1257}, LocalePage{"vi_VN", 1258},
                    LocalePage{"th_TH.UTF-8", 874}, LocalePage{"ru_RU.CP1251", 1251},
                    LocalePage{"de_DE.cp1251", 1251}, LocalePage{"ru_RU.KOI8-R", 20866},
                    LocalePage{"ru_RU.ISO-8859-5", 28595}, LocalePage{"ar_EG.iso88596", 28596},
                    LocalePage{"de_DE.ISO-8859-15@euro", 28605}));

}  // namespace
}  // namespace brindlex
