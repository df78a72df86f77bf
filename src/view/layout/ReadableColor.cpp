#include "view/layout/ReadableColor.h"

#include <algorithm>
#include <cmath>

namespace brindlex {
namespace {

double linear(double channel) {
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF());
}

QColor withLightness(const QColor& color, double lightness) {
    const QColor hsl = color.toHsl();
    return QColor::fromHslF(std::max(hsl.hslHueF(), 0.0F), hsl.hslSaturationF(),
                            static_cast<float>(lightness))
        .toRgb();
}

/// A colour of the same hue, on the way to black or white, that can be read.
QColor moved(const QColor& color, const QColor& background, bool lighter) {
    double unreadable = color.toHsl().lightnessF();
    double readable = lighter ? 1 : 0;
    constexpr int kSteps = 12;  // finer than a step of 8 bits
    for (int step = 0; step < kSteps; ++step) {
        const double middle = (unreadable + readable) / 2;
        const bool enough = ReadableColor::contrast(withLightness(color, middle), background) >=
                            ReadableColor::kReadable;
        (enough ? readable : unreadable) = middle;
    }
    // light on dark takes the place of dark on light, so that what was strong stays strong
    const double mirrored = 1 - color.toHsl().lightnessF();
    return withLightness(color,
                         lighter ? std::max(readable, mirrored) : std::min(readable, mirrored));
}

}  // namespace

ReadableColor::ReadableColor(const QColor& background)
    : background_(background),
      dark_(contrast(background, Qt::white) > contrast(background, Qt::black)) {}

double ReadableColor::contrast(const QColor& a, const QColor& b) {
    const auto [low, high] = std::minmax({luminance(a), luminance(b)});
    return (high + 0.05) / (low + 0.05);
}

QColor ReadableColor::shown(QRgb rgb) const {
    if (const auto known = shown_.constFind(rgb); known != shown_.constEnd()) return *known;
    constexpr int kKept = 4096;  // a text may hold any number of colours
    if (shown_.size() >= kKept) shown_.clear();
    const QColor color = QColor::fromRgb(rgb);
    const double needed = dark_ ? kReadable : kVanishing;
    const bool kept = contrast(color, background_) >= needed;
    return *shown_.insert(rgb, kept ? color : moved(color, background_, dark_));
}

}  // namespace brindlex
