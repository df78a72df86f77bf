#include "platform/text/Rtf.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "platform/text/RtfCharsets.h"
#include "text/Random.h"

namespace brindlex {
namespace {

using namespace std::string_literals;

CharacterTable tableOf(int codePage, char16_t (*unicode)(unsigned char)) {
    std::array<char16_t, 256> values{};
    for (unsigned byte = 0; byte < 256; ++byte)
        values[byte] = unicode(static_cast<unsigned char>(byte));
    return {values, {}, {}, codePage};
}

const CharacterTable& western() {
    static const CharacterTable table = tableOf(1252, windows1252);
    return table;
}

/// The capitals and small letters of Cyrillic where code page 1251 has them.
const CharacterTable& cyrillic() {
    static const CharacterTable table = tableOf(1251, [](unsigned char byte) {
        return static_cast<char16_t>(byte < 0xC0 ? byte : 0x0410 + byte - 0xC0);
    });
    return table;
}

// --- Round trip ----------------------------------------------------------------------------------

class FragmentMaker {
  public:
    explicit FragmentMaker(std::uint64_t seed) : random_(seed) {}

    /// Formats change anywhere, also between the two halves of a break.
    RichTextFragment fragment() {
        using Fragment = RichTextFragment;
        const std::size_t breaks = random_.below(12);
        std::string text = awkwardText();
        for (std::size_t i = 0; i < breaks; ++i) text += "\r\n" + awkwardText();
        return {text, stretches<Fragment::Characters>(text.size(), &FragmentMaker::charFormat),
                stretches<Fragment::Paragraphs>(breaks + 1, &FragmentMaker::paragraphFormat)};
    }

  private:
    bool coin() { return random_.oneIn(2); }
    std::int32_t below(std::size_t count) {
        return static_cast<std::int32_t>(random_.below(count));
    }

    std::int32_t length() {
        using Limits = std::numeric_limits<std::int32_t>;
        const std::int32_t lengths[] = {0, below(4000) - 2000, Limits::min(), Limits::max()};
        return lengths[random_.below(std::size(lengths))];
    }

    std::string awkwardText() {
        static const std::string kAwkward = "\\{}; \t-0'*a\x01\x0C\x93\xFF\0"s;
        std::string text = random_.text(random_.below(30), kAwkward);
        for (char& c : text) {
            if (coin()) c = static_cast<char>(random_.between(14, 255));
        }
        return text;
    }

    CharFormat charFormat() {
        static const std::string kNames[] = {"", " Arial; 2\r\n", "\xCF\\{\t}\0-"s,
                                             std::string(kMaxRtfFontName, 'x')};
        return {.color = coin() ? 0 : static_cast<ColorRef>(below(0x1000000)),
                .bold = coin(),
                .italic = coin(),
                .underline = coin(),
                .strikeThrough = coin(),
                .isProtected = coin(),
                .charOffset = length(),
                .fontName = kNames[random_.below(std::size(kNames))],
                .fontHalfPoints = coin() ? 0 : below(3) * 1627 + 21};
    }

    ParagraphFormat paragraphFormat() {
        ParagraphFormat format{.alignment = static_cast<Alignment>(below(3)),
                               .indent = length(),
                               .hangingIndent = length(),
                               .rightIndent = length(),
                               .bullet = coin()};
        std::int32_t tab = -100;
        for (std::size_t tabs = coin() ? 0 : random_.below(kMaxRtfTabs + 1); tabs > 0; --tabs) {
            format.tabs.push_back(tab += 1 + below(700));
        }
        return format;
    }

    /// Stretches of `total` in all, each of another format than its neighbour.
    template <typename Stretch, typename Format>
    std::vector<Stretch> stretches(std::size_t total, Format (FragmentMaker::*makeFormat)()) {
        std::vector<Stretch> result;
        while (total > 0) {
            const std::size_t length = random_.between(1, std::min<std::size_t>(total, 20));
            const Format format = (this->*makeFormat)();
            if (!result.empty() && result.back().format == format) continue;
            result.push_back({length, format});
            total -= length;
        }
        return result;
    }

    test::Random random_;
};

void expectSameAfterRoundTrip(const RichTextFragment& fragment, const CharacterTable& characters) {
    const std::string rtf = writeRtf(fragment, characters, {});
    const auto read = readRtf(rtf, characters, {});
    ASSERT_TRUE(read.has_value()) << rtf;
    ASSERT_TRUE(*read == fragment) << rtf << "\nread as\n" << writeRtf(*read, characters, {});
}

TEST(RtfTest, RandomFragmentsComeBackEqual) {
    for (const std::uint64_t seed : test::seeds(2000)) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const CharacterTable* tables[] = {&western(), &cyrillic(), &CharacterTable::latin1()};
        expectSameAfterRoundTrip(FragmentMaker(seed).fragment(), *tables[seed % 3]);
        if (HasFatalFailure()) return;
    }
}

TEST(RtfTest, WhatIsWrittenIsPlainToOtherPrograms) {
    RichTextFragment fragment;
    fragment.text = "\xE9 1\r\n{x}";
    fragment.characters = {{1, {}}, {4, {.color = 0x0000C0, .bold = true}}, {3, {}}};
    fragment.paragraphs = {
        {1, {.indent = 360, .hangingIndent = 240, .tabs = {720}}},
        {1, {.alignment = Alignment::Center, .bullet = true}},
    };
    const RtfBaseFont base{"Courier; New", 19};
    EXPECT_EQ(writeRtf(fragment, cyrillic(), base),
              "{\\rtf1\\ansi\\ansicpg1251\\uc1\\deff0{\\fonttbl{\\f0\\fnil\\fcharset204 Courier"
              "\\'3b New;}}\r\n{\\colortbl ;\\red192\\green0\\blue0;}\r\n"
              "\\plain\\f0\\fs19\\pard\\fi-240\\li600\\tx720\\'e9\\b\\cf1  1\\par\r\n"
              "\\pard{\\pntext\\f0\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf0\\pnindent0{\\pntxtb\\'b7}}"
              "\\qc\\b0\\cf0\\{x\\}}");
}

// --- What other programs write -------------------------------------------------------------------

/// Runs of characters as text{format}, then the formats of the lines, if any has one.
std::string shown(const RichTextFragment& fragment) {
    std::ostringstream out;
    const auto number = [&](const char* name, std::int32_t value) {
        if (value != 0) out << name << value;
    };
    std::size_t at = 0;
    for (const auto& [length, format] : fragment.characters) {
        out << (at > 0 ? "|" : "") << fragment.text.substr(at, length);
        at += length;
        if (format == CharFormat{}) continue;
        out << '{' << (format.bold ? "b" : "") << (format.italic ? "i" : "")
            << (format.underline ? "u" : "") << (format.strikeThrough ? "s" : "")
            << (format.isProtected ? "p" : "") << format.fontName;
        number("/", format.fontHalfPoints);
        number("^", format.charOffset);
        number("#", static_cast<std::int32_t>(format.color));
        out << '}';
    }
    if (fragment.paragraphs.size() == 1 && fragment.paragraphs[0].format == ParagraphFormat{}) {
        return out.str();
    }
    for (const auto& [count, format] : fragment.paragraphs) {
        out << " <" << count << (format.bullet ? "*" : "");
        number(" alignment", static_cast<std::int32_t>(format.alignment));
        number(" indent", format.indent);
        number(" hanging", format.hangingIndent);
        number(" right", format.rightIndent);
        for (const std::int32_t tab : format.tabs) number(" tab", tab);
        out << '>';
    }
    return out.str();
}

TEST(RtfTest, ForeignSources) {
    const struct {
        std::string rtf;
        std::string expected;
    } rows[] = {
        {R"({\rtf1})", ""},
        {"{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Calibri;}}\r\n"
         "{\\*\\generator X;}\\viewkind4\\uc1\\pard\\sa200\\sl276\\slmult1\\lang9\\f0\\fs22 wait"
         " 1\\par\r\nset {\\b v\\b0 }1\\par\r\n}\r\n\0"s,
         "wait 1\r\nset {Calibri/22}|v{bCalibri/22}|1\r\n{Calibri/22}"},
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
        {R"({\rtf1\u1046 Z\uc2\u1046 Zh\uc0\u1046 x})", "ZZh?x"},
        {R"({\rtf1\u1046{}\u1046\v0 x{\u1046}\u1046\u1046})", "??x???"},
        {R"({\rtf1{\uc3\u233 ab}c\uc3\u233 d\par e})",
         "\xE9"
         "c\xE9\r\ne"},
        {R"({\rtf1{\uc2\u233\'80\emdash x}\u233\~y})", "\xE9x\xE9y"},
        {R"({\rtf1 a\u-10179?\u-8704?b\uc0\u-10179\u-8704 c})", "a?b?c"},
        // What is no text, and what is text all the same
        {R"({\rtf1 a\v b\par{c\v0 d}e\plain f})", "adf"},
        {"{\\rtf1 a{\\*\\x b{c}\\par}{\\x d}{\\*\\b e}{\\info{\\author A}}{\\header h\\par}"
         "{\\stylesheet{\\s0 N;}}{\\object{\\result r}}{\\footnote f}{\\pict\\bin4 }}{\\b}}",
         "ad|e{b}"},
        {R"({\rtf1 a\bin3 \'zb{\field{\*\fldinst L "b"}{\fldrslt{c}}}{\upr{d}{\*\ud{e}}}})",
         "abcd"},
        {R"({\rtf1\trowd a\cell b\cell\row c})", "a\tb\t\r\nc"},
        // Formats of characters
        {R"({\rtf1 a{\b b{\i c\b0 d}e}f\b\b0 g{\i}{h}})", "a|b{b}|c{bi}|d{i}|e{b}|fgh"},
        {R"({\rtf1\ulwave a\ul0 b\uldb\strike c\ulnone d\plain\striked1 e\protect f})",
         "a{u}|b|c{us}|de{s}|f{sp}"},
        {R"({\rtf1\up a\up3 b\dn3 c\super d\nosupersub e\sub f\dn0 g\up2147483647 h})",
         "a{^60}|b{^30}|c{^-30}|d{^60}|e|f{^-60}|g|h{^2147483647}"},
        {"{\\rtf1{\\colortbl;\\red1\\green2\\blue3;\\blue999;\\red5}\\cf1 a\\cf2 b\\cf0 c\\cf1"
         " d\\cf3 e\\cf-1 f\\cf99999999999 g}",
         "a{#197121}|b{#16711680}|c|d{#197121}|efg"},
        {"{\\rtf1\\deff7{\\fonttbl\\f0\\fswiss Arial;\\f1 Courier New;{\\f7{\\*\\panose "
         "02}\\froman "
         "Times\\u233?{\\*\\falt Serif};}{\\f8 No}}a\\f0\\fs24 b\\f1\\fs20 c\\f99 d\\fs0\\f8 e}",
         "a{Times\xE9}|b{Arial/24}|c|d{Times\xE9}|e{No}"},
        {"{\\rtf1\\ansicpg1251\\deff0{\\fonttbl{\\f0 A;}{\\f1\\fcharset0 B;}{\\f2\\fcharset128 C;}}"
         "\\'93\\f1\\'e9\\f2\\'82\\'a0x}",
         "\x93{A}|\xE9{B}|??x{C}"},
        // Formats of paragraphs
        {R"({\rtf1\pard\qc\ri40 a\par{\pard\qr\li720\fi-360 b\par}\qj c\par\pard\ql d})",
         "a\r\nb\r\nc\r\nd <1 alignment2 right40> <1 alignment1 indent360 hanging360> <1 right40> "
         "<1>"},
        {R"({\rtf1\pard\tx500\tqr\tx100{\tx300\par}\tx500\par})",
         "\r\n\r\n <1 tab100 tab300 tab500> <2 tab100 tab500>"},
        {"{\\rtf1\\pard{\\pntext\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}"
         "\\fi-360\\li360 a\\par\r\n{\\pntext\\'B7\\tab}b\\par\\pard{\\pntext 1.}"
         "{\\*\\pn\\pnlvlbody\\pndec}c}",
         "a\r\nb\r\nc <2* hanging360> <1>"},
    };
    for (const auto& row : rows) {
        const auto fragment = readRtf(row.rtf, western(), {});
        ASSERT_TRUE(fragment.has_value()) << row.rtf;
        EXPECT_EQ(shown(*fragment), row.expected) << row.rtf;
    }
}

// --- Damaged, hostile ----------------------------------------------------------------------------

TEST(RtfTest, DamagedIsRefused) {
    for (const char* rtf : {"", R"({\rt})", R"({\rtf1{a})", R"({\rtf1}})", R"({\rtf1}x)",
                            R"({\rtf1}{\b})", R"({\rtf1 a\)", R"({\rtf1\')", R"({\rtf1\'4g})",
                            R"({\rtf1\bin2 })", R"({\rtf1{\*\x\bin2147483647 }})"}) {
        EXPECT_FALSE(readRtf(rtf, western(), {}).has_value()) << rtf;
    }
}

std::string repeated(const std::string& piece, std::size_t count) {
    std::string result;
    for (std::size_t round = 0; round < count; ++round) result += piece;
    return result;
}

/// Each of these takes seconds or gigabytes when a step costs more than its own size.
TEST(RtfTest, HostileSourcesCostNoMoreThanTheirSize) {
    constexpr std::size_t kMany = 300'000;
    const std::string longName(kMany, 'n');
    const auto start = std::chrono::steady_clock::now();
    for (const std::string& body : {
             repeated("{\\b", kMany) + "a" + repeated("}", kMany),
             repeated("{\\tx1", kMany) + repeated("}", kMany),
             repeated("\\tx1", kMany) + repeated("\\par", kMany),
             repeated("\\pard\\tx1\\par\\par", kMany),
             "{\\fonttbl{\\f1 " + longName + ";}{\\f2 x;}}" + repeated("\\f1 a\\f2 b", kMany / 10),
             repeated("\\u1046", kMany),
             repeated("\\bin1 ", kMany) + "x",
         }) {
        EXPECT_TRUE(readRtf("{\\rtf1" + body + "}", western(), {}).has_value());
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

}  // namespace
}  // namespace brindlex
