#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace brindlex {

/// One piece of an RTF source.
struct RtfToken {
    enum class Kind {
        End,         ///< the source is over
        Damaged,     ///< a lone backslash, a \' without two hex digits, a \bin past the end
        GroupBegin,  ///< {
        GroupEnd,    ///< }
        Word,  ///< a control word, or a symbol: a backslash and one character that is no letter
        Byte,  ///< \'hh and the escaped characters \\ \{ \}: the byte in `text`
        Text,  ///< plain bytes in `text`, at least one
    };
    Kind kind = Kind::End;
    std::string_view text = {};
    std::optional<std::int32_t> number = {};  ///< behind a control word, cut to 32 bits
};

/// Takes an RTF source apart, from front to back. Line ends and NULs of the source, the blank that
/// ends a control word, and the data of \bin belong to no token.
class RtfTokens {
  public:
    explicit RtfTokens(std::string_view source) : rest_(source) {}
    /// Its text is valid until the next call. At the end and at a damage the same token comes again
    /// and again.
    RtfToken next();
    std::string_view rest() const { return rest_; }

  private:
    RtfToken control();
    RtfToken hexByte();
    RtfToken word();
    std::optional<std::int32_t> takeNumber();
    std::string_view take(std::size_t count);

    std::string_view rest_;
    char byte_ = 0;  // of the last \'hh
};

}  // namespace brindlex
