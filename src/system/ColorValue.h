#pragma once

#include <QColor>
#include <QPalette>
#include <cstdint>

namespace brindlex {

/// A colour as properties and settings hold it: 0x00BBGGRR, or with the top bit set the index of a
/// system colour in the low byte (the indices of the Windows function GetSysColor: 5 window
/// background, 8 window text, 15 button face ...).
class ColorValue {
  public:
    constexpr ColorValue() = default;
    explicit constexpr ColorValue(std::uint32_t value) : value_(value) {}
    static ColorValue of(const QColor& color);
    constexpr std::uint32_t value() const { return value_; }
    constexpr bool isSystem() const { return (value_ & 0x80000000U) != 0; }
    /// The channels of a plain colour.
    constexpr QRgb rgb() const {
        return qRgb(static_cast<int>(value_ & 0xFF), static_cast<int>(value_ >> 8 & 0xFF),
                    static_cast<int>(value_ >> 16 & 0xFF));
    }
    /// The colour on the screen; an unknown system index gives black.
    QColor resolve(const QPalette& palette) const;
    /// A system colour as the plain colour that it is now; any other value unchanged.
    ColorValue plain(const QPalette& palette) const;
    constexpr bool operator==(const ColorValue&) const = default;

  private:
    std::uint32_t value_ = 0;
};

}  // namespace brindlex
