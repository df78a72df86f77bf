#include "platform/LineStyle.h"

#include <QFontInfo>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "platform/ScreenFont.h"
#include "platform/Twips.h"

namespace brindlex {
namespace {

constexpr double kDefaultTabTwips = 720;
constexpr int kTabColumns = 8;

/// Characters of no width or no shape of their own.
bool hasNoShape(QChar character) {
    const QChar::Category category = character.category();
    return character != u'\t' &&
           (category == QChar::Other_Control || category == QChar::Other_Format ||
            category == QChar::Other_PrivateUse || category == QChar::Other_NotAssigned);
}

QRgb rgbOf(ColorRef color) {
    return qRgb(static_cast<int>(color & 0xFF), static_cast<int>(color >> 8 & 0xFF),
                static_cast<int>(color >> 16 & 0xFF));
}

}  // namespace

LineStyle::LineStyle(const CodePage& codePage, QPaintDevice* device)
    : codePage_(codePage), device_(device) {
    for (std::size_t byte = 0; byte < characters_.size(); ++byte) {
        const QChar character(codePage_.characters().unicode(static_cast<unsigned char>(byte)));
        standIn_[byte] = hasNoShape(character);
        characters_[byte] = standIn_[byte] ? kStandIn : character.unicode();
        hasRightToLeft_ |= isRightToLeft(character);
    }
    setFont(QFont());
}

void LineStyle::setFont(const QFont& font) {
    font_ = device_ ? QFont(screenFont(font), device_) : screenFont(font);
    fontChanged();
}

void LineStyle::fontChanged() {
    charFormats_.clear();
    advances_.clear();
    const bool fixed = QFontInfo(font_).fixedPitch();
    const qreal distance = fixed ? kTabColumns * averageAdvance() : fromTwips(kDefaultTabTwips);
    // the layout's own arithmetic is in 64ths
    tabDistance_ = std::max(1.0, std::round(distance * 64) / 64);
}

void LineStyle::setBackground(const QColor& background) {
    background_ = background;
    readable_ = ReadableColor(background);
    charFormats_.clear();
}

void LineStyle::setWidth(qreal wrap, qreal available) {
    wrapWidth_ = wrap;
    availableWidth_ = available;
}

std::size_t LineStyle::longLine() const {
    if (longLine_ > 0) return longLine_;
    return wraps() ? kLong : kLongUnwrapped;
}

qreal LineStyle::fromTwips(double twips) const {
    return device_ ? twips * device_->logicalDpiX() / Twips::kPerInch : Twips::toPixels(twips);
}

qreal LineStyle::wholePixels(qreal height) const {
    constexpr qreal kRoundingError = 1e-6;
    return std::ceil(height * pixelRatio_ - kRoundingError) / pixelRatio_;
}

qreal LineStyle::nearestPixel(qreal place) const {
    return std::round(place * pixelRatio_) / pixelRatio_;
}

qreal LineStyle::baseRowHeight() const {
    return wholePixels(wholePixels(base().ascent) + base().descent);
}

qreal LineStyle::bulletWidth() const {
    const QFontMetricsF metrics = device_ ? QFontMetricsF(font_, device_) : QFontMetricsF(font_);
    return metrics.horizontalAdvance(kBullet) + fromTwips(bulletIndent_);
}

bool LineStyle::isRightToLeft(QChar character) {
    return character.direction() == QChar::DirR || character.direction() == QChar::DirAL;
}

void LineStyle::appendTo(QString& text, std::string_view bytes) const {
    const qsizetype length = text.size();
    text.resize(length + static_cast<qsizetype>(bytes.size()));
    std::transform(bytes.begin(), bytes.end(), text.data() + length, [this](char byte) {
        return QChar(characters_[static_cast<unsigned char>(byte)]);
    });
}

QColor LineStyle::color(ColorRef color) const {
    return readable_.shown(rgbOf(color));
}

QColor LineStyle::standInColor() const {
    const QColor text = color(0);
    return QColor((text.red() + background_.red()) / 2, (text.green() + background_.green()) / 2,
                  (text.blue() + background_.blue()) / 2);
}

QFont LineStyle::fontOf(const CharFormat& format) const {
    QFont font = font_;
    if (!format.fontName.empty()) {
        QFont named = font;
        named.setFamilies({codePage_.toUnicode(format.fontName)});
        font = screenFont(named);
    }
    if (format.bold) font.setBold(true);
    if (format.italic) font.setItalic(true);
    if (format.fontHalfPoints > 0) font.setPointSizeF(format.fontHalfPoints / 2.0);
    return font;
}

const QTextCharFormat& LineStyle::charFormat(const CharFormat& format) const {
    for (const auto& [known, made] : charFormats_)
        if (known == format) return made;
    constexpr std::size_t kKept = 64;
    if (charFormats_.size() >= kKept) charFormats_.clear();
    QTextCharFormat made;
    made.setForeground(color(format.color));
    if (format.bold) made.setFontWeight(QFont::Bold);
    if (format.italic) made.setFontItalic(true);
    if (format.underline) made.setFontUnderline(true);
    if (format.strikeThrough) made.setFontStrikeOut(true);
    if (!format.fontName.empty()) made.setFontFamilies(fontOf(format).families());
    if (format.fontHalfPoints > 0) made.setFontPointSize(format.fontHalfPoints / 2.0);
    if (format.charOffset != 0) {
        const Advances& font = advances(format);
        made.setBaselineOffset(100 * fromTwips(format.charOffset) / (font.ascent + font.descent));
    }
    charFormats_.emplace_back(format, std::move(made));
    return charFormats_.back().second;
}

const LineStyle::Advances& LineStyle::base() const {
    return advances({});
}

const LineStyle::Advances& LineStyle::advances(const CharFormat& format) const {
    const auto sameFont = [&](const CharFormat& other) {
        return other.bold == format.bold && other.italic == format.italic &&
               other.fontHalfPoints == format.fontHalfPoints && other.fontName == format.fontName;
    };
    for (const auto& [known, made] : advances_)
        if (sameFont(known)) return *made;
    constexpr std::size_t kKept = 64;
    if (advances_.size() >= kKept) advances_.erase(advances_.begin() + 1, advances_.end());
    return *advances_.emplace_back(format, measured(fontOf(format))).second;
}

std::unique_ptr<LineStyle::Advances> LineStyle::measured(const QFont& font) const {
    const QFontMetricsF metrics = device_ ? QFontMetricsF(font, device_) : QFontMetricsF(font);
    auto advances = std::make_unique<Advances>();
    for (std::size_t byte = 0; byte < characters_.size(); ++byte)
        advances->width[byte] = metrics.horizontalAdvance(QString(QChar(characters_[byte])));
    advances->width['\t'] = 0;
    advances->ascent = metrics.ascent();
    advances->descent = metrics.descent() + std::max(0.0, metrics.leading());
    return advances;
}

}  // namespace brindlex
