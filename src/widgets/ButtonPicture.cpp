#include "widgets/ButtonPicture.h"

#include <QPixmap>

namespace brindlex {

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

ButtonPicture ButtonPicture::of(const QVariant& stored) {
    const int type = stored.typeId();
    if (type == QMetaType::QImage) return bitmap(stored.value<QImage>());
    if (type == QMetaType::QPixmap) return bitmap(stored.value<QPixmap>().toImage());
    if (type != QMetaType::QIcon) return {};
    const auto image = stored.value<QIcon>();
    return icon(image.pixmap(image.availableSizes().value(0), 1.0).toImage());
}

QVariant ButtonPicture::toVariant() const {
    if (isNone()) return {};
    if (icon_) return QVariant::fromValue(QIcon(QPixmap::fromImage(image_)));
    return QVariant::fromValue(image_);
}

}  // namespace brindlex
