#include "widgets/XPButtonColors.h"

#include <algorithm>
#include <cmath>

namespace brindlex {
namespace {

struct Channels {
    double red = 0;
    double green = 0;
    double blue = 0;
};

/// A full green or blue is 256, not 255.
Channels channelsOf(Bgr color) {
    const QRgb rgb = ColorValue(color).rgb();
    return {static_cast<double>(qRed(rgb)), qGreen(rgb) * 256 / 255.0, qBlue(rgb) * 256 / 255.0};
}

Bgr compose(int red, int green, int blue) {
    return ColorValue::of(qRgb(red, green, blue)).value();
}

int clamped(std::int64_t channel) {
    return static_cast<int>(std::clamp<std::int64_t>(channel, 0, 255));
}

Bgr shifted(Bgr color, std::int64_t shift, bool scaleBlue, bool invert) {
    const Channels channels = channelsOf(color);
    const auto red = static_cast<std::int64_t>(channels.red) + shift;
    const std::int64_t green = std::llround(channels.green) + shift;
    const std::int64_t whole = std::llround(channels.blue);
    const std::int64_t blue = whole + (scaleBlue ? shift * whole / 192 : shift);
    const Bgr result = compose(clamped(red), clamped(green), clamped(blue));
    return invert ? result ^ kWhite : result;
}

}  // namespace

Bgr AdjustColor(Bgr color, int shift, bool scaleBlue, bool avoidExtremes, bool invert) {
    const Bgr first = shifted(color, shift, scaleBlue, invert);
    const auto isExtreme = [](Bgr result) { return result == 0 || result == kWhite; };
    if (!avoidExtremes || !isExtreme(first)) return first;
    const std::int64_t turned = shift == 0 ? 64 : -std::int64_t{shift};
    const Bgr second = shifted(color, turned, scaleBlue, invert);
    return isExtreme(second) ? shifted(color, -turned, scaleBlue, invert) : second;
}

std::vector<Bgr> GradientColors(Bgr from, Bgr to, int count) {
    if (count <= 0) return {};
    std::vector<Bgr> colors{from};
    colors.reserve(static_cast<std::size_t>(count));
    Channels now = channelsOf(from);
    const Channels end = channelsOf(to);
    const double steps = std::max(count - 1, 1);
    const double red = (end.red - now.red) / steps;
    const double green = (std::round(end.green) - now.green) / steps;
    const double blue = (std::round(end.blue) - now.blue) / steps;
    const auto move = [](double& channel, double step) {
        channel = std::clamp(channel + step, 0.0, 255.0);
        return static_cast<int>(channel);
    };
    for (int i = 1; i < count; ++i) {
        const int r = move(now.red, red);
        const int g = move(now.green, green);
        colors.push_back(compose(r, g, move(now.blue, blue)));
    }
    return colors;
}

}  // namespace brindlex
