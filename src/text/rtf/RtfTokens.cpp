#include "text/rtf/RtfTokens.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace brindlex {
namespace {

using Kind = RtfToken::Kind;

constexpr std::string_view kNoMeaning("\r\n\0", 3);
constexpr std::string_view kEndsText("\\{}\r\n\0", 6);
constexpr std::string_view kDigits = "0123456789";

bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

}  // namespace

RtfToken RtfTokens::next() {
    take(std::min(rest_.find_first_not_of(kNoMeaning), rest_.size()));
    if (rest_.empty()) return {Kind::End};
    switch (rest_.front()) {
        case '{':
            return {Kind::GroupBegin, take(1)};
        case '}':
            return {Kind::GroupEnd, take(1)};
        case '\\':
            return control();
        default:
            return {Kind::Text, take(rest_.find_first_of(kEndsText))};
    }
}

RtfToken RtfTokens::control() {
    if (rest_.size() < 2) return {Kind::Damaged};
    switch (const char c = rest_[1]) {
        case '\'':
            return hexByte();
        case '\\':
        case '{':
        case '}':
            return {Kind::Byte, take(2).substr(1)};
        default:
            return isLetter(c) ? word() : RtfToken{Kind::Word, take(2).substr(1)};
    }
}

RtfToken RtfTokens::hexByte() {
    constexpr int kHexadecimal = 16;
    const std::string_view digits = rest_.substr(2, 2);
    unsigned char value = 0;
    const char* const end = digits.data() + digits.size();
    if (std::from_chars(digits.data(), end, value, kHexadecimal).ptr != end || digits.size() < 2)
        return {Kind::Damaged};
    take(4);
    byte_ = static_cast<char>(value);
    return {Kind::Byte, {&byte_, 1}};
}

RtfToken RtfTokens::word() {
    const std::string_view start = rest_;
    take(1);
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), isLetter);
    RtfToken token{Kind::Word, take(static_cast<std::size_t>(end - rest_.begin()))};
    token.number = takeNumber();
    if (rest_.starts_with(' ')) take(1);
    if (token.text == "bin") {
        const auto length = static_cast<std::size_t>(std::max(token.number.value_or(0), 0));
        if (length > rest_.size()) {
            rest_ = start;
            return {Kind::Damaged};
        }
        take(length);
    }
    return token;
}

std::optional<std::int32_t> RtfTokens::takeNumber() {
    const bool negative = rest_.starts_with('-');
    const std::size_t begin = negative ? 1 : 0;
    const std::size_t end = std::min(rest_.find_first_not_of(kDigits, begin), rest_.size());
    if (end <= begin) return {};
    const std::string_view digits = take(end);
    std::int32_t value = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc()) return value;
    using Limits = std::numeric_limits<std::int32_t>;
    return negative ? Limits::min() : Limits::max();
}

std::string_view RtfTokens::take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(taken.size());
    return taken;
}

}  // namespace brindlex
