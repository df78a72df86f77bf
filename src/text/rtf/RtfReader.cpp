#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "text/LineEnds.h"
#include "text/Windows1252.h"
#include "text/rtf/Rtf.h"
#include "text/rtf/RtfTokens.h"

namespace brindlex {
namespace {

constexpr std::string_view kStart = "{\\rtf";
constexpr std::string_view kMayFollow(" \t\r\n\v\f\0", 7);

enum class Action : std::uint8_t {
    Bold,
    Italic,
    Underline,
    NoUnderline,
    StrikeThrough,
    Plain,
    Color,
    LineBreak,
    Character,
    Unicode,
    FallbackLength,
    CodePage,
    ColorTable,
    Red,
    Green,
    Blue
};

struct Word {
    std::string_view name;
    Action action;
    char16_t character = 0;
    char substitute = 0;  ///< where the code page lacks the character
};

constexpr std::array kWords = std::to_array<Word>({
    {"\n", Action::LineBreak},
    {"\r", Action::LineBreak},
    {"_", Action::Character, 0x2011, '-'},
    {"ansicpg", Action::CodePage},
    {"b", Action::Bold},
    {"blue", Action::Blue},
    {"bullet", Action::Character, 0x2022, '*'},
    {"cell", Action::Character, '\t', '\t'},
    {"cf", Action::Color},
    {"colortbl", Action::ColorTable},
    {"emdash", Action::Character, 0x2014, '-'},
    {"endash", Action::Character, 0x2013, '-'},
    {"green", Action::Green},
    {"i", Action::Italic},
    {"ldblquote", Action::Character, 0x201C, '"'},
    {"line", Action::LineBreak},
    {"lquote", Action::Character, 0x2018, '\''},
    {"page", Action::LineBreak},
    {"par", Action::LineBreak},
    {"plain", Action::Plain},
    {"rdblquote", Action::Character, 0x201D, '"'},
    {"red", Action::Red},
    {"row", Action::LineBreak},
    {"rquote", Action::Character, 0x2019, '\''},
    {"sect", Action::LineBreak},
    {"strike", Action::StrikeThrough},
    {"tab", Action::Character, '\t', '\t'},
    {"u", Action::Unicode},
    {"uc", Action::FallbackLength},
    {"ul", Action::Underline},
    {"ulnone", Action::NoUnderline},
    {"~", Action::Character, 0x00A0, ' '},
});
static_assert(std::ranges::is_sorted(kWords, {}, &Word::name));

/// Words whose groups hold no text of the document.
constexpr std::array kSkipped = std::to_array<std::string_view>(
    {"fldinst", "fonttbl", "footer", "footerf", "footerl", "footerr", "footnote", "header",
     "headerf", "headerl", "headerr", "info", "listtext", "nonshppict", "object", "pict", "pntext",
     "stylesheet"});
static_assert(std::ranges::is_sorted(kSkipped));

const Word* findWord(std::string_view name) {
    const auto found = std::ranges::lower_bound(kWords, name, {}, &Word::name);
    return found != kWords.end() && found->name == name ? &*found : nullptr;
}

/// Builds a text from the tokens of one source. Used once.
class RtfReader {
  public:
    explicit RtfReader(const CharacterTable& characters) : characters_(characters) {}
    std::optional<RichText> read(std::string_view rtf);

  private:
    enum class Destination : std::uint8_t { Text, Colors, Nowhere };
    /// What a group inherits and its end takes back.
    struct State {
        CharFormat format;
        std::int32_t fallbackLength = 1;  ///< characters that stand in for one of \u
        Destination destination = Destination::Text;
    };

    bool apply(const RtfToken& token);
    void applyWord(const RtfToken& token, bool ignorable);
    void applyInText(const Word& word, std::optional<std::int32_t> number);
    void setFormat(Action action, std::optional<std::int32_t> number);
    void setColorPart(unsigned shift, std::optional<std::int32_t> value);
    void character(char16_t value, char substitute);
    void unicode(std::int32_t value);
    void literal(std::string_view bytes);
    void put(char byte);
    void lineBreak();
    char decoded(char byte) const;
    bool takeFallback();

    const CharacterTable& characters_;
    std::int32_t codePage_ = kWindows1252;
    std::vector<ColorRef> colors_;
    ColorRef nextColor_ = 0;

    State state_;
    std::vector<State> groups_;  // the states outside of the open groups
    bool ignorable_ = false;     // \* was the last token
    std::int32_t fallbackLeft_ = 0;
    bool afterCr_ = false;  // the last character was an escaped CR, to which an LF belongs

    std::string text_;
    RunBuilder runs_;
};

std::optional<RichText> RtfReader::read(std::string_view rtf) {
    if (!looksLikeRtf(rtf) || rtf.size() > kMostBytes) return {};
    RtfTokens tokens(rtf);
    do {
        if (!apply(tokens.next())) return {};
    } while (!groups_.empty());
    if (tokens.rest().find_first_not_of(kMayFollow) != std::string_view::npos) return {};
    return RichText{std::move(text_), runs_.take()};
}

bool RtfReader::apply(const RtfToken& token) {
    const bool ignorable = std::exchange(ignorable_, false);
    switch (token.kind) {
        case RtfToken::Kind::End:
        case RtfToken::Kind::Damaged:
            return false;
        case RtfToken::Kind::GroupBegin:
            fallbackLeft_ = 0;
            groups_.push_back(state_);
            break;
        case RtfToken::Kind::GroupEnd:
            fallbackLeft_ = 0;
            state_ = groups_.back();
            groups_.pop_back();
            break;
        case RtfToken::Kind::Word:
            applyWord(token, ignorable);
            break;
        case RtfToken::Kind::Byte:
        case RtfToken::Kind::Text:
            literal(token.text);
            break;
    }
    return true;
}

void RtfReader::applyWord(const RtfToken& token, bool ignorable) {
    ignorable_ = token.text == "*";
    const Word* const word = findWord(token.text);
    if (word == nullptr || word->action != Action::Character) fallbackLeft_ = 0;
    if (std::ranges::binary_search(kSkipped, token.text) || (word == nullptr && ignorable)) {
        state_.destination = Destination::Nowhere;
    } else if (word != nullptr && state_.destination == Destination::Colors) {
        if (word->action == Action::Red) setColorPart(0, token.number);
        if (word->action == Action::Green) setColorPart(8, token.number);
        if (word->action == Action::Blue) setColorPart(16, token.number);
    } else if (word != nullptr && state_.destination == Destination::Text) {
        applyInText(*word, token.number);
    }
}

void RtfReader::applyInText(const Word& word, std::optional<std::int32_t> number) {
    switch (word.action) {
        case Action::LineBreak:
            return lineBreak();
        case Action::Character:
            return character(word.character, word.substitute);
        case Action::Unicode:
            return unicode(number.value_or('?'));
        case Action::FallbackLength:
            state_.fallbackLength = number.value_or(1);
            return;
        case Action::CodePage:
            codePage_ = number.value_or(0);
            return;
        case Action::ColorTable:
            state_.destination = Destination::Colors;
            return colors_.clear();
        default:
            return setFormat(word.action, number);
    }
}

void RtfReader::setFormat(Action action, std::optional<std::int32_t> number) {
    CharFormat& format = state_.format;
    const bool on = number != 0;
    if (action == Action::Bold) format.bold = on;
    if (action == Action::Italic) format.italic = on;
    if (action == Action::Underline) format.underline = on;
    if (action == Action::NoUnderline) format.underline = false;
    if (action == Action::StrikeThrough) format.strikeThrough = on;
    if (action == Action::Plain) format = {};
    if (action != Action::Color) return;
    const auto index = static_cast<std::size_t>(number.value_or(0));
    format.color = index < colors_.size() ? colors_[index] & kColorMask : 0;
}

// --- Colours -------------------------------------------------------------------------------------

void RtfReader::setColorPart(unsigned shift, std::optional<std::int32_t> value) {
    const auto part = static_cast<ColorRef>(std::clamp(value.value_or(0), 0, 255));
    nextColor_ = (nextColor_ & ~(ColorRef{255} << shift)) | (part << shift);
}

// --- Characters ----------------------------------------------------------------------------------

void RtfReader::character(char16_t value, char substitute) {
    if (takeFallback()) return;
    const int byte = characters_.byteOf(value);
    put(byte < 0 ? substitute : static_cast<char>(byte));
}

/// A 16-bit value, or its negative complement. A surrogate pair is one character, which no code
/// page has.
void RtfReader::unicode(std::int32_t value) {
    const auto unit = static_cast<char32_t>(value < 0 ? value + 0x10000 : value);
    const int byte = characters_.byteOf(unit);
    const bool firstOfPair = unit >= 0xD800 && unit < 0xDC00;
    if (!firstOfPair) put(byte < 0 ? '?' : static_cast<char>(byte));
    fallbackLeft_ = state_.fallbackLength;
}

void RtfReader::literal(std::string_view bytes) {
    for (const char byte : bytes) {
        if (state_.destination == Destination::Colors && byte == ';')
            colors_.push_back(std::exchange(nextColor_, 0));
        else if (state_.destination == Destination::Text && !takeFallback())
            put(decoded(byte));
    }
}

void RtfReader::put(char byte) {
    const bool endsPair = byte == '\n' && afterCr_;
    if (endsPair) {
        afterCr_ = false;
    } else if (byte == '\r' || byte == '\n') {
        lineBreak();
        afterCr_ = byte == '\r';
    } else {
        text_ += byte;
        runs_.append(1, state_.format);
        afterCr_ = false;
    }
}

void RtfReader::lineBreak() {
    text_ += kLineBreak;
    runs_.append(kLineBreak.size(), state_.format);
    afterCr_ = false;
}

char RtfReader::decoded(char byte) const {
    const auto value = static_cast<unsigned char>(byte);
    if (value < 0x80 || codePage_ == characters_.ansiCodePage()) return byte;
    const int known = characters_.byteOf(windows1252(value));
    return known < 0 ? '?' : static_cast<char>(known);
}

/// Whether the next character only repeats a \u that was taken; counts it off if so.
bool RtfReader::takeFallback() {
    if (fallbackLeft_ <= 0) return false;
    --fallbackLeft_;
    return true;
}

}  // namespace

bool looksLikeRtf(std::string_view bytes) {
    return bytes.starts_with(kStart);
}

std::optional<RichText> readRtf(std::string_view rtf, const CharacterTable& characters) {
    return RtfReader(characters).read(rtf);
}

}  // namespace brindlex
