#include "widgets/MaskBitmap.h"

#include <cstdlib>

namespace brindlex {
namespace {

constexpr int kTolerance = 3;

/// For each pixel of a premultiplied image.
template <typename Change>
void changePixels(QImage& image, Change change) {
    for (int y = 0; y < image.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) line[x] = change(line[x]);
    }
}

bool isClose(QRgb a, QRgb b) {
    return std::abs(qRed(a) - qRed(b)) <= kTolerance &&
           std::abs(qGreen(a) - qGreen(b)) <= kTolerance &&
           std::abs(qBlue(a) - qBlue(b)) <= kTolerance &&
           std::abs(qAlpha(a) - qAlpha(b)) <= kTolerance;
}

/// An icon much larger than its copy loses pixels first, so that the time for a copy follows the
/// size of the copy.
QImage thinned(const QImage& image, const QSize& size) {
    constexpr int kFiner = 4;
    const QSize enough = (size * kFiner).boundedTo(image.size());
    return enough == image.size() ? image : image.scaled(enough);
}

/// Whole multiples stay sharp.
QImage scaledIcon(const QImage& image, const QSize& size) {
    if (size.width() % image.width() == 0 && size.height() % image.height() == 0)
        return image.scaled(size);
    return thinned(image, size)
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// Scaled without mixtures of the key colour and others, which would stay as a fringe.
QImage scaledBitmap(const QImage& image, const QSize& size) {
    QImage copy = image.scaled(size);
    if (copy.isNull()) return copy;  // too large for the memory
    const QRgb key = *reinterpret_cast<const QRgb*>(copy.constScanLine(0));
    changePixels(copy, [key](QRgb pixel) { return isClose(pixel, key) ? 0 : pixel; });
    return copy;
}

QRgb greyed(QRgb pixel) {
    const int alpha = qAlpha(pixel);
    const int white = 255 - alpha;
    const bool showsWhite =
        qRed(pixel) + white >= 255 && qGreen(pixel) + white >= 255 && qBlue(pixel) + white >= 255;
    return showsWhite ? 0 : qPremultiply(qRgba(0x80, 0x80, 0x80, alpha));
}

}  // namespace

void MaskBitmap::PrepareMask(const ButtonPicture& picture, const QSize& size, double pixelRatio) {
    if (picture.isNone() || size.isEmpty()) {
        *this = MaskBitmap();
        return;
    }
    const Source source{picture.image().cacheKey(), picture.isIcon(), size, pixelRatio};
    if (source == source_) return;
    source_ = source;
    disabled_ = QImage();
    const QSize pixels = (QSizeF(size) * pixelRatio).toSize().expandedTo({1, 1});
    image_ = (picture.isIcon() ? scaledIcon : scaledBitmap)(picture.image(), pixels);
    image_.setDevicePixelRatio(pixelRatio);
}

const QImage& MaskBitmap::disabledImage() {
    if (disabled_.isNull() && !image_.isNull()) {
        disabled_ = image_;
        changePixels(disabled_, greyed);
    }
    return disabled_;
}

}  // namespace brindlex
