#include "system/Twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cmath>
#include <limits>

namespace brindlex {
namespace {

double dotsPerInch() {
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchX() : 96;
}

}  // namespace

int Twips::toPixels(double twips) {
    const double pixels = std::round(twips * dotsPerInch() / kPerInch);
    if (std::isnan(pixels)) return 0;
    using Int = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<double>(pixels, Int::min(), Int::max()));
}

double Twips::fromPixels(double pixels) {
    return pixels * kPerInch / dotsPerInch();
}

}  // namespace brindlex
