#pragma once

#include <QtGlobal>

namespace brindlex {

/// Lengths at the border between the product's twips (1440 to the inch) and logical pixels. The
/// logical resolution is that of the primary screen, 96 dots to the inch when there is none.
class Twips {
  public:
    /// Rounded to the nearest; what no int can hold is cut at its ends, no number gives 0.
    static int toPixels(double twips);
    static double fromPixels(double pixels);
};

}  // namespace brindlex
