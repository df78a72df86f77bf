#include "text/rtf/Rtf.h"

#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <string>
#include <utility>

#include "text/Random.h"
#include "text/Windows1252.h"

namespace brindlex {
namespace {

using namespace std::string_literals;

CharacterTable tableOf(int codePage, char16_t (*unicode)(unsigned char)) {
    std::array<char16_t, 256> values{};
    for (std::size_t byte = 0; byte < 256; ++byte)
        values[byte] = unicode(static_cast<unsigned char>(byte));
    return {values, {}, {}, codePage};
}

const CharacterTable kWestern = tableOf(1252, windows1252);
/// The capitals and small letters of Cyrillic where code page 1251 has them.
const CharacterTable kCyrillic = tableOf(1251, [](unsigned char byte) {
    return static_cast<char16_t>(byte < 0xC0 ? byte : 0x0410 + byte - 0xC0);
});

/// A text of awkward characters in which formats change anywhere but within a line break.
RichText randomText(test::Random& random) {
    static const std::string kAwkward = "\\{}; \t-0'*a\x01\x0C\x93\xFF\0"s;
    RichText rich;
    RunBuilder runs;
    for (std::size_t pieces = random.below(25); pieces > 0; --pieces) {
        std::string piece = random.text(random.below(12), kAwkward);
        for (char& c : piece)
            if (random.oneIn(2)) c = static_cast<char>(14 + random.below(242));
        if (random.oneIn(3)) piece += "\r\n";
        const CharFormat format{.color = static_cast<std::uint32_t>(random.below(0x1000000)),
                                .bold = random.oneIn(2),
                                .italic = random.oneIn(2),
                                .underline = random.oneIn(2),
                                .strikeThrough = random.oneIn(2)};
        rich.text += piece;
        runs.append(piece.size(), random.oneIn(3) ? CharFormat{} : format);
    }
    rich.runs = runs.take();
    return rich;
}

TEST(RtfTest, RandomTextsComeBackEqual) {
    for (const std::uint64_t seed : test::seeds(1000)) {
        SCOPED_TRACE(seed);
        const CharacterTable* tables[] = {&kWestern, &kCyrillic, &CharacterTable::latin1()};
        test::Random random(seed);
        const RichText rich = randomText(random);
        const std::string rtf = writeRtf(rich, *tables[seed % 3]);
        ASSERT_TRUE(readRtf(rtf, *tables[seed % 3]) == rich) << rtf;
    }
}

TEST(RtfTest, WhatIsWrittenIsPlainToOtherPrograms) {
    const RichText rich{"\xE9 1\r\n{x}", {{1, {}}, {4, {.color = 0x0000C0, .bold = 1}}, {3, {}}}};
    EXPECT_EQ(writeRtf(rich, kCyrillic),
              "{\\rtf1\\ansi\\ansicpg1251\\uc1{\\colortbl ;\\red192\\green0\\blue0;}\r\n"
              "\\'e9\\b\\cf1  1\\par\r\n\\b0\\cf0\\{x\\}}");
}

/// Runs as text{format}.
std::string shown(const RichText& rich) {
    std::ostringstream out;
    std::size_t at = 0;
    for (const auto& [length, format] : rich.runs) {
        out << (at > 0 ? "|" : "") << rich.text.substr(at, length);
        at += length;
        if (format == CharFormat{}) continue;
        out << '{' << (format.bold ? "b" : "") << (format.italic ? "i" : "")
            << (format.underline ? "u" : "") << (format.strikeThrough ? "s" : "");
        if (format.color != 0) out << '#' << format.color;
        out << '}';
    }
    return out.str();
}

TEST(RtfTest, ForeignSources) {
    const std::pair<std::string, const char*> rows[] = {
        {R"({\rtf1})", ""},
        {"{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Calibri;}}\r\n"
         "{\\*\\generator X;}\\viewkind4\\uc1\\pard\\sa200\\sl276\\slmult1\\lang9\\f0\\fs22 wait"
         " 1\\par\r\nset {\\b v\\b0 }1\\par\r\n}\r\n\0"s,
         "wait 1\r\nset |v{b}|1\r\n"},
        // Blanks, line ends and characters of their own
        {"{\\rtf1\\v0  a\r\n\\v0 b\n\\i0-1\\i0\r\n c\0d}"s, " ab-1 cd"},
        {"{\\rtf1 a\\par b\\line c\\\nd\\\r\ne\\page f\\sect g}",
         "a\r\nb\r\nc\r\nd\r\ne\r\nf\r\ng"},
        {R"({\rtf1 a\'0d\'0ab\'0ac\'0dd\'0d\'0d\u10?e\par\'0af})",
         "a\r\nb\r\nc\r\nd\r\n\r\ne\r\n\r\nf"},
        {"{\\rtf1\\{\\\\\\}\\~x\\_y\\-z\\|\\:\\tab\\'41\t}", "{\\}\xA0x-yz\tA\t"},
        {R"({\rtf1\lquote\rquote\ldblquote\rdblquote\endash\emdash\bullet})",
         "\x91\x92\x93\x94\x96\x97\x95"},
        // Unicode with what stands in its place
        {R"({\rtf1\u8364\'80\u8364 E\u233 ?x\u-4064 ?\u-65303*})", "\x80\x80\xE9x?\xE9"},
        {R"({\rtf1\u1046 Z\uc2\u1046 Zh\uc0\u1046 x})", "???x"},
        {R"({\rtf1{\uc3\u233 ab}c\uc3\u233 d\par e})",
         "\xE9"
         "c\xE9\r\ne"},
        {R"({\rtf1{\uc2\u233\'80\emdash x}\u233\~y})", "\xE9x\xE9y"},
        {R"({\rtf1 a\u-10179?\u-8704?b\uc0\u-10179\u-8704 c})", "a?b?c"},
        // What is no text, and what is text all the same
        {"{\\rtf1 a{\\*\\x b{c}\\par}{\\x d}{\\*\\b e}{\\info{\\author A}}{\\header h\\par}"
         "{\\stylesheet{\\s0 N;}}{\\object{\\result r}}{\\footnote f}{\\pict\\bin4 }}{\\b}}",
         "ad|e{b}"},
        {R"({\rtf1 a\bin3 \'zb{\field{\*\fldinst L "b"}{\fldrslt{c}}}{\upr{d}{\*\ud{e}}}})",
         "abcd"},
        {R"({\rtf1\trowd a\cell b\cell\row *\c})", "a\tb\t\r\n*"},
        // Formats
        {R"({\rtf1 a{\b b{\i c\b0 d}e}f\b\b0 g{\i}{h}})", "a|b{b}|c{bi}|d{i}|e{b}|fgh"},
        {R"({\rtf1\ul a\ul0 b\ul\strike c\ulnone d\plain e})", "a{u}|b|c{us}|d{s}|e"},
        {"{\\rtf1{\\colortbl;\\red1\\green2\\blue3;\\blue999;\\red5}\\cf1 a\\cf2 b\\cf0 c\\cf1"
         " d\\cf3 e\\cf-1 f\\cf99999999999 g}",
         "a{#197121}|b{#16711680}|c|d{#197121}|efg"},
    };
    for (const auto& [rtf, expected] : rows) {
        const auto rich = readRtf(rtf, kWestern);
        ASSERT_TRUE(rich.has_value()) << rtf;
        EXPECT_EQ(shown(*rich), expected) << rtf;
    }
    EXPECT_EQ(readRtf(R"({\rtf1\ansicpg1251\'e9})", kCyrillic)->text, "\xE9");
    EXPECT_EQ(readRtf(R"({\rtf1\ansicpg1251\'93\'e9})", kWestern)->text, "\x93\xE9");
    EXPECT_EQ(readRtf(R"({\rtf1\ansicpg1252\'e9})", kCyrillic)->text, "?");
}

TEST(RtfTest, DamagedIsRefused) {
    for (const char* rtf : {"", R"({\rt})", R"({\rtf1{a})", R"({\rtf1}})", R"({\rtf1}x)",
                            R"({\rtf1}{\b})", R"({\rtf1 a\)", R"({\rtf1\')", R"({\rtf1\'4g})",
                            R"({\rtf1\'4)", R"({\rtf1\bin2 })", R"({\rtf1{\*\x\bin2147483647 }})"})
        EXPECT_FALSE(readRtf(rtf, kWestern).has_value()) << rtf;
}

}  // namespace
}  // namespace brindlex
