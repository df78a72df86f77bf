#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace brindlex {

/// The number behind a control word, cut to 32 bits; unset when there is none.
using RtfNumber = std::optional<std::int32_t>;

/// One piece of an RTF source.
struct RtfToken {
    enum class Kind {
        End,         ///< the source is over
        Damaged,     ///< a lone backslash, a \' without two hex digits, a \bin past the end
        GroupBegin,  ///< {
        GroupEnd,    ///< }
        Word,        ///< a control word: name in `text`, `number`
        Symbol,      ///< a backslash and one character that is no letter, in `byte`
        Hex,         ///< \'hh, its value in `byte`
        Text,        ///< plain bytes in `text`, at least one
    };
    Kind kind = Kind::End;
    std::string_view text = {};
    RtfNumber number = {};
    unsigned char byte = 0;
};

/// Takes an RTF source apart, from front to back. Line ends and NULs of the source, the blank that
/// ends a control word, and the data of \bin belong to no token. Views point into the source.
class RtfTokens {
  public:
    explicit RtfTokens(std::string_view source) : rest_(source) {}
    /// At the end and at a damage the same token comes again and again.
    RtfToken next();
    std::string_view rest() const { return rest_; }

  private:
    RtfToken textToken();
    RtfToken controlToken();
    RtfToken hexToken();
    RtfToken wordToken();
    RtfNumber takeNumber();
    std::string_view take(std::size_t count);

    std::string_view rest_;
};

}  // namespace brindlex
