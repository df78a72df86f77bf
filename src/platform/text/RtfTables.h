#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "platform/text/Formats.h"

namespace brindlex {

/// A font that a document names.
struct RtfFont {
    std::string name;           ///< in the code page of the control
    std::int32_t codePage = 0;  ///< of its characters; 0: the document's
};

/// The fonts of a document. Index 0 stands for the document's default font, or for a nameless one
/// where it has none.
class RtfFontTable {
  public:
    /// Begins the entry of a font, in the place of an older one of the same number.
    void begin(std::int32_t number);
    void setCharset(std::int32_t charset);
    /// What goes beyond kMaxRtfFontName is dropped, and so is what stands outside an entry.
    void append(char byte);
    void end() { open_ = 0; }
    /// The font whose entry is open; outside an entry a nameless one.
    const RtfFont& open() const { return fonts_[open_]; }

    void setDefault(std::int32_t number) { default_ = number; }
    /// 0 for a number that is not in the table.
    std::uint32_t indexOf(std::int32_t number) const;
    const RtfFont& font(std::uint32_t index) const;

  private:
    std::vector<RtfFont> fonts_{1};  // the first one nameless
    std::map<std::int32_t, std::uint32_t> indices_;
    std::uint32_t open_ = 0;
    std::int32_t default_ = -1;
};

/// The colours of a document.
class RtfColorTable {
  public:
    void clear() { *this = {}; }
    /// Sets a part of the open entry, cut to 255; `shift` tells where it stands in a ColorRef.
    void setPart(unsigned shift, std::int32_t value);
    void endEntry();
    /// Black for a number that is not in the table.
    ColorRef color(std::int32_t number) const;

  private:
    std::vector<ColorRef> colors_;
    ColorRef open_ = 0;
};

/// The tab stops of all paragraphs of a document. A list of stops is the 1-based index of its last
/// one, 0 when it is empty, so that states of the reader share their lists.
class RtfTabs {
  public:
    /// The list with one more stop; a list of kMaxRtfTabs stays as it is.
    std::uint32_t added(std::uint32_t list, std::int32_t twips);
    /// Rising, each stop once.
    std::vector<std::int32_t> stops(std::uint32_t list) const;

  private:
    struct Stop {
        std::int32_t twips;
        std::uint32_t previous;
        std::uint32_t count;  // with all previous ones
    };
    std::vector<Stop> stops_;
};

}  // namespace brindlex
