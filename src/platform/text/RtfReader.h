#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/CharacterTable.h"
#include "platform/text/RichTextFragment.h"
#include "platform/text/Rtf.h"
#include "platform/text/RtfTables.h"
#include "platform/text/RtfTokens.h"
#include "platform/text/Windows1252.h"

namespace brindlex {

/// Where the characters of a group go. Each is a bit, so that sets of them can be named.
enum class RtfDestination : std::uint8_t {
    Text = 1,
    FontTable = 2,
    ColorTable = 4,
    BulletStyle = 8,
    Nowhere = 16
};

/// A CharFormat on its way: small, its font a number.
struct RtfCharacters {
    ColorRef color = 0;
    std::int32_t charOffset = 0;
    std::int32_t halfPoints = 0;  ///< 0 or below: not named
    std::uint32_t font = 0;       ///< index into the RtfFontTable
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThrough = false;
    bool isProtected = false;
    bool hidden = false;
    bool operator==(const RtfCharacters&) const = default;
};

/// A ParagraphFormat on its way, with the lengths as RTF has them.
struct RtfParagraph {
    Alignment alignment = Alignment::Left;
    std::int32_t leftIndent = 0;   ///< of all lines
    std::int32_t firstIndent = 0;  ///< of the first line, from `leftIndent`
    std::int32_t rightIndent = 0;
    std::uint32_t tabs = 0;  ///< a list of RtfTabs
    bool bullet = false;
    bool operator==(const RtfParagraph&) const = default;
};

/// What a group inherits and its end takes back.
struct RtfState {
    RtfCharacters characters;
    RtfParagraph paragraph;
    std::int32_t fallbackLength = 1;  ///< characters that stand in for one of \u
    RtfDestination destination = RtfDestination::Text;
};

/// Builds a fragment from the tokens of one RTF source. Used once.
class RtfReader {
  public:
    RtfReader(const CharacterTable& characters, const RtfBaseFont& baseFont);
    std::optional<RichTextFragment> read(std::string_view rtf);

    // --- What control words do -------------------------------------------------------------------
    RtfState& state() { return state_; }
    /// Hands a byte of the code page to the destination.
    void put(char byte);
    void lineBreak();
    /// Gives the LF of the line break that was just made the present format.
    void formatLineFeed();
    /// A 16-bit value, or its negative complement. Of a surrogate pair the second half counts.
    void unicode(std::int32_t value);
    void addTab(std::int32_t twips);
    void setCodePage(std::int32_t codePage) { documentCodePage_ = codePage; }
    /// In the font table: begins the entry of a font. In the text: takes that font.
    void font(std::int32_t number);
    void beginColorTable();
    RtfFontTable& fonts() { return fonts_; }
    RtfColorTable& colors() { return colors_; }

  private:
    bool apply(const RtfToken& token);
    void endGroup();
    void applyWord(const RtfToken& token, bool ignorable);
    void applySymbol(char symbol);

    void literalText(std::string_view bytes);
    void literalByte(char byte);
    void escapedByte(unsigned char byte);
    void character(char16_t value, char substitute);
    bool isFallback();
    void endFallback();
    void putLineEnd(char byte);
    void append(std::string_view bytes);
    void extendRun(std::size_t length);
    void addLine();

    char decoded(unsigned char byte) const;
    std::int32_t codePage() const;
    CharFormat charFormat() const;
    ParagraphFormat paragraphFormat() const;

    const CharacterTable& characters_;
    const std::string_view baseName_;
    const std::int32_t baseHalfPoints_;

    RichTextFragment fragment_;
    RtfCharacters lastCharacters_;  // of the last run
    RtfParagraph lastParagraph_;    // of the last line
    std::size_t breakEnd_ = 0;      // end of the line break made last; 0: none
    bool breakIsCr_ = false;        // that break was an escaped CR, to which an LF may belong

    RtfState state_;
    std::vector<RtfState> saved_;  // one for each open group
    bool ignorable_ = false;       // \* was the last token
    std::int32_t fallbackLeft_ = 0;
    bool unknownPending_ = false;  // a character that the code page lacks wants its fallback

    std::int32_t documentCodePage_ = kWindows1252;
    RtfFontTable fonts_;
    RtfColorTable colors_;
    RtfTabs tabs_;
};

}  // namespace brindlex
