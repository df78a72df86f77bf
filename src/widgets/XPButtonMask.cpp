#include "widgets/XPButtonMask.h"

#include <cmath>
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

/// A picture much larger than its copy is thinned out first, so that the time for a copy follows
/// the size of the copy.
QImage scaled(const QImage& image, const QSize& size) {
    const bool grows = size.width() > image.width() || size.height() > image.height();
    if (grows) return image.scaled(size);
    constexpr int kFiner = 4;
    const QSize between = size * kFiner;
    const bool isLarge = between.width() < image.width() && between.height() < image.height();
    return (isLarge ? image.scaled(between) : image)
        .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

QRgb greyed(QRgb pixel) {
    if (qAlpha(pixel) == 0) return 0;
    const int white = 255 - qAlpha(pixel);
    const bool showsWhite =
        qRed(pixel) + white >= 255 && qGreen(pixel) + white >= 255 && qBlue(pixel) + white >= 255;
    return showsWhite ? 0 : qRgb(0x80, 0x80, 0x80);
}

}  // namespace

void XPButtonMask::clear() {
    *this = XPButtonMask();
}

void XPButtonMask::prepare(const ButtonPicture& picture, const QSize& size, double pixelRatio) {
    if (picture.isNone() || size.isEmpty()) return clear();
    const Source source{picture.image().cacheKey(), picture.isIcon(), size, pixelRatio};
    if (source == source_) return;
    source_ = source;
    disabled_ = QImage();
    image_ = scaled(picture.image(), (QSizeF(size) * pixelRatio).toSize());
    if (!picture.isIcon()) {
        const QRgb key = *reinterpret_cast<const QRgb*>(image_.constScanLine(0));
        changePixels(image_, [key](QRgb pixel) { return isClose(pixel, key) ? 0 : pixel; });
    }
    image_.setDevicePixelRatio(pixelRatio);
}

const QImage& XPButtonMask::disabledImage() {
    if (disabled_.isNull() && !image_.isNull()) {
        disabled_ = image_;
        changePixels(disabled_, greyed);
    }
    return disabled_;
}

}  // namespace brindlex
