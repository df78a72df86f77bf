#pragma once

#include <QtGlobal>

namespace brindlex {

/// Lengths at the border between the product's twips (kPerInch) and logical pixels. The
/// logical resolution is that of the primary screen, 96 dots to the inch when there is none.
class Twips {
  public:
    static constexpr double kPerInch = 1440;

    /// Rounded to the nearest; what no int can hold is cut at its ends, no number gives 0.
    static int toPixels(double twips);
    static double fromPixels(double pixels);
};

}  // namespace brindlex
