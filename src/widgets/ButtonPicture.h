#pragma once

#include <QIcon>
#include <QImage>
#include <QVariant>

namespace brindlex {

/// A picture object: none, a bitmap, or an icon. An image with nothing in it makes none. Copies
/// share their pixels.
class ButtonPicture {
  public:
    ButtonPicture() = default;
    static ButtonPicture bitmap(const QImage& image);
    static ButtonPicture icon(const QImage& image);
    /// From a QImage or QPixmap (a bitmap) or a QIcon; anything else gives none.
    static ButtonPicture of(const QVariant& stored);
    /// What `of` reads back; invalid for none.
    QVariant toVariant() const;

    bool isNone() const { return image_.isNull(); }
    bool isIcon() const { return icon_; }
    const QImage& image() const { return image_; }
    bool operator==(const ButtonPicture&) const = default;

  private:
    ButtonPicture(const QImage& image, bool icon);

    QImage image_;  // premultiplied, so that it comes back from a QIcon as it was
    bool icon_ = false;
};

}  // namespace brindlex
