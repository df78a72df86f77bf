#include "widgets/ButtonPicture.h"

#include <QPixmap>
#include <algorithm>

namespace brindlex {
namespace {

/// For an icon that has no images of its own but draws itself.
constexpr QSize kUsualIconSize(32, 32);

QSize largestSize(const QIcon& icon) {
    const QList<QSize> sizes = icon.availableSizes();
    const auto largest =
        std::max_element(sizes.begin(), sizes.end(), [](const QSize& a, const QSize& b) {
            return qint64{a.width()} * a.height() < qint64{b.width()} * b.height();
        });
    return largest == sizes.end() ? kUsualIconSize : *largest;
}

}  // namespace

ButtonPicture::ButtonPicture(const QImage& image, bool icon)
    : image_(image.isNull() ? QImage()
                            : image.convertToFormat(QImage::Format_ARGB32_Premultiplied)),
      icon_(icon && !image_.isNull()) {
    image_.setDevicePixelRatio(1);
}

ButtonPicture ButtonPicture::bitmap(const QImage& image) {
    return {image, false};
}

ButtonPicture ButtonPicture::icon(const QImage& image) {
    return {image, true};
}

ButtonPicture ButtonPicture::icon(const QIcon& icon) {
    return {icon.pixmap(largestSize(icon), 1.0).toImage(), true};
}

ButtonPicture ButtonPicture::of(const QVariant& stored) {
    const int type = stored.typeId();
    if (type == QMetaType::QImage) return bitmap(stored.value<QImage>());
    if (type == QMetaType::QPixmap) return bitmap(stored.value<QPixmap>().toImage());
    if (type == QMetaType::QIcon) return icon(stored.value<QIcon>());
    return {};
}

QVariant ButtonPicture::toVariant() const {
    if (isNone()) return {};
    if (icon_) return QVariant::fromValue(QIcon(QPixmap::fromImage(image_)));
    return QVariant::fromValue(image_);
}

}  // namespace brindlex
