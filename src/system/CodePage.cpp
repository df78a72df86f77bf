#include "system/CodePage.h"

#include <QLocale>
#include <QStringDecoder>
#include <algorithm>
#include <optional>

#include "text/Windows1252.h"

#ifdef Q_OS_WIN
#include <qt_windows.h>
#endif

namespace brindlex {
namespace {

using UnicodeTable = std::array<char16_t, 256>;

UnicodeTable westernTable() {
    UnicodeTable table{};
    for (std::size_t byte = 0; byte < table.size(); ++byte)
        table[byte] = windows1252(static_cast<unsigned char>(byte));
    return table;
}

char16_t standIn(std::size_t byte) {
    return static_cast<char16_t>(byte < 0xA0 ? byte : 0xF700 + byte);
}

bool allDiffer(UnicodeTable table) {
    std::sort(table.begin(), table.end());
    return std::adjacent_find(table.begin(), table.end()) == table.end();
}

/// The upper half of every 8-bit code page defines more; that of a multi-byte one defines less.
constexpr int kLeastDefined = 80;

/// Nothing when the decoder is not that of an 8-bit code page.
std::optional<UnicodeTable> decoderTable(QStringDecoder decoder) {
    if (!decoder.isValid()) return std::nullopt;
    QByteArray upperHalf;
    for (int byte = 0x80; byte <= 0xFF; ++byte) upperHalf += static_cast<char>(byte);
    const QString text = decoder.decode(upperHalf);
    const qsizetype undefined = text.count(QChar(QChar::ReplacementCharacter));
    if (text.size() != upperHalf.size() || text.size() - undefined < kLeastDefined)
        return std::nullopt;

    UnicodeTable table = westernTable();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<std::size_t>(0x80 + i);
        const bool defined = text[i] != QChar::ReplacementCharacter;
        table[byte] = defined ? text[i].unicode() : standIn(byte);
    }
    return allDiffer(table) ? std::optional(table) : std::nullopt;
}

CharacterTable charactersOf(const UnicodeTable& unicode, int number) {
    std::array<std::uint8_t, 256> lower{};
    std::array<bool, 256> word{};
    for (std::size_t byte = 0; byte < unicode.size(); ++byte) {
        const QChar character(unicode[byte]);
        const auto partner =
            std::find(unicode.begin(), unicode.end(), character.toLower().unicode());
        const auto found = partner == unicode.end() ? byte : std::size_t(partner - unicode.begin());
        lower[byte] = static_cast<std::uint8_t>(found);
        word[byte] = character.isLetter() || character.isDigit() || character.isMark();
    }
    return {unicode, lower, word, number};
}

struct ScriptPage {
    QLocale::Script script;
    int number;
};
constexpr ScriptPage kScriptPages[] = {
    {QLocale::ArabicScript, 1256}, {QLocale::CyrillicScript, 1251}, {QLocale::GreekScript, 1253},
    {QLocale::HebrewScript, 1255}, {QLocale::ThaiScript, 874},
};

struct LanguagePage {
    QLocale::Language language;
    int number;
};
/// Languages in Latin letters that 1252 does not serve.
constexpr LanguagePage kLanguagePages[] = {
    {QLocale::Albanian, 1250},     {QLocale::Bosnian, 1250},     {QLocale::Croatian, 1250},
    {QLocale::Czech, 1250},        {QLocale::Hungarian, 1250},   {QLocale::LowerSorbian, 1250},
    {QLocale::Polish, 1250},       {QLocale::Romanian, 1250},    {QLocale::Serbian, 1250},
    {QLocale::Slovak, 1250},       {QLocale::Slovenian, 1250},   {QLocale::Turkmen, 1250},
    {QLocale::UpperSorbian, 1250}, {QLocale::Azerbaijani, 1254}, {QLocale::Turkish, 1254},
    {QLocale::Uzbek, 1254},        {QLocale::Estonian, 1257},    {QLocale::Latvian, 1257},
    {QLocale::Lithuanian, 1257},   {QLocale::Vietnamese, 1258},
};

int numberForLanguage(const QLocale& locale, bool latin) {
    if (!latin) {
        for (const ScriptPage& page : kScriptPages)
            if (page.script == locale.script()) return page.number;
    }
    for (const LanguagePage& page : kLanguagePages)
        if (page.language == locale.language()) return page.number;
    return kWindows1252;
}

struct CharacterSetName {
    const char* prefix;  ///< of its name, in upper case and without "-" and "_"
    int base;            ///< the Windows code page number, less the digits behind the prefix
};
constexpr CharacterSetName kCharacterSetNames[] = {
    {"ISO8859", 28590}, {"CP125", 1250},  {"WINDOWS125", 1250}, {"CP874", 874},
    {"TIS620", 874},    {"KOI8R", 20866}, {"KOI8U", 21866},
};

struct NamedPage {
    QByteArray name;
    int number;
};

/// The 8-bit character set that a locale names behind its dot, if any.
std::optional<NamedPage> characterSetOf(const QString& localeName) {
    const QByteArray name =
        localeName.section('@', 0, 0).section('.', 1).toLatin1().toUpper().replace('_', '-');
    const QByteArray plain = QByteArray(name).replace("-", "");
    for (const CharacterSetName& set : kCharacterSetNames) {
        if (!plain.startsWith(set.prefix)) continue;
        const int digits = plain.sliced(qstrlen(set.prefix)).toInt();
        return NamedPage{plain.startsWith("CP125") ? "WINDOWS-" + plain.sliced(2) : name,
                         set.base + digits};
    }
    return std::nullopt;
}

QString environmentLocale() {
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        QString name = qEnvironmentVariable(variable);
        if (!name.isEmpty()) return name;
    }
    return QLocale::system().name();
}

struct Replacement {
    char16_t character;
    const char* text;
};
/// Nearest letters that no decomposition gives, by character.
constexpr Replacement kReplacements[] = {
    {0x00AB, "\""}, {0x00AD, "-"},  {0x00BB, "\""}, {0x00C6, "AE"}, {0x00D0, "D"}, {0x00D7, "x"},
    {0x00D8, "O"},  {0x00DE, "TH"}, {0x00DF, "ss"}, {0x00E6, "ae"}, {0x00F0, "d"}, {0x00F8, "o"},
    {0x00FE, "th"}, {0x0110, "D"},  {0x0111, "d"},  {0x0126, "H"},  {0x0127, "h"}, {0x0131, "i"},
    {0x0141, "L"},  {0x0142, "l"},  {0x0152, "OE"}, {0x0153, "oe"}, {0x0166, "T"}, {0x0167, "t"},
    {0x0192, "f"},  {0x1E9E, "SS"}, {0x2010, "-"},  {0x2011, "-"},  {0x2012, "-"}, {0x2013, "-"},
    {0x2014, "-"},  {0x2015, "-"},  {0x2018, "'"},  {0x2019, "'"},  {0x201A, "'"}, {0x201B, "'"},
    {0x201C, "\""}, {0x201D, "\""}, {0x201E, "\""}, {0x201F, "\""}, {0x2022, "*"}, {0x2028, "\n"},
    {0x2029, "\n"}, {0x2032, "'"},  {0x2033, "\""}, {0x2039, "<"},  {0x203A, ">"}, {0x2044, "/"},
    {0x2212, "-"},  {0x2215, "/"},
};

const char* replacementOf(char32_t character) {
    const auto entry = std::lower_bound(
        std::begin(kReplacements), std::end(kReplacements), character,
        [](const Replacement& replacement, char32_t c) { return replacement.character < c; });
    const bool found = entry != std::end(kReplacements) && entry->character == character;
    return found ? entry->text : nullptr;
}

/// Zero-width space, non-joiner, joiner, word joiner and byte order mark.
constexpr char16_t kZeroWidth[] = {0x200B, 0x200C, 0x200D, 0x2060, 0xFEFF};

bool isZeroWidth(char16_t unit) {
    return std::find(std::begin(kZeroWidth), std::end(kZeroWidth), unit) != std::end(kZeroWidth);
}

bool isMark(QStringView text, qsizetype at) {
    return at < text.size() && text[at].unicode() >= 0x300 && text[at].isMark();
}

/// How many UTF-16 units belong to the character at `at`, with the marks behind it; at least 1.
qsizetype clusterLength(QStringView text, qsizetype at) {
    const bool pair =
        text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
    qsizetype end = at + (pair ? 2 : 1);
    while (isMark(text, end)) ++end;
    return end - at;
}

}  // namespace

const CodePage& CodePage::system() {
    static const CodePage page = [] {
#ifdef Q_OS_WIN
        if (const auto table = decoderTable(QStringDecoder(QStringDecoder::System)))
            return CodePage(charactersOf(*table, static_cast<int>(GetACP())));
#endif
        return ofLocale(environmentLocale());
    }();
    return page;
}

CodePage CodePage::ofLocale(const QString& name) {
    if (const auto named = characterSetOf(name)) {
        if (const auto table = decoderTable(QStringDecoder(named->name.constData())))
            return CodePage(charactersOf(*table, named->number));
    }
    return windows(numberForLanguage(QLocale(name), name.endsWith(QLatin1String("@latin"))));
}

CodePage CodePage::windows(int number) {
    if (number == 874 || (number >= 1250 && number <= 1258)) {
        const QByteArray name = "windows-" + QByteArray::number(number);
        if (const auto table = decoderTable(QStringDecoder(name.constData())))
            return CodePage(charactersOf(*table, number));
    }
    return CodePage(charactersOf(westernTable(), kWindows1252));
}

QString CodePage::toUnicode(std::string_view bytes) const {
    QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.begin(), [this](char byte) {
        return QChar(characters_.unicode(static_cast<unsigned char>(byte)));
    });
    return text;
}

std::string CodePage::fromUnicode(QStringView text) const {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(text.size()));
    for (qsizetype at = 0; at < text.size();) {
        const char16_t unit = text[at].unicode();
        const bool alone = !isMark(text, at + 1);
        const int byte = unit < 0x80 ? unit : characters_.byteOf(unit);
        if (alone && byte >= 0) {
            bytes += static_cast<char>(byte);
            ++at;
        } else if (byte < 0 && isZeroWidth(unit)) {
            ++at;
        } else {
            const qsizetype length = clusterLength(text, at);
            bytes += nearest(text.sliced(at, length));
            at += length;
        }
    }
    return bytes;
}

std::optional<std::string> CodePage::encodeExactly(QStringView text) const {
    const auto composed = [](const QString& t) {
        return t.normalized(QString::NormalizationForm_C);
    };
    std::string bytes = fromUnicode(text);
    const bool same = composed(toUnicode(bytes)) == composed(text.toString());
    return same ? std::optional(std::move(bytes)) : std::nullopt;
}

std::string CodePage::nearest(QStringView cluster) const {
    // What the code page holds in pieces stays in pieces: bytes copied from a text come back.
    const bool pieces = std::all_of(cluster.begin(), cluster.end(), [this](QChar unit) {
        return characters_.byteOf(unit.unicode()) >= 0;
    });
    const QString text = cluster.toString();
    const QString letters = pieces ? text : text.normalized(QString::NormalizationForm_C);
    std::string bytes;
    for (const char32_t letter : letters.toUcs4()) {
        // An accent that the code page lacks is dropped, not turned into "?".
        const bool lacking = characters_.byteOf(letter) < 0;
        if (!(lacking && QChar::isMark(letter) && !bytes.empty())) bytes += nearest(letter);
    }
    return bytes;
}

std::string CodePage::nearest(char32_t letter) const {
    if (const int byte = characters_.byteOf(letter); byte >= 0) return {static_cast<char>(byte)};
    if (const char* text = replacementOf(letter)) return text;
    // Digits of other scripts, as dates are written with.
    if (const int digit = QChar::digitValue(letter); digit >= 0) return std::to_string(digit);
    std::string bytes;
    for (const char32_t piece : QChar::decomposition(letter).toUcs4()) {
        const std::string part = nearest(piece);
        const bool lacking = part == "?";
        if (lacking && !QChar::isMark(piece)) return "?";
        if (!lacking) bytes += part;
    }
    return bytes.empty() ? "?" : bytes;
}

}  // namespace brindlex
