#pragma once

#include <QImage>
#include <QSize>

#include "widgets/ButtonPicture.h"

namespace brindlex {

/// A picture at its drawn size. A bitmap is transparent where it has, at that size, the colour of
/// its pixel (0, 0) or one that differs by at most 3 in each channel.
class MaskBitmap {
  public:
    /// Makes the image for `size` in logical pixels, unless it is there. Reads every pixel of the
    /// result and, for an icon, up to 16 of the picture's for each of them.
    void PrepareMask(const ButtonPicture& picture, const QSize& size, double pixelRatio);
    /// Null without a picture or room, or when it does not fit into the memory.
    const QImage& image() const { return image_; }
    /// For a disabled button: grey wherever the picture is neither transparent nor white. Made on
    /// first use.
    const QImage& disabledImage();

  private:
    struct Source {
        qint64 picture = 0;
        bool isIcon = false;
        QSize size;
        double pixelRatio = 0;
        bool operator==(const Source&) const = default;
    };
    Source source_;
    QImage image_;
    QImage disabled_;
};

}  // namespace brindlex
