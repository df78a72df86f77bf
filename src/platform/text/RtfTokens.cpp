#include "platform/text/RtfTokens.h"

#include <algorithm>
#include <array>
#include <limits>

namespace brindlex {
namespace {

constexpr std::string_view kNoMeaning("\r\n\0", 3);

constexpr std::array<bool, 256> kEndsText = [] {
    std::array<bool, 256> table{};
    for (const unsigned char c : {'\\', '{', '}', '\r', '\n', '\0'}) table[c] = true;
    return table;
}();

bool endsText(char c) {
    return kEndsText[static_cast<unsigned char>(c)];
}
bool isLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

int hexValue(char c) {
    if (isDigit(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

}  // namespace

RtfToken RtfTokens::next() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kNoMeaning), rest_.size()));
    if (rest_.empty()) return {RtfToken::Kind::End};
    switch (rest_.front()) {
        case '{':
            take(1);
            return {RtfToken::Kind::GroupBegin};
        case '}':
            take(1);
            return {RtfToken::Kind::GroupEnd};
        case '\\':
            return controlToken();
        default:
            return textToken();
    }
}

RtfToken RtfTokens::textToken() {
    const auto end = std::find_if(rest_.begin(), rest_.end(), endsText);
    return {RtfToken::Kind::Text, take(static_cast<std::size_t>(end - rest_.begin()))};
}

RtfToken RtfTokens::controlToken() {
    if (rest_.size() < 2) return {RtfToken::Kind::Damaged};
    const char c = rest_[1];
    if (c == '\'') return hexToken();
    if (isLetter(c)) return wordToken();
    take(2);
    return {RtfToken::Kind::Symbol, {}, {}, static_cast<unsigned char>(c)};
}

RtfToken RtfTokens::hexToken() {
    const int high = rest_.size() < 4 ? -1 : hexValue(rest_[2]);
    const int low = rest_.size() < 4 ? -1 : hexValue(rest_[3]);
    if (high < 0 || low < 0) return {RtfToken::Kind::Damaged};
    take(4);
    return {RtfToken::Kind::Hex, {}, {}, static_cast<unsigned char>(high * 16 + low)};
}

RtfToken RtfTokens::wordToken() {
    const std::string_view start = rest_;
    take(1);
    const auto end = std::find_if_not(rest_.begin(), rest_.end(), isLetter);
    const std::string_view name = take(static_cast<std::size_t>(end - rest_.begin()));
    const RtfNumber number = takeNumber();
    if (!rest_.empty() && rest_.front() == ' ') take(1);
    if (name == "bin") {
        const auto length = static_cast<std::size_t>(std::max(number.value_or(0), 0));
        if (length > rest_.size()) {
            rest_ = start;
            return {RtfToken::Kind::Damaged};
        }
        take(length);
    }
    return {RtfToken::Kind::Word, name, number};
}

RtfNumber RtfTokens::takeNumber() {
    const bool negative = rest_.size() > 1 && rest_[0] == '-' && isDigit(rest_[1]);
    if (negative) take(1);
    if (rest_.empty() || !isDigit(rest_.front())) return {};
    using Limits = std::numeric_limits<std::int32_t>;
    constexpr std::int64_t kEnough = std::int64_t{Limits::max()} + 1;
    std::int64_t value = 0;
    while (!rest_.empty() && isDigit(rest_.front())) {
        value = std::min(value * 10 + (take(1).front() - '0'), kEnough);
    }
    if (negative) value = -value;
    return static_cast<std::int32_t>(std::min<std::int64_t>(value, Limits::max()));
}

std::string_view RtfTokens::take(std::size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return taken;
}

}  // namespace brindlex
