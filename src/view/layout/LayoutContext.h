#pragma once

#include <QColor>
#include <QFont>
#include <QString>
#include <array>
#include <string_view>

#include "system/CodePage.h"
#include "text/Formats.h"
#include "view/layout/ReadableColor.h"

namespace brindlex {

/// Less than that beside a whole number is the computer's inaccuracy.
inline constexpr qreal kRoundingError = 1e-6;

/// What all lines of a view have in common: the font, the height of a row, the tab stops, the
/// characters of the code page and how colours show on the background. Lengths are in logical
/// pixels.
class LayoutContext {
  public:
    /// `codePage` must outlive this object.
    explicit LayoutContext(const CodePage& codePage);

    /// A font that is not installed is replaced by a fixed-pitch one.
    void setFont(const QFont& font);
    /// The font on the screen. Characters keep their width whatever stands beside them: no kerning,
    /// no ligatures.
    const QFont& font() const { return font_; }
    void setDevicePixelRatio(qreal ratio) { pixelRatio_ = ratio; }
    /// `height` rounded up to whole device pixels.
    qreal wholePixels(qreal height) const;
    /// `place` rounded to the nearest edge of a device pixel.
    qreal nearestPixel(qreal place) const;

    /// The height of every line, in whole device pixels.
    qreal rowHeight() const { return wholePixels(baseline() + descent_); }
    /// From the top of a row.
    qreal baseline() const { return wholePixels(ascent_); }
    /// The width of a byte's character when it stands alone; 0 for a tab.
    qreal advance(unsigned char byte) const { return advances_[byte]; }
    /// The width of a usual character; for estimates.
    qreal averageAdvance() const { return advances_['x']; }
    /// The first tab stop behind `x`; the stops are eight columns apart.
    qreal nextTabStop(qreal x) const;

    /// One UTF-16 unit for each byte: its character, or kStandIn for one that has no shape (a
    /// control, NUL, a byte that the code page leaves undefined).
    QString glyphText(std::string_view bytes) const;
    static constexpr char16_t kStandIn = u'\u00B7';
    bool isStandIn(unsigned char byte) const { return standIn_[byte]; }
    /// Whether the code page has letters that run from right to left.
    bool hasRightToLeft() const { return hasRightToLeft_; }

    void setBackground(const QColor& background);
    QColor color(ColorRef color) const;
    QColor standInColor() const;

  private:
    QFont font_;
    ReadableColor readable_{Qt::white};
    QColor background_ = Qt::white;
    qreal pixelRatio_ = 1;
    qreal ascent_ = 0;
    qreal descent_ = 0;
    qreal tabDistance_ = 1;
    std::array<qreal, 256> advances_{};
    std::array<char16_t, 256> characters_{};
    std::array<bool, 256> standIn_{};
    bool hasRightToLeft_ = false;
};

}  // namespace brindlex
