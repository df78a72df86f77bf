#include "platform/text/RtfReader.h"

#include <algorithm>
#include <utility>

#include "platform/text/RtfCharsets.h"
#include "platform/text/RtfWords.h"

namespace brindlex {
namespace {

constexpr std::string_view kStart = "{\\rtf";
constexpr std::string_view kMayFollow(" \t\r\n\v\f\0", 7);

// Sums and differences wrap, so that every pair of lengths comes back as it was written.
std::int32_t wrapped(std::uint32_t value) {
    return static_cast<std::int32_t>(value);
}
std::uint32_t unsignedOf(std::int32_t value) {
    return static_cast<std::uint32_t>(value);
}

}  // namespace

bool looksLikeRtf(std::string_view bytes) {
    return bytes.starts_with(kStart);
}

std::optional<RichTextFragment> readRtf(std::string_view rtf, const CharacterTable& characters,
                                        const RtfBaseFont& baseFont) {
    return RtfReader(characters, baseFont).read(rtf);
}

RtfReader::RtfReader(const CharacterTable& characters, const RtfBaseFont& baseFont)
    : characters_(characters),
      baseName_(std::string_view(baseFont.name).substr(0, kMaxRtfFontName)),
      baseHalfPoints_(std::min(baseFont.halfPoints, kMaxRtfHalfPoints)) {}

std::optional<RichTextFragment> RtfReader::read(std::string_view rtf) {
    if (!looksLikeRtf(rtf)) return {};
    RtfTokens tokens(rtf);
    do {
        if (!apply(tokens.next())) return {};
    } while (!saved_.empty());
    if (tokens.rest().find_first_not_of(kMayFollow) != std::string_view::npos) return {};
    return std::move(fragment_);
}

bool RtfReader::apply(const RtfToken& token) {
    const bool ignorable = std::exchange(ignorable_, false);
    switch (token.kind) {
        case RtfToken::Kind::End:
        case RtfToken::Kind::Damaged:
            return false;
        case RtfToken::Kind::GroupBegin:
            endFallback();
            saved_.push_back(state_);
            break;
        case RtfToken::Kind::GroupEnd:
            endGroup();
            break;
        case RtfToken::Kind::Word:
            applyWord(token, ignorable);
            break;
        case RtfToken::Kind::Symbol:
            applySymbol(static_cast<char>(token.byte));
            break;
        case RtfToken::Kind::Hex:
            escapedByte(token.byte);
            break;
        case RtfToken::Kind::Text:
            literalText(token.text);
            break;
    }
    return true;
}

void RtfReader::endGroup() {
    endFallback();
    if (saved_.size() == 1) addLine();
    const RtfState ended = state_;
    state_ = saved_.back();
    saved_.pop_back();
    if (ended.destination == RtfDestination::BulletStyle) {
        state_.paragraph.bullet = ended.paragraph.bullet;
    }
}

void RtfReader::applyWord(const RtfToken& token, bool ignorable) {
    if (state_.destination == RtfDestination::Nowhere) return;
    if (const RtfCharacter* special = findRtfCharacter(token.text)) {
        character(special->value, special->substitute);
        return;
    }
    endFallback();
    const RtfWord* word = findRtfWord(token.text);
    if (word != nullptr && (word->destinations & static_cast<std::uint8_t>(state_.destination))) {
        word->apply(*this, token.number);
    } else if (ignorable) {
        state_.destination = RtfDestination::Nowhere;
    }
}

void RtfReader::applySymbol(char symbol) {
    switch (symbol) {
        case '*':
            ignorable_ = true;
            break;
        case '\r':
        case '\n':
            endFallback();
            if (state_.destination == RtfDestination::Text) lineBreak();
            break;
        case '\\':
        case '{':
        case '}':
            escapedByte(static_cast<unsigned char>(symbol));
            break;
        default:
            if (const RtfCharacter* special = findRtfCharacter({&symbol, 1})) {
                character(special->value, special->substitute);
            }
    }
}

// --- Characters ----------------------------------------------------------------------------------

void RtfReader::literalText(std::string_view bytes) {
    const std::size_t fallback = std::min(bytes.size(), static_cast<std::size_t>(fallbackLeft_));
    fallbackLeft_ -= static_cast<std::int32_t>(fallback);
    bytes.remove_prefix(fallback);
    if (bytes.empty()) return;
    unknownPending_ = false;
    if (state_.destination == RtfDestination::Text && codePage() == characters_.ansiCodePage()) {
        append(bytes);
        return;
    }
    for (const char c : bytes) literalByte(c);
}

void RtfReader::literalByte(char byte) {
    const bool endsEntry = byte == ';';
    if (endsEntry && state_.destination == RtfDestination::FontTable) {
        fonts_.end();
    } else if (endsEntry && state_.destination == RtfDestination::ColorTable) {
        colors_.endEntry();
    } else {
        put(decoded(static_cast<unsigned char>(byte)));
    }
}

void RtfReader::escapedByte(unsigned char byte) {
    if (!isFallback()) put(decoded(byte));
}

void RtfReader::character(char16_t value, char substitute) {
    if (isFallback()) return;
    const int byte = characters_.byteOf(value);
    put(byte < 0 ? substitute : static_cast<char>(byte));
}

void RtfReader::unicode(std::int32_t value) {
    const auto character = static_cast<char32_t>(value < 0 ? value + 0x10000 : value);
    const bool firstOfPair = character >= 0xD800 && character < 0xDC00;
    const int byte = firstOfPair ? -1 : characters_.byteOf(character);
    if (byte >= 0) put(static_cast<char>(byte));
    unknownPending_ = byte < 0 && !firstOfPair;
    if (state_.fallbackLength == 0) endFallback();
    if (!unknownPending_) fallbackLeft_ = state_.fallbackLength;
}

bool RtfReader::isFallback() {
    if (fallbackLeft_ > 0) {
        --fallbackLeft_;
        return true;
    }
    unknownPending_ = false;
    return false;
}

void RtfReader::endFallback() {
    fallbackLeft_ = 0;
    if (std::exchange(unknownPending_, false)) put('?');
}

void RtfReader::put(char byte) {
    if (state_.destination == RtfDestination::FontTable) {
        fonts_.append(byte);
    } else if (state_.destination != RtfDestination::Text) {
        return;
    } else if (byte == '\r' || byte == '\n') {
        putLineEnd(byte);
    } else {
        append({&byte, 1});
    }
}

void RtfReader::putLineEnd(char byte) {
    const bool endsPair = byte == '\n' && breakIsCr_ && breakEnd_ == fragment_.text.size();
    if (!endsPair) lineBreak();
    breakIsCr_ = byte == '\r';
}

void RtfReader::lineBreak() {
    if (state_.characters.hidden) return;
    fragment_.text += "\r\n";
    extendRun(2);
    addLine();
    breakEnd_ = fragment_.text.size();
    breakIsCr_ = false;
}

void RtfReader::formatLineFeed() {
    if (breakEnd_ == 0 || breakEnd_ != fragment_.text.size()) return;
    breakEnd_ = 0;
    --fragment_.characters.back().length;
    extendRun(1);
}

void RtfReader::append(std::string_view bytes) {
    if (state_.characters.hidden) return;
    fragment_.text += bytes;
    extendRun(bytes.size());
}

void RtfReader::extendRun(std::size_t length) {
    auto& runs = fragment_.characters;
    if (runs.empty() || state_.characters != lastCharacters_) {
        lastCharacters_ = state_.characters;
        CharFormat format = charFormat();
        if (runs.empty() || runs.back().format != format) runs.push_back({0, std::move(format)});
    }
    runs.back().length += length;
}

void RtfReader::addLine() {
    auto& lines = fragment_.paragraphs;
    if (lines.empty() || state_.paragraph != lastParagraph_) {
        lastParagraph_ = state_.paragraph;
        ParagraphFormat format = paragraphFormat();
        if (lines.empty() || lines.back().format != format) lines.push_back({0, std::move(format)});
    }
    ++lines.back().count;
}

// --- Code pages, fonts, tabs ---------------------------------------------------------------------

char RtfReader::decoded(unsigned char byte) const {
    const std::int32_t source = codePage();
    if (byte < 0x80 || source == characters_.ansiCodePage()) return static_cast<char>(byte);
    if (isDoubleByteCodePage(source)) return '?';
    const int known = characters_.byteOf(windows1252(byte));
    return known < 0 ? '?' : static_cast<char>(known);
}

std::int32_t RtfReader::codePage() const {
    const bool inTable = state_.destination == RtfDestination::FontTable;
    const RtfFont& font = inTable ? fonts_.open() : fonts_.font(state_.characters.font);
    return font.codePage == 0 ? documentCodePage_ : font.codePage;
}

void RtfReader::font(std::int32_t number) {
    if (state_.destination == RtfDestination::FontTable) {
        fonts_.begin(number);
    } else {
        state_.characters.font = fonts_.indexOf(number);
    }
}

void RtfReader::beginColorTable() {
    state_.destination = RtfDestination::ColorTable;
    colors_.clear();
}

void RtfReader::addTab(std::int32_t twips) {
    RtfParagraph& paragraph = state_.paragraph;
    paragraph.tabs = tabs_.added(paragraph.tabs, twips);
}

// --- Formats -------------------------------------------------------------------------------------

CharFormat RtfReader::charFormat() const {
    const RtfCharacters& from = state_.characters;
    const std::string& font = fonts_.font(from.font).name;
    const std::int32_t halfPoints = std::clamp(from.halfPoints, 0, kMaxRtfHalfPoints);
    CharFormat format;
    format.color = from.color;
    format.bold = from.bold;
    format.italic = from.italic;
    format.underline = from.underline;
    format.strikeThrough = from.strikeThrough;
    format.isProtected = from.isProtected;
    format.charOffset = from.charOffset;
    if (font != baseName_) format.fontName = font;
    if (halfPoints != baseHalfPoints_) format.fontHalfPoints = halfPoints;
    return format;
}

ParagraphFormat RtfReader::paragraphFormat() const {
    const RtfParagraph& from = state_.paragraph;
    ParagraphFormat format;
    format.alignment = from.alignment;
    format.indent = wrapped(unsignedOf(from.leftIndent) + unsignedOf(from.firstIndent));
    format.hangingIndent = wrapped(-unsignedOf(from.firstIndent));
    format.rightIndent = from.rightIndent;
    format.bullet = from.bullet;
    format.tabs = tabs_.stops(from.tabs);
    return format;
}

}  // namespace brindlex
