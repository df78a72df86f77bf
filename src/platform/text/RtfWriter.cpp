#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/text/Rtf.h"
#include "platform/text/RtfCharsets.h"

namespace brindlex {
namespace {

constexpr std::array<bool, 256> kPlain = [] {
    std::array<bool, 256> table{};
    for (unsigned c = ' '; c < 0x7F; ++c) table[c] = c != '\\' && c != '{' && c != '}';
    return table;
}();

bool isPlain(char c) {
    return kPlain[static_cast<unsigned char>(c)];
}
std::uint32_t unsignedOf(std::int32_t value) {
    return static_cast<std::uint32_t>(value);
}

struct Toggle {
    bool CharFormat::*flag;
    std::string_view on;
    std::string_view off;
};
constexpr std::array kToggles = {
    Toggle{&CharFormat::bold, "b", "b0"},
    Toggle{&CharFormat::italic, "i", "i0"},
    Toggle{&CharFormat::underline, "ul", "ulnone"},
    Toggle{&CharFormat::strikeThrough, "strike", "strike0"},
    Toggle{&CharFormat::isProtected, "protect", "protect0"},
};

class RtfWriter {
  public:
    RtfWriter(const RichTextFragment& fragment, std::int32_t codePage, const RtfBaseFont& baseFont)
        : fragment_(fragment), codePage_(codePage), baseFont_(baseFont) {}

    std::string write();

  private:
    void collectTables();
    void header();
    void fontEntry(std::size_t number, std::string_view name);
    void body();
    void run(std::size_t begin, std::size_t end);
    void beginLine();
    void paragraphFormat(const ParagraphFormat& format);
    void charFormat(const CharFormat& to);
    void charOffset(std::int32_t twips);

    std::int32_t halfPoints(const CharFormat& format) const;
    /// A control word.
    void word(std::string_view name);
    void word(std::string_view name, std::int64_t number);
    /// RTF as it stands that does not prolong a control word.
    void raw(std::string_view source);
    void characters(std::string_view bytes);
    void escaped(char c);

    const RichTextFragment& fragment_;
    const std::int32_t codePage_;
    const RtfBaseFont& baseFont_;
    std::string out_;
    bool wordIsOpen_ = false;  // a control word was written that plain text would prolong

    std::unordered_map<ColorRef, std::size_t> colorNumbers_;
    std::vector<ColorRef> colors_;
    std::unordered_map<std::string_view, std::size_t> fontNumbers_;
    std::vector<std::string_view> fonts_;

    const CharFormat plainFormat_;
    const CharFormat* format_ = &plainFormat_;  // of what is written next
    std::size_t paragraph_ = 0;
    std::size_t linesOfParagraph_ = 0;  // already begun
};

std::string RtfWriter::write() {
    out_.reserve(fragment_.text.size() + fragment_.text.size() / 4 + 256);
    collectTables();
    header();
    body();
    out_ += '}';
    return std::move(out_);
}

void RtfWriter::collectTables() {
    fontNumbers_.emplace("", 0);
    fonts_.push_back(baseFont_.name);
    colorNumbers_.emplace(0, 0);
    colors_.push_back(0);
    for (const auto& run : fragment_.characters) {
        if (fontNumbers_.try_emplace(run.format.fontName, fonts_.size()).second) {
            fonts_.push_back(run.format.fontName);
        }
        if (colorNumbers_.try_emplace(run.format.color, colors_.size()).second) {
            colors_.push_back(run.format.color);
        }
    }
}

void RtfWriter::header() {
    out_ += "{\\rtf1\\ansi";
    word("ansicpg", codePage_);
    word("uc", 1);
    word("deff", 0);
    raw("{\\fonttbl");
    for (std::size_t number = 0; number < fonts_.size(); ++number) {
        fontEntry(number, fonts_[number]);
    }
    raw("}\r\n{\\colortbl ;");
    for (std::size_t number = 1; number < colors_.size(); ++number) {
        word("red", colors_[number] & 255U);
        word("green", colors_[number] >> 8U & 255U);
        word("blue", colors_[number] >> 16U & 255U);
        raw(";");
    }
    raw("}\r\n");
}

void RtfWriter::fontEntry(std::size_t number, std::string_view name) {
    raw("{");
    word("f", static_cast<std::int64_t>(number));
    word("fnil");
    word("fcharset", rtfCharsetOf(codePage_));
    for (std::string_view rest = name; !rest.empty(); rest.remove_prefix(1)) {
        if (rest.front() == ';') {
            escaped(';');
        } else {
            characters(rest.substr(0, 1));
        }
    }
    raw(";}");
}

void RtfWriter::body() {
    word("plain");
    word("f", 0);
    word("fs", halfPoints(*format_));
    beginLine();
    std::size_t begin = 0;
    for (const auto& characters : fragment_.characters) {
        charFormat(characters.format);
        run(begin, begin + characters.length);
        begin += characters.length;
    }
}

/// Writes the text of [begin, end). A line break goes out with its CR, wherever its LF is.
void RtfWriter::run(std::size_t begin, std::size_t end) {
    const std::string_view text = fragment_.text;
    std::size_t at = begin;
    if (at > 0 && at < end && text[at] == '\n' && text[at - 1] == '\r') {
        word("brindlexlf");
        ++at;
    }
    while (at < end) {
        if (text[at] == '\r') {
            raw("\\par\r\n");
            beginLine();
            at += at + 1 < end && text[at + 1] == '\n' ? 2 : 1;
        } else {
            const std::size_t stop = std::min(text.find('\r', at), end);
            characters(text.substr(at, stop - at));
            at = stop;
        }
    }
}

void RtfWriter::beginLine() {
    const auto& paragraphs = fragment_.paragraphs;
    if (paragraph_ < paragraphs.size() && linesOfParagraph_ == paragraphs[paragraph_].count) {
        ++paragraph_;
        linesOfParagraph_ = 0;
    }
    if (paragraph_ == paragraphs.size()) return;
    const ParagraphFormat& format = paragraphs[paragraph_].format;
    const bool isFirst = linesOfParagraph_++ == 0;
    if (isFirst) word("pard");
    if (format.bullet) raw("{\\pntext\\f0\\'b7\\tab}");
    if (isFirst) paragraphFormat(format);
}

void RtfWriter::paragraphFormat(const ParagraphFormat& format) {
    if (format.bullet) raw("{\\*\\pn\\pnlvlblt\\pnf0\\pnindent0{\\pntxtb\\'b7}}");
    if (format.alignment == Alignment::Right) word("qr");
    if (format.alignment == Alignment::Center) word("qc");
    // The sum wraps, so that every pair of lengths can be had back.
    const std::uint32_t hanging = unsignedOf(format.hangingIndent);
    const auto left = static_cast<std::int32_t>(unsignedOf(format.indent) + hanging);
    const auto first = static_cast<std::int32_t>(-hanging);
    if (first != 0) word("fi", first);
    if (left != 0) word("li", left);
    if (format.rightIndent != 0) word("ri", format.rightIndent);
    const std::size_t tabs = std::min(format.tabs.size(), kMaxRtfTabs);
    for (std::size_t index = 0; index < tabs; ++index) word("tx", format.tabs[index]);
}

void RtfWriter::charFormat(const CharFormat& to) {
    for (const Toggle& toggle : kToggles) {
        if (to.*toggle.flag != format_->*toggle.flag)
            word(to.*toggle.flag ? toggle.on : toggle.off);
    }
    if (to.fontName != format_->fontName) {
        word("f", static_cast<std::int64_t>(fontNumbers_.at(to.fontName)));
    }
    if (to.fontHalfPoints != format_->fontHalfPoints) word("fs", halfPoints(to));
    if (to.charOffset != format_->charOffset) charOffset(to.charOffset);
    if (to.color != format_->color) {
        word("cf", static_cast<std::int64_t>(colorNumbers_.at(to.color)));
    }
    format_ = &to;
}

void RtfWriter::charOffset(std::int32_t twips) {
    constexpr std::int32_t kTwipsInHalfPoint = 10;
    const std::int32_t halfPoints = twips / kTwipsInHalfPoint;
    if (halfPoints < 0) {
        word("dn", -halfPoints);
    } else {
        word("up", halfPoints);
    }
    if (twips % kTwipsInHalfPoint != 0) word("brindlextwips", twips);
}

std::int32_t RtfWriter::halfPoints(const CharFormat& format) const {
    const std::int32_t wanted =
        format.fontHalfPoints > 0 ? format.fontHalfPoints : baseFont_.halfPoints;
    return std::clamp(wanted, 0, kMaxRtfHalfPoints);
}

void RtfWriter::word(std::string_view name) {
    out_ += '\\';
    out_ += name;
    wordIsOpen_ = true;
}

void RtfWriter::word(std::string_view name, std::int64_t number) {
    word(name);
    out_ += std::to_string(number);
}

void RtfWriter::raw(std::string_view source) {
    out_ += source;
    wordIsOpen_ = false;
}

void RtfWriter::characters(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto end = std::find_if_not(bytes.begin(), bytes.end(), isPlain);
        const auto length = static_cast<std::size_t>(end - bytes.begin());
        if (length > 0) {
            if (wordIsOpen_) raw(" ");
            out_ += bytes.substr(0, length);
            bytes.remove_prefix(length);
        } else {
            escaped(bytes.front());
            bytes.remove_prefix(1);
        }
    }
}

void RtfWriter::escaped(char c) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\t') {
        word("tab");
    } else if (c == '\\' || c == '{' || c == '}') {
        raw("\\");
        out_ += c;
    } else {
        raw("\\'");
        out_ += {kDigits[byte >> 4U], kDigits[byte & 15U]};
    }
}

}  // namespace

std::string writeRtf(const RichTextFragment& fragment, const CharacterTable& characters,
                     const RtfBaseFont& baseFont) {
    return RtfWriter(fragment, characters.ansiCodePage(), baseFont).write();
}

}  // namespace brindlex
