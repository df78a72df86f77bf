#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QString>
#include <QTextFormat>
#include <array>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/CodePage.h"
#include "platform/ReadableColor.h"
#include "platform/text/Formats.h"

namespace brindlex {

/// All that a line is laid out by besides its own text and formats: font, colours, tab stops, the
/// width at which it wraps. Lengths are in logical pixels of the screen, or in units of the device
/// that was given.
class LineStyle {
  public:
    /// How wide each byte is in one font, and how high the font is.
    struct Advances {
        std::array<qreal, 256> width;
        qreal ascent;
        qreal descent;
    };

    /// `device` is what is printed on; null for the screen. Both must outlive this object.
    explicit LineStyle(const CodePage& codePage, QPaintDevice* device = nullptr);

    void setFont(const QFont& font);
    /// The font on the screen or the device.
    const QFont& font() const { return font_; }
    void setBackground(const QColor& background);
    /// Rows are cut at `wrap`; 0 for never. `available` is the width in which text is aligned.
    void setWidth(qreal wrap, qreal available);
    qreal wrapWidth() const { return wrapWidth_; }
    qreal availableWidth() const { return availableWidth_; }
    bool wraps() const { return wrapWidth_ > 0; }
    void setBulletIndent(double twips) { bulletIndent_ = twips; }
    void setDevicePixelRatio(qreal ratio) { pixelRatio_ = ratio; }
    qreal devicePixelRatio() const { return pixelRatio_; }
    /// Lines of more bytes are laid out in pieces and never wrap. By default 10,000, or where
    /// nothing wraps kLongUnwrapped, since a piece shows the same and costs less.
    std::size_t longLine() const;
    static constexpr std::size_t kLongUnwrapped = 1'000;
    static constexpr std::size_t kLong = 10'000;
    /// For tests: another limit than the default.
    void setLongLine(std::size_t bytes) { longLine_ = bytes; }

    QPaintDevice* device() const { return device_; }
    qreal fromTwips(double twips) const;
    /// The smallest height of whole device pixels that is not below `height`.
    qreal wholePixels(qreal height) const;
    /// The edge of a device pixel that is nearest.
    qreal nearestPixel(qreal place) const;
    /// The distance of the tab stops that a paragraph does not set: eight columns of a fixed-pitch
    /// font, as in any editor of plain text and in every size, and 720 twips else.
    qreal tabDistance() const { return tabDistance_; }
    static constexpr QChar kBullet{u'\u2022'};
    /// Where a bulleted paragraph's text begins, from its indent.
    qreal bulletWidth() const;

    /// What shows for a byte, one UTF-16 unit: its character, or kStandIn for one that has no shape
    /// (a control, NUL, a byte that the code page leaves undefined).
    char16_t character(unsigned char byte) const { return characters_[byte]; }
    static constexpr char16_t kStandIn = u'\u00B7';
    bool isStandIn(unsigned char byte) const { return standIn_[byte]; }
    void appendTo(QString& text, std::string_view bytes) const;
    static bool isRightToLeft(QChar character);
    /// Whether the code page has letters that run from right to left.
    bool hasRightToLeft() const { return hasRightToLeft_; }

    QColor color(ColorRef color) const;
    QColor standInColor() const;
    /// Kept for as long as nothing new is asked for: valid until the next call of charFormat with
    /// another format, and until the font or the background is set.
    const QTextCharFormat& charFormat(const CharFormat& format) const;
    /// Valid until the next call of charFormat or advances with another format, and until the font
    /// is set.
    const Advances& advances(const CharFormat& format) const;
    /// The width of a character of the control's own font; for estimates.
    qreal averageAdvance() const { return base().width['x']; }
    /// The height of a row without other fonts.
    qreal baseRowHeight() const;

  private:
    const Advances& base() const;
    QFont fontOf(const CharFormat& format) const;
    std::unique_ptr<Advances> measured(const QFont& font) const;
    void fontChanged();

    const CodePage& codePage_;
    QPaintDevice* device_;
    QFont font_;
    ReadableColor readable_{Qt::white};
    QColor background_ = Qt::white;
    qreal wrapWidth_ = 0;
    qreal availableWidth_ = 0;
    double bulletIndent_ = 0;
    qreal pixelRatio_ = 1;
    qreal tabDistance_ = 0;
    std::size_t longLine_ = 0;
    std::array<char16_t, 256> characters_{};
    std::array<bool, 256> standIn_{};
    bool hasRightToLeft_ = false;
    mutable std::vector<std::pair<CharFormat, QTextCharFormat>> charFormats_;
    mutable std::vector<std::pair<CharFormat, std::unique_ptr<Advances>>> advances_;
};

}  // namespace brindlex
