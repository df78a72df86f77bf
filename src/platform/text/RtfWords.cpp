#include "platform/text/RtfWords.h"

#include <algorithm>
#include <array>
#include <limits>

#include "platform/text/RtfReader.h"

namespace brindlex {
namespace {

constexpr std::uint8_t bit(RtfDestination destination) {
    return static_cast<std::uint8_t>(destination);
}
constexpr std::uint8_t kText = bit(RtfDestination::Text);
constexpr std::uint8_t kFonts = bit(RtfDestination::FontTable);
constexpr std::uint8_t kColors = bit(RtfDestination::ColorTable);
constexpr std::uint8_t kBullet = bit(RtfDestination::BulletStyle);

constexpr std::int32_t kTwipsInHalfPoint = 10;
constexpr std::int32_t kUsualOffset = 6;  // half points of \up, \dn, \super and \sub

void setOffset(RtfReader& reader, std::int64_t halfPoints) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t twips = halfPoints * kTwipsInHalfPoint;
    reader.state().characters.charOffset =
        static_cast<std::int32_t>(std::clamp<std::int64_t>(twips, Limits::min(), Limits::max()));
}

template <bool RtfCharacters::*kFlag, bool kOn = true>
void toggle(RtfReader& reader, RtfNumber number) {
    reader.state().characters.*kFlag = kOn && number.value_or(1) != 0;
}

template <std::int32_t RtfParagraph::*kLength>
void setLength(RtfReader& reader, RtfNumber number) {
    reader.state().paragraph.*kLength = number.value_or(0);
}

template <Alignment kAlignment>
void align(RtfReader& reader, RtfNumber) {
    reader.state().paragraph.alignment = kAlignment;
}

template <RtfDestination kDestination>
void turnTo(RtfReader& reader, RtfNumber) {
    reader.state().destination = kDestination;
}
constexpr auto skip = turnTo<RtfDestination::Nowhere>;

template <unsigned kShift>
void setColorPart(RtfReader& reader, RtfNumber number) {
    reader.colors().setPart(kShift, number.value_or(0));
}

template <int kSign>
void offset(RtfReader& reader, RtfNumber number) {
    setOffset(reader, std::int64_t{number.value_or(kUsualOffset)} * kSign);
}

template <std::int32_t kHalfPoints>
void fixedOffset(RtfReader& reader, RtfNumber) {
    setOffset(reader, kHalfPoints);
}

template <char kByte>
void put(RtfReader& reader, RtfNumber) {
    reader.put(kByte);
}

void lineBreak(RtfReader& reader, RtfNumber) {
    reader.lineBreak();
}
void formatLineFeed(RtfReader& reader, RtfNumber) {
    reader.formatLineFeed();
}
void resetCharacters(RtfReader& reader, RtfNumber) {
    reader.state().characters = {};
}
void resetParagraph(RtfReader& reader, RtfNumber) {
    reader.state().paragraph = {};
}
void setBullet(RtfReader& reader, RtfNumber) {
    reader.state().paragraph.bullet = true;
}
void beginColorTable(RtfReader& reader, RtfNumber) {
    reader.beginColorTable();
}
void addTab(RtfReader& reader, RtfNumber number) {
    reader.addTab(number.value_or(0));
}
void unicode(RtfReader& reader, RtfNumber number) {
    if (number) reader.unicode(*number);
}
void setCodePage(RtfReader& reader, RtfNumber number) {
    reader.setCodePage(number.value_or(0));
}
void setDefaultFont(RtfReader& reader, RtfNumber number) {
    reader.fonts().setDefault(number.value_or(0));
}
void setFont(RtfReader& reader, RtfNumber number) {
    reader.font(number.value_or(0));
}
void setCharset(RtfReader& reader, RtfNumber number) {
    reader.fonts().setCharset(number.value_or(0));
}
void setColor(RtfReader& reader, RtfNumber number) {
    reader.state().characters.color = reader.colors().color(number.value_or(0));
}
void setSize(RtfReader& reader, RtfNumber number) {
    reader.state().characters.halfPoints = number.value_or(0);
}
void setExactOffset(RtfReader& reader, RtfNumber number) {
    reader.state().characters.charOffset = number.value_or(0);
}
void setFallbackLength(RtfReader& reader, RtfNumber number) {
    reader.state().fallbackLength = std::max(number.value_or(1), 0);
}

constexpr auto underline = toggle<&RtfCharacters::underline>;

constexpr std::array kWords = std::to_array<RtfWord>({
    {"annotation", kText, skip},
    {"ansicpg", kText, setCodePage},
    {"atnauthor", kText, skip},
    {"atnid", kText, skip},
    {"b", kText, toggle<&RtfCharacters::bold>},
    {"blue", kColors, setColorPart<16>},
    {"brindlexlf", kText, formatLineFeed},
    {"brindlextwips", kText, setExactOffset},
    {"cell", kText, put<'\t'>},
    {"cf", kText, setColor},
    {"colortbl", kText, beginColorTable},
    {"column", kText, lineBreak},
    {"deff", kText, setDefaultFont},
    {"dn", kText, offset<-1>},
    {"f", kText | kFonts, setFont},
    {"fcharset", kFonts, setCharset},
    {"fi", kText, setLength<&RtfParagraph::firstIndent>},
    {"fldinst", kText, skip},
    {"fonttbl", kText, turnTo<RtfDestination::FontTable>},
    {"footer", kText, skip},
    {"footerf", kText, skip},
    {"footerl", kText, skip},
    {"footerr", kText, skip},
    {"footnote", kText, skip},
    {"fs", kText, setSize},
    {"ftncn", kText, skip},
    {"ftnsep", kText, skip},
    {"ftnsepc", kText, skip},
    {"green", kColors, setColorPart<8>},
    {"header", kText, skip},
    {"headerf", kText, skip},
    {"headerl", kText, skip},
    {"headerr", kText, skip},
    {"i", kText, toggle<&RtfCharacters::italic>},
    {"info", kText, skip},
    {"li", kText, setLength<&RtfParagraph::leftIndent>},
    {"line", kText, lineBreak},
    {"listoverridetable", kText, skip},
    {"listtable", kText, skip},
    {"listtext", kText, skip},
    {"nestcell", kText, put<'\t'>},
    {"nestrow", kText, lineBreak},
    {"nonesttables", kText, skip},
    {"nonshppict", kText, skip},
    {"nosupersub", kText, fixedOffset<0>},
    {"object", kText, skip},
    {"page", kText, lineBreak},
    {"par", kText, lineBreak},
    {"pard", kText, resetParagraph},
    {"pict", kText, skip},
    {"plain", kText, resetCharacters},
    {"pn", kText, turnTo<RtfDestination::BulletStyle>},
    {"pnlvlblt", kBullet, setBullet},
    {"pntext", kText, skip},
    {"protect", kText, toggle<&RtfCharacters::isProtected>},
    {"qc", kText, align<Alignment::Center>},
    {"qj", kText, align<Alignment::Left>},
    {"ql", kText, align<Alignment::Left>},
    {"qr", kText, align<Alignment::Right>},
    {"red", kColors, setColorPart<0>},
    {"ri", kText, setLength<&RtfParagraph::rightIndent>},
    {"row", kText, lineBreak},
    {"rxe", kText, skip},
    {"sect", kText, lineBreak},
    {"shprslt", kText, skip},
    {"strike", kText, toggle<&RtfCharacters::strikeThrough>},
    {"striked", kText, toggle<&RtfCharacters::strikeThrough>},
    {"stylesheet", kText, skip},
    {"sub", kText, fixedOffset<-kUsualOffset>},
    {"super", kText, fixedOffset<kUsualOffset>},
    {"tab", kText | kFonts, put<'\t'>},
    {"tc", kText, skip},
    {"tcn", kText, skip},
    {"tx", kText, addTab},
    {"txe", kText, skip},
    {"u", kText | kFonts, unicode},
    {"uc", kText | kFonts, setFallbackLength},
    {"ul", kText, underline},
    {"uld", kText, underline},
    {"uldash", kText, underline},
    {"uldashd", kText, underline},
    {"uldashdd", kText, underline},
    {"uldb", kText, underline},
    {"ulhwave", kText, underline},
    {"ulldash", kText, underline},
    {"ulnone", kText, toggle<&RtfCharacters::underline, false>},
    {"ulth", kText, underline},
    {"ulthd", kText, underline},
    {"ulthdash", kText, underline},
    {"ulthdashd", kText, underline},
    {"ulthdashdd", kText, underline},
    {"ulthldash", kText, underline},
    {"ululdbwave", kText, underline},
    {"ulw", kText, underline},
    {"ulwave", kText, underline},
    {"up", kText, offset<1>},
    {"v", kText, toggle<&RtfCharacters::hidden>},
    {"xe", kText, skip},
});

constexpr std::array kCharacters = std::to_array<RtfCharacter>({
    {"_", 0x2011, '-'},
    {"bullet", 0x2022, '*'},
    {"emdash", 0x2014, '-'},
    {"emspace", 0x2003, ' '},
    {"endash", 0x2013, '-'},
    {"enspace", 0x2002, ' '},
    {"ldblquote", 0x201C, '"'},
    {"lquote", 0x2018, '\''},
    {"qmspace", 0x2005, ' '},
    {"rdblquote", 0x201D, '"'},
    {"rquote", 0x2019, '\''},
    {"~", 0x00A0, ' '},
});

constexpr auto byName = [](const auto& a, const auto& b) { return a.name < b.name; };
static_assert(std::is_sorted(kWords.begin(), kWords.end(), byName));
static_assert(std::is_sorted(kCharacters.begin(), kCharacters.end(), byName));

template <typename Table>
typename Table::const_pointer find(const Table& table, std::string_view name) {
    const auto found =
        std::lower_bound(table.begin(), table.end(), name,
                         [](const auto& entry, std::string_view key) { return entry.name < key; });
    return found != table.end() && found->name == name ? &*found : nullptr;
}

}  // namespace

const RtfWord* findRtfWord(std::string_view name) {
    return find(kWords, name);
}
const RtfCharacter* findRtfCharacter(std::string_view name) {
    return find(kCharacters, name);
}

}  // namespace brindlex
