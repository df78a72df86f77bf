#include "system/CodePage.h"

#include <gtest/gtest.h>

#include "text/Random.h"

namespace brindlex {
namespace {

using test::allBytes;

TEST(CodePage, EveryPageBringsBackEveryByteAloneAndBesideEveryOther) {
    const std::string ascii = allBytes().substr(0, 128);
    for (const int number : {874, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258}) {
        SCOPED_TRACE(number);
        const CodePage page = CodePage::windows(number);
        EXPECT_EQ(page.characters().ansiCodePage(), number);
        EXPECT_EQ(page.toUnicode(ascii), QString::fromLatin1(ascii.data(), 128));
        EXPECT_EQ(page.characters().lower('Q'), 'q');
        for (const char first : allBytes()) {
            for (const char second : allBytes()) {
                const std::string pair{first, second};
                ASSERT_EQ(page.fromUnicode(page.toUnicode(pair)), pair);
                ASSERT_EQ(page.encodeExactly(page.toUnicode(pair)), pair);
            }
        }
    }
}

TEST(CodePage, TheNearestLetterStandsForWhatThePageLacks) {
    const struct {
        int page;
        const char* utf8;
        std::string bytes;
        bool exact = false;  ///< the bytes stand for the letters, and a search looks for them
    } rows[] = {
        {874, "€กฺ฿๛", "\x80\xA1\xDA\xDF\xFB", true},
        {1251, "При", "\xCF\xF0\xE8", true},
        {1252, "€\u0081Ÿÿ", "\x80\x81\x9F\xFF", true},
        {1253, "ΡΣώ", "\xD1\xD3\xFE", true},  // behind a byte that the page leaves undefined
        {1255, "את\u200E", "\xE0\xFA\xFD", true},
        {1256, "پے", "\x81\xFF", true},
        {4711, "€", "\x80", true},
        {1251, "café Ærø “x” – …", "cafe AEro \x93x\x94 \x96 \x85"},
        {874, "„x‚ ‹y› −", "\"x' <y> -"},
        {1252, "ﬁ ２ ½ Ⅷ", "fi 2 \xBD VIII"},
        {1250, "½", "1/2"},
        {1252, "日本 При", "?? ???"},
        {1252, "x\U0001F600y", "x?y"},
        {1252, "cafe\u0301", "caf\xE9", true},  // an accent of its own
        {1252, "a\u200B\u200C\u200D\u2060\uFEFFb", "ab"},
        {1256, "\u200C\u200D", "\x9D\x9E", true},
        {1252, "\u0301", "?"},
        {1252, "\u0661\u06F9", "19"},
        {1258, "\u1EBF", "\xEA\xEC", true},  // the page holds the accent alone
        {1253, "Ò", "O"},                    // an undefined byte is no letter
    };
    const auto composed = [](const QString& text) {
        return text.normalized(QString::NormalizationForm_C);
    };
    for (const auto& [number, utf8, bytes, exact] : rows) {
        const CodePage page = CodePage::windows(number);
        const QString text = QString::fromUtf8(utf8);
        EXPECT_EQ(page.fromUnicode(text), bytes) << utf8;
        EXPECT_EQ(page.encodeExactly(text), exact ? std::optional(bytes) : std::nullopt) << utf8;
        EXPECT_EQ(composed(page.toUnicode(bytes)) == composed(text), exact) << utf8;
    }
    const char16_t loneSurrogates[] = {u'a', 0xDC00, 0xD800, u'b', 0xD83D};
    EXPECT_EQ(CodePage::windows(1252).fromUnicode(QStringView(loneSurrogates, 5)), "a??b?");
}

TEST(CodePage, ALocaleHasItsOwnOrThatOfItsLanguage) {
    const std::pair<const char*, int> rows[] = {
        {"C.UTF-8", 1252},         {"zh_CN.GB18030", 1252},
        {"sr_RS@latin", 1250},     {"fa_IR", 1256},
        {"de_DE.cp1251", 1251},    {"ru_RU.KOI8-R", 20866},
        {"ar_EG.iso88596", 28596}, {"de_DE.ISO-8859-15@euro", 28605},
    };
    for (const auto& [locale, number] : rows) {
        const CodePage page = CodePage::ofLocale(QString::fromLatin1(locale));
        EXPECT_EQ(page.characters().ansiCodePage(), number) << locale;
        EXPECT_EQ(page.fromUnicode(page.toUnicode(allBytes())), allBytes()) << locale;
    }
}

}  // namespace
}  // namespace brindlex
