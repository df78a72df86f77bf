#pragma once

#include <cassert>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <ostream>

namespace brindlex {

/// The number type of the control's product-named interface: wide enough for any offset, and able
/// to hold the negative numbers that callers may pass and are refused.
using Long = std::int64_t;

/// No text is longer.
inline constexpr std::size_t kMostBytes = 0x7FFFFFFF;

/// A position between two bytes of a text, 0-based. A line break CR LF counts two.
class Offset {
  public:
    constexpr Offset() = default;
    explicit constexpr Offset(std::size_t value) : value_(value) {}
    constexpr std::size_t value() const { return value_; }
    constexpr auto operator<=>(const Offset&) const = default;
    constexpr Offset operator+(std::size_t count) const { return Offset(value_ + count); }
    /// `count` is at most value().
    constexpr Offset operator-(std::size_t count) const {
        assert(count <= value_);
        return Offset(value_ - count);
    }
    /// The distance from `other`, which must not lie behind this one.
    constexpr std::size_t operator-(Offset other) const {
        assert(other.value_ <= value_);
        return value_ - other.value_;
    }

  private:
    std::size_t value_ = 0;
};

/// A line of a text, 0-based. A text without a line break has one line, line 0.
class LineIndex {
  public:
    constexpr LineIndex() = default;
    explicit constexpr LineIndex(std::size_t value) : value_(value) {}
    constexpr std::size_t value() const { return value_; }
    constexpr auto operator<=>(const LineIndex&) const = default;
    constexpr LineIndex operator+(std::size_t count) const { return LineIndex(value_ + count); }
    constexpr std::size_t operator-(LineIndex other) const {
        assert(other.value_ <= value_);
        return value_ - other.value_;
    }

  private:
    std::size_t value_ = 0;
};

/// A half-open stretch of a text: begin() belongs to it, end() does not.
class Range {
  public:
    constexpr Range() = default;
    constexpr Range(Offset begin, Offset end) : begin_(begin), end_(end) { assert(begin <= end); }
    static constexpr Range at(Offset begin, std::size_t length) { return {begin, begin + length}; }
    constexpr Offset begin() const { return begin_; }
    constexpr Offset end() const { return end_; }
    constexpr std::size_t length() const { return end_ - begin_; }
    constexpr bool empty() const { return begin_ == end_; }
    constexpr bool operator==(const Range&) const = default;

  private:
    Offset begin_;
    Offset end_;
};

inline std::ostream& operator<<(std::ostream& out, Offset offset) {
    return out << offset.value();
}
inline std::ostream& operator<<(std::ostream& out, LineIndex line) {
    return out << line.value();
}
inline std::ostream& operator<<(std::ostream& out, Range range) {
    return out << '[' << range.begin() << ", " << range.end() << ')';
}

}  // namespace brindlex
