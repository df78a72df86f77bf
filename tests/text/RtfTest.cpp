#include "platform/text/Rtf.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "platform/text/RtfCharsets.h"
#include "text/Random.h"

namespace brindlex {

static void PrintTo(const CharFormat& format, std::ostream* out) {
    *out << "color " << std::hex << format.color << std::dec << (format.bold ? " b" : "")
         << (format.italic ? " i" : "") << (format.underline ? " ul" : "")
         << (format.strikeThrough ? " strike" : "") << (format.isProtected ? " protect" : "")
         << " offset " << format.charOffset << " size " << format.fontHalfPoints << " font "
         << testing::PrintToString(format.fontName);
}

static void PrintTo(const ParagraphFormat& format, std::ostream* out) {
    *out << "alignment " << static_cast<int>(format.alignment) << " indent " << format.indent
         << " hanging " << format.hangingIndent << " right " << format.rightIndent
         << (format.bullet ? " bullet" : "") << " tabs " << testing::PrintToString(format.tabs);
}

static void PrintTo(const RichTextFragment& fragment, std::ostream* out) {
    *out << testing::PrintToString(fragment.text);
    for (const auto& run : fragment.characters) {
        *out << "\n  " << run.length << " bytes: " << testing::PrintToString(run.format);
    }
    for (const auto& lines : fragment.paragraphs) {
        *out << "\n  " << lines.count << " lines: " << testing::PrintToString(lines.format);
    }
}

namespace {

using namespace std::string_literals;

CharacterTable tableOf(int codePage, char16_t (*unicode)(unsigned char)) {
    std::array<char16_t, 256> values{};
    std::array<std::uint8_t, 256> lower{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        values[byte] = unicode(static_cast<unsigned char>(byte));
        lower[byte] = static_cast<std::uint8_t>(byte);
    }
    return {values, lower, {}, codePage};
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

    RichTextFragment fragment() {
        const std::size_t pieces = below(40);
        for (std::size_t piece = 0; piece < pieces; ++piece) {
            below(4) == 0 ? addBreak() : addText();
        }
        addLine();
        return result_;
    }

  private:
    std::size_t below(std::size_t count) { return random_.below(count); }
    bool coin() { return random_.oneIn(2); }

    std::int32_t length() {
        using Limits = std::numeric_limits<std::int32_t>;
        switch (below(4)) {
            case 0:
                return 0;
            case 1:
                return static_cast<std::int32_t>(below(4000)) - 2000;
            case 2:
                return static_cast<std::int32_t>(below(std::size_t{1} << 32U));
            default:
                return coin() ? Limits::min() : Limits::max();
        }
    }

    std::string bytes(std::size_t atMost) {
        static const std::string kAwkward = "\\{}; \t-0'*a\x93\xFF\0"s;
        std::string text(below(atMost), ' ');
        for (char& c : text) {
            c = coin() ? kAwkward[below(kAwkward.size())] : static_cast<char>(below(256));
            if (c == '\r' || c == '\n') c = ' ';
        }
        return text;
    }

    CharFormat charFormat() {
        static const std::array<std::string, 4> kNames = {"", " Arial; 2\r\n", "\xCF\\{\t}\0-"s,
                                                          std::string(kMaxRtfFontName, 'x')};
        CharFormat format;
        format.color = coin() ? 0 : static_cast<ColorRef>(below(0x1000000));
        format.bold = coin();
        format.italic = coin();
        format.underline = coin();
        format.strikeThrough = coin();
        format.isProtected = coin();
        format.charOffset = length();
        format.fontName = kNames[below(kNames.size())];
        format.fontHalfPoints = coin() ? 0 : static_cast<std::int32_t>(below(3)) * 1627 + 21;
        return format;
    }

    ParagraphFormat paragraphFormat() {
        ParagraphFormat format;
        format.alignment = static_cast<Alignment>(below(3));
        format.indent = length();
        format.hangingIndent = length();
        format.rightIndent = length();
        format.bullet = coin();
        const std::size_t tabs = coin() ? 0 : below(kMaxRtfTabs + 1);
        for (std::size_t tab = 0; tab < tabs; ++tab) {
            format.tabs.push_back((tab == 0 ? -100 : format.tabs.back() + 1) +
                                  static_cast<std::int32_t>(below(700)));
        }
        return format;
    }

    void addText() { addBytes(bytes(30)); }

    /// Now and then the two halves of a break differ in format.
    void addBreak() {
        if (below(4) == 0) {
            addBytes("\r");
            addBytes("\n");
        } else {
            addBytes("\r\n");
        }
        addLine();
    }

    void addBytes(const std::string& text) {
        auto& runs = result_.characters;
        if (text.empty()) return;
        result_.text += text;
        CharFormat format = coin() && !runs.empty() ? runs.back().format : charFormat();
        if (runs.empty() || runs.back().format != format) runs.push_back({0, format});
        runs.back().length += text.size();
    }

    void addLine() {
        auto& lines = result_.paragraphs;
        ParagraphFormat format = coin() && !lines.empty() ? lines.back().format : paragraphFormat();
        if (lines.empty() || lines.back().format != format) lines.push_back({0, format});
        ++lines.back().count;
    }

    test::Random random_;
    RichTextFragment result_;
};

void expectSameAfterRoundTrip(const RichTextFragment& fragment, const CharacterTable& characters) {
    const RtfBaseFont base;
    const std::string rtf = writeRtf(fragment, characters, base);
    const auto read = readRtf(rtf, characters, base);
    ASSERT_TRUE(read.has_value()) << rtf;
    ASSERT_EQ(*read, fragment) << rtf;
}

TEST(RtfTest, RandomFragmentsComeBackEqual) {
    for (const std::uint64_t seed : test::seeds(2000)) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        expectSameAfterRoundTrip(FragmentMaker(seed).fragment(), seed % 2 ? western() : cyrillic());
        if (HasFatalFailure()) return;
    }
}

TEST(RtfTest, EveryByteComesBackEqual) {
    RichTextFragment fragment;
    for (int round = 0; round < 2; ++round) {  // each byte behind a control word and behind text
        for (int byte = 0; byte < 256; ++byte) {
            const char c = static_cast<char>(byte);
            if (c != '\r' && c != '\n') fragment.text += (round == 0 ? "x"s : "\t"s) + c;
        }
    }
    fragment.characters = {{fragment.text.size(), {}}};
    fragment.paragraphs = {{1, {}}};
    for (const CharacterTable* characters : {&western(), &cyrillic(), &CharacterTable::latin1()}) {
        expectSameAfterRoundTrip(fragment, *characters);
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

struct TextCase {
    const char* what;
    std::string rtf;
    std::string text;
};

class RtfTextTest : public testing::TestWithParam<TextCase> {};

TEST_P(RtfTextTest, GivesText) {
    const auto fragment = readRtf(GetParam().rtf, western(), {});
    ASSERT_TRUE(fragment.has_value());
    EXPECT_EQ(fragment->text, GetParam().text);
}

const TextCase kTexts[] = {
    {"NoText", "{\\rtf1}", ""},
    {"WordPad",
     "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 Calibri;}}\r\n"
     "{\\*\\generator Msftedit 5.41.21.2510;}\\viewkind4\\uc1\\pard\\sa200\\sl276\\slmult1\\lang9"
     "\\f0\\fs22 wait 100\\par\r\nset {\\b v\\b0 }1\\par\r\n}\r\n\0"s,
     "wait 100\r\nset v1\r\n"},
    {"SourceLineEndsDoNotCount", "{\\rtf1 a\r\nb\nc\\b\r\n d\0e}"s, "abc de"},
    {"OneBlankEndsAWord", "{\\rtf1\\b  a\\b0 b\\i0-1\\i-x\\b12c}", " ab-1-xc"},
    {"LineEnds", "{\\rtf1 a\\par b\\line c\\\nd\\\r\ne\\page f\\sect g}",
     "a\r\nb\r\nc\r\nd\r\ne\r\nf\r\ng"},
    {"EscapedLineEnds", "{\\rtf1 a\\'0d\\'0ab\\'0ac\\'0dd\\'0d\\'0d\\u10?e\\par\\'0af}",
     "a\r\nb\r\nc\r\nd\r\n\r\ne\r\n\r\nf"},
    {"Symbols", "{\\rtf1\\{\\\\\\}\\~x\\_y\\-z\\|\\:\\tab\\'41\t}", "{\\}\xA0x-yz\tA\t"},
    {"NamedCharacters",
     "{\\rtf1\\lquote a\\rquote\\ldblquote b\\rdblquote\\endash\\emdash\\bullet}",
     "\x91"
     "a\x92\x93"
     "b\x94\x96\x97\x95"},
    {"UnicodeWithFallback", "{\\rtf1\\u8364\\'80\\u8364 E\\u233 ?x}", "\x80\x80\xE9x"},
    {"UnicodeNegative", "{\\rtf1\\u-4064 ?\\u-65303*}", "?\xE9"},
    {"UnknownTakesItsFallback", "{\\rtf1\\u1046 Z\\uc2\\u1046 Zh\\uc0\\u1046 x}", "ZZh?x"},
    {"UnknownWithoutFallback", "{\\rtf1\\u1046{}\\u1046\\b x{\\u1046}\\u1046\\u1046}", "??x???"},
    {"FallbackEndsAtGroupsAndWords", "{\\rtf1{\\uc3\\u233 ab}c\\uc3\\u233 d\\par e\\u233{f}}",
     "\xE9"
     "c\xE9\r\ne\xE9"
     "f"},
    {"FallbackOfEscapesAndNames", "{\\rtf1\\uc2\\u233\\'80\\emdash x\\uc1\\u233\\~y}",
     "\xE9x\xE9y"},
    {"FallbackLengthBelongsToTheGroup", "{\\rtf1{\\uc0\\u233 a}\\u233 bc}",
     "\xE9"
     "a\xE9"
     "c"},
    {"SurrogatesAreOneCharacter", "{\\rtf1 a\\u-10179?\\u-8704?b\\uc0\\u-10179\\u-8704 c}",
     "a?b?c"},
    {"OtherCodePages",
     "{\\rtf1\\ansicpg1251\\deff0{\\fonttbl{\\f0 A;}{\\f1\\fcharset0 B;}{\\f2\\fcharset128 C;}}"
     "\\'93\\f1\\'e9\\f2\\'82\\'a0x}",
     "\x93\xE9??x"},
    {"HiddenText", "{\\rtf1 a\\v b\\par{c\\v0 d}e\\plain f}", "adf"},
    {"UnknownDestinations", "{\\rtf1 a{\\*\\nonsense b{c}\\par}d{\\nonsense e}{\\*\\b f}}", "adef"},
    {"NotText",
     "{\\rtf1{\\info{\\author A}}{\\stylesheet{\\s0 Normal;}}{\\header h\\par}"
     "{\\pict\\wmetafile8 0123}{\\object{\\result r}}{\\footnote f}{\\*\\listtable{x}}a}",
     "a"},
    {"UnbalancedInBinary", "{\\rtf1 a{\\pict\\bin4 }}{\\b}c\\bin3 \\'zd\\bin0 e}", "acde"},
    {"Field", "{\\rtf1 a{\\field{\\*\\fldinst HYPERLINK \"b\"}{\\fldrslt{\\ul c}}}d}", "acd"},
    {"BothForms", "{\\rtf1{\\upr{a}{\\*\\ud{b}}}}", "a"},
    {"Table", "{\\rtf1\\trowd a\\cell b\\cell\\row c}", "a\tb\t\r\nc"},
};
INSTANTIATE_TEST_SUITE_P(Rtf, RtfTextTest, testing::ValuesIn(kTexts),
                         [](const auto& test) { return test.param.what; });

struct FormatCase {
    const char* what;
    std::string rtf;
    std::vector<RichTextFragment::Characters> characters;
    std::vector<RichTextFragment::Paragraphs> paragraphs;
};

class RtfFormatTest : public testing::TestWithParam<FormatCase> {};

TEST_P(RtfFormatTest, GivesFormats) {
    const auto fragment = readRtf(GetParam().rtf, western(), {});
    ASSERT_TRUE(fragment.has_value());
    EXPECT_EQ(fragment->characters, GetParam().characters);
    EXPECT_EQ(fragment->paragraphs, GetParam().paragraphs);
}

const FormatCase kFormats[] = {
    {"GroupsTakeBack",
     "{\\rtf1 a{\\b b{\\i c\\b0 d}e}f}",
     {{1, {}},
      {1, {.bold = true}},
      {1, {.bold = true, .italic = true}},
      {1, {.italic = true}},
      {1, {.bold = true}},
      {1, {}}},
     {{1, {}}}},
    {"EqualNeighboursJoin", "{\\rtf1 a\\b\\b0 b{\\i}{c}\\par\\pard\\ql d}", {{6, {}}}, {{2, {}}}},
    {"Lines",
     "{\\rtf1\\ulwave a\\ul0 b\\uldb\\strike c\\ulnone d\\plain\\striked1 e\\protect f}",
     {{1, {.underline = true}},
      {1, {}},
      {1, {.underline = true, .strikeThrough = true}},
      {2, {.strikeThrough = true}},
      {1, {.strikeThrough = true, .isProtected = true}}},
     {{1, {}}}},
    {"Offsets",
     "{\\rtf1\\up a\\up3 b\\dn3 c\\super d\\nosupersub e\\sub f\\dn0 g\\up2147483647 h}",
     {{1, {.charOffset = 60}},
      {1, {.charOffset = 30}},
      {1, {.charOffset = -30}},
      {1, {.charOffset = 60}},
      {1, {}},
      {1, {.charOffset = -60}},
      {1, {}},
      {1, {.charOffset = 2147483647}}},
     {{1, {}}}},
    {"Colors",
     "{\\rtf1{\\colortbl;\\red1\\green2\\blue3;\\blue999;\\red5}\\cf1 a\\cf2 b\\cf0 c\\cf1"
     " d\\cf3 e\\cf-1 f\\cf99999999999 g}",
     {{1, {.color = 0x030201}},
      {1, {.color = 0xFF0000}},
      {1, {}},
      {1, {.color = 0x030201}},
      {3, {}}},
     {{1, {}}}},
    {"Fonts",
     "{\\rtf1\\deff7{\\fonttbl\\f0\\fswiss Arial;\\f1 Courier New;{\\f7{\\*\\panose 02}\\froman "
     "Times\\u233?{\\*\\falt Serif};}{\\f8 Nobody}}a\\f0\\fs24 b\\f1\\fs20 c\\f99 d\\fs0\\f8 e}",
     {{1, {.fontName = "Times\xE9"}},
      {1, {.fontName = "Arial", .fontHalfPoints = 24}},
      {1, {}},
      {1, {.fontName = "Times\xE9"}},
      {1, {.fontName = "Nobody"}}},
     {{1, {}}}},
    {"Paragraphs",
     "{\\rtf1\\pard\\qc\\ri40 a\\par{\\pard\\qr\\li720\\fi-360 b\\par}\\qj c\\par\\pard d}",
     {{10, {}}},
     {{1, {.alignment = Alignment::Center, .rightIndent = 40}},
      {1, {.alignment = Alignment::Right, .indent = 360, .hangingIndent = 360}},
      {1, {.rightIndent = 40}},
      {1, {}}}},
    {"TabsRise",
     "{\\rtf1\\pard\\tx500\\tqr\\tx100{\\tx300\\par}\\tx500\\par}",
     {{4, {}}},
     {{1, {.tabs = {100, 300, 500}}}, {2, {.tabs = {100, 500}}}}},
    {"Bullets",
     "{\\rtf1\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}"
     "\\fi-360\\li360 a\\par\r\n{\\pntext\\f1\\'B7\\tab}b\\par\\pard{\\pntext 1.}"
     "{\\*\\pn\\pnlvlbody\\pndec}c}",
     {{7, {}}},
     {{2, {.hangingIndent = 360, .bullet = true}}, {1, {}}}},
};
INSTANTIATE_TEST_SUITE_P(Rtf, RtfFormatTest, testing::ValuesIn(kFormats),
                         [](const auto& test) { return test.param.what; });

// --- Damaged, hostile ----------------------------------------------------------------------------

TEST(RtfTest, DamagedIsRefused) {
    for (const char* rtf : {
             "",
             "plain",
             " {\\rtf1}",
             "{\\rt}",
             "{\\rtf1",
             "{\\rtf1{a}",
             "{\\rtf1}}",
             "{\\rtf1}{\\b}",
             "{\\rtf1}x",
             "{\\rtf1 a\\",
             "{\\rtf1\\'4}",
             "{\\rtf1\\'4g}",
             "{\\rtf1\\'",
             "{\\rtf1\\bin2 }",
             "{\\rtf1{\\*\\x\\bin2147483647 }}",
         }) {
        EXPECT_FALSE(readRtf(rtf, western(), {}).has_value()) << rtf;
    }
}

std::string repeated(const std::string& piece, std::size_t count) {
    std::string result;
    result.reserve(piece.size() * count);
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
