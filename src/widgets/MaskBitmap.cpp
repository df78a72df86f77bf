#include "widgets/MaskBitmap.h"

#include <cstdlib>

namespace brindlex {
namespace {

bool isClose(QRgb a, QRgb b) {
    constexpr int kTolerance = 3;
    const auto close = [](int x, int y) { return std::abs(x - y) <= kTolerance; };
    return close(qRed(a), qRed(b)) && close(qGreen(a), qGreen(b)) && close(qBlue(a), qBlue(b)) &&
           close(qAlpha(a), qAlpha(b));
}

/// Whole multiples stay sharp.
QImage scaledIcon(const QImage& image, const QSize& size) {
    const bool whole = size.width() % image.width() == 0 && size.height() % image.height() == 0;
    return image
        .scaled(size, Qt::IgnoreAspectRatio,
                whole ? Qt::FastTransformation : Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// Not smoothed: mixtures of the key colour and others would stay as a fringe.
QImage scaledBitmap(const QImage& image, const QSize& size) {
    QImage copy = image.scaled(size);
    if (copy.isNull()) return copy;
    const QRgb key = *reinterpret_cast<const QRgb*>(copy.constScanLine(0));
    for (int y = 0; y < copy.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(copy.scanLine(y));
        for (int x = 0; x < copy.width(); ++x)
            if (isClose(line[x], key)) line[x] = 0;
    }
    return copy;
}

}  // namespace

QImage PrepareMask(const ButtonPicture& picture, const QSize& size, double pixelRatio) {
    if (picture.isNone() || size.isEmpty()) return {};
    const QSize pixels = (QSizeF(size) * pixelRatio).toSize().expandedTo({1, 1});
    QImage mask = (picture.isIcon() ? scaledIcon : scaledBitmap)(picture.image(), pixels);
    mask.setDevicePixelRatio(pixelRatio);
    return mask;
}

}  // namespace brindlex
