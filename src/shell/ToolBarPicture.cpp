#include "shell/ToolBarPicture.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "system/Files.h"

namespace brindlex {
namespace {

constexpr int kLargest = 300;  // pixels to a side; a larger picture is scaled down when read

/// Whether the image data has its end. The decoder accepts data that breaks off, and fills the rest
/// with grey.
bool isWhole(const std::string& jpeg) {
    const std::size_t scan = jpeg.rfind("\xFF\xDA");
    return scan != std::string::npos && jpeg.find("\xFF\xD9", scan) != std::string::npos;
}

QImage readJpeg(const QString& path) {
    const std::string bytes = Files::read(path).value_or(std::string());
    if (!isWhole(bytes)) return {};
    const QImage image =
        QImage::fromData(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())), "JPG");
    const bool large = std::max(image.width(), image.height()) > kLargest;
    return (large
                ? image.scaled(kLargest, kLargest, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                : image)
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

template <typename Change>
void changePixels(QImage& image, Change change) {
    for (int y = 0; y < image.height(); ++y) {
        QRgb* const row = reinterpret_cast<QRgb*>(image.scanLine(y));
        std::transform(row, row + image.width(), row, change);
    }
}

/// The most transparent pixel, premultiplied, that looks like the opaque `pixel` on white.
QRgb withoutWhite(QRgb pixel) {
    const int white = std::min({qRed(pixel), qGreen(pixel), qBlue(pixel)});
    return qRgba(qRed(pixel) - white, qGreen(pixel) - white, qBlue(pixel) - white, 255 - white);
}

/// The premultiplied pixel with its lightness inverted; hue, saturation and alpha stay.
QRgb inverted(QRgb pixel) {
    const auto [least, most] = std::minmax({qRed(pixel), qGreen(pixel), qBlue(pixel)});
    const int shift = qAlpha(pixel) - most - least;
    return qRgba(qRed(pixel) + shift, qGreen(pixel) + shift, qBlue(pixel) + shift, qAlpha(pixel));
}

}  // namespace

const QPixmap& ToolBarPicture::pixmap(int side, qreal ratio, bool onDark) {
    if (!image_) {
        image_ = readJpeg(path_);
        changePixels(*image_, withoutWhite);
    }
    if (const Form form{side, ratio, onDark}; form_ != form) {
        pixmap_ = render(form);
        form_ = form;
    }
    return pixmap_;
}

QPixmap ToolBarPicture::render(const Form& form) const {
    if (image_->isNull()) return {};
    // Where a side is not a whole number of device pixels, a transparent rim widens the picture by
    // the same share as the square on the screen, so that the drawing is not stretched.
    const double side = form.side * form.ratio;
    const int shownSide = static_cast<int>(std::ceil(side));
    const double grown = shownSide / side;
    const QSize size(std::lround(image_->width() * grown), std::lround(image_->height() * grown));
    QImage image =
        image_->copy({QPoint(), size})
            .scaled(shownSide, shownSide, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
            .convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (form.onDark) changePixels(image, inverted);
    image.setDevicePixelRatio(form.ratio);
    return QPixmap::fromImage(std::move(image));
}

}  // namespace brindlex
