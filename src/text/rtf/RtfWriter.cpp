#include <algorithm>
#include <array>
#include <cstdint>
#include <unordered_map>

#include "text/rtf/Rtf.h"

namespace brindlex {
namespace {

bool isPlain(char c) {
    return c >= ' ' && c < 0x7F && c != '\\' && c != '{' && c != '}';
}

class RtfWriter {
  public:
    RtfWriter(const RichText& rich, std::int32_t codePage) : rich_(rich), codePage_(codePage) {}
    std::string write();

  private:
    void colorTable();
    void changeFormat(CharFormat to);
    void toggle(bool from, bool to, std::string_view word);
    void characters(std::string_view bytes);
    void escaped(char c);
    void word(std::string_view name);
    void word(std::string_view name, std::size_t number);
    /// RTF as it stands that does not prolong a control word.
    void raw(std::string_view source);

    const RichText& rich_;
    const std::int32_t codePage_;
    std::string out_;
    bool wordIsOpen_ = false;  // plain text would prolong the control word just written
    std::unordered_map<ColorRef, std::size_t> colorNumbers_{{0, 0}};
    CharFormat format_;  // of what is written next
};

std::string RtfWriter::write() {
    out_.reserve(rich_.text.size() + rich_.text.size() / 4 + 256);
    out_ += "{\\rtf1\\ansi";
    word("ansicpg", static_cast<std::size_t>(codePage_));
    word("uc", 1);
    colorTable();
    std::string_view rest = rich_.text;
    for (const FormatRun& run : rich_.runs) {
        changeFormat(run.format);
        characters(rest.substr(0, run.length));
        rest.remove_prefix(run.length);
    }
    out_ += '}';
    return std::move(out_);
}

void RtfWriter::colorTable() {
    raw("{\\colortbl ;");
    for (const FormatRun& run : rich_.runs) {
        const ColorRef color = run.format.color;
        if (!colorNumbers_.try_emplace(color, colorNumbers_.size()).second) continue;
        word("red", color & 255U);
        word("green", color >> 8U & 255U);
        word("blue", color >> 16U & 255U);
        raw(";");
    }
    raw("}\r\n");
}

void RtfWriter::changeFormat(CharFormat to) {
    toggle(format_.bold, to.bold, "b");
    toggle(format_.italic, to.italic, "i");
    toggle(format_.underline, to.underline, "ul");
    toggle(format_.strikeThrough, to.strikeThrough, "strike");
    if (to.color != format_.color) word("cf", colorNumbers_.at(to.color));
    format_ = to;
}

void RtfWriter::toggle(bool from, bool to, std::string_view name) {
    if (from == to) return;
    if (to)
        word(name);
    else
        word(name, 0);
}

void RtfWriter::characters(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto end = std::ranges::find_if_not(bytes, isPlain);
        const auto length = static_cast<std::size_t>(end - bytes.begin());
        if (length > 0) {
            if (wordIsOpen_) raw(" ");
            out_ += bytes.substr(0, length);
        } else {
            escaped(bytes.front());
        }
        bytes.remove_prefix(std::max<std::size_t>(length, 1));
    }
}

void RtfWriter::escaped(char c) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(c);
    if (c == '\r') {
        raw("\\par\r\n");
    } else if (c == '\t') {
        word("tab");
    } else if (c == '\\' || c == '{' || c == '}') {
        raw("\\");
        out_ += c;
    } else if (c != '\n') {  // an LF went out with its CR
        raw("\\'");
        out_ += {kDigits[byte >> 4U], kDigits[byte & 15U]};
    }
}

void RtfWriter::word(std::string_view name) {
    out_ += '\\';
    out_ += name;
    wordIsOpen_ = true;
}

void RtfWriter::word(std::string_view name, std::size_t number) {
    word(name);
    out_ += std::to_string(number);
}

void RtfWriter::raw(std::string_view source) {
    out_ += source;
    wordIsOpen_ = false;
}

}  // namespace

std::string writeRtf(const RichText& rich, const CharacterTable& characters) {
    return RtfWriter(rich, characters.ansiCodePage()).write();
}

}  // namespace brindlex
