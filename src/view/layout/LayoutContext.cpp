#include "view/layout/LayoutContext.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <algorithm>
#include <cmath>

#include "system/ColorValue.h"

namespace brindlex {
namespace {

/// Characters of no width or no shape of their own.
bool hasNoShape(QChar character) {
    const QChar::Category category = character.category();
    return character != u'\t' &&
           (category == QChar::Other_Control || category == QChar::Other_Format ||
            category == QChar::Other_PrivateUse || category == QChar::Other_NotAssigned);
}

bool isRightToLeft(QChar character) {
    return character.direction() == QChar::DirR || character.direction() == QChar::DirAL;
}

/// The font itself, or where it is not installed the face that the system takes for it if that is
/// fixed-pitch, else the system's fixed-pitch one.
QFont screenFont(const QFont& font) {
    QFont shown = font;
    shown.setKerning(false);
    shown.setStyleStrategy(QFont::PreferNoShaping);
    if (QFontDatabase::hasFamily(font.family())) return shown;
    shown.setStyleHint(QFont::Monospace);
    const QFontInfo substitute(shown);
    const QString family = substitute.fixedPitch()
                               ? substitute.family()
                               : QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    shown.setFamilies(QStringList(family));
    return shown;
}

}  // namespace

LayoutContext::LayoutContext(const CodePage& codePage) {
    for (std::size_t byte = 0; byte < characters_.size(); ++byte) {
        const QChar character(codePage.characters().unicode(static_cast<unsigned char>(byte)));
        standIn_[byte] = hasNoShape(character);
        characters_[byte] = standIn_[byte] ? kStandIn : character.unicode();
        hasRightToLeft_ |= isRightToLeft(character);
    }
    setFont(QFont());
}

void LayoutContext::setFont(const QFont& font) {
    font_ = screenFont(font);
    const QFontMetricsF metrics(font_);
    ascent_ = metrics.ascent();
    descent_ = metrics.descent() + std::max(0.0, metrics.leading());
    for (std::size_t byte = 0; byte < characters_.size(); ++byte)
        advances_[byte] = metrics.horizontalAdvance(QString(QChar(characters_[byte])));
    advances_['\t'] = 0;
    constexpr int kTabColumns = 8;
    tabDistance_ = std::max(1.0, kTabColumns * averageAdvance());
}

qreal LayoutContext::nextTabStop(qreal x) const {
    return (std::floor(x / tabDistance_ + kRoundingError) + 1) * tabDistance_;
}

qreal LayoutContext::wholePixels(qreal height) const {
    return std::ceil(height * pixelRatio_ - kRoundingError) / pixelRatio_;
}

qreal LayoutContext::nearestPixel(qreal place) const {
    return std::round(place * pixelRatio_) / pixelRatio_;
}

QString LayoutContext::glyphText(std::string_view bytes) const {
    QString text(static_cast<qsizetype>(bytes.size()), Qt::Uninitialized);
    std::transform(bytes.begin(), bytes.end(), text.data(), [this](char byte) {
        return QChar(characters_[static_cast<unsigned char>(byte)]);
    });
    return text;
}

void LayoutContext::setBackground(const QColor& background) {
    background_ = background;
    readable_ = ReadableColor(background);
}

QColor LayoutContext::color(ColorRef color) const {
    return readable_.shown(ColorValue(color).rgb());
}

QColor LayoutContext::standInColor() const {
    const QColor text = color(0);
    return QColor((text.red() + background_.red()) / 2, (text.green() + background_.green()) / 2,
                  (text.blue() + background_.blue()) / 2);
}

}  // namespace brindlex
