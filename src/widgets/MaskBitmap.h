#pragma once

#include <QImage>
#include <QSize>

#include "widgets/ButtonPicture.h"

namespace brindlex {

/// A copy of a picture at its drawn size, in logical pixels. A bitmap is transparent where the copy
/// has the colour of its pixel (0, 0), or one that differs by at most 3 in each channel. Null
/// without a picture or room, or when it does not fit into the memory. Visits every pixel of the
/// copy.
QImage PrepareMask(const ButtonPicture& picture, const QSize& size, double pixelRatio);

}  // namespace brindlex
