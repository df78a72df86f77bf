#pragma once

#include <QtGlobal>

namespace brindlex {

/// Converts between twips and logical pixels, at the logical resolution of the primary screen, or
/// 96 dots to the inch when there is none.
class Twips {
  public:
    static constexpr double kPerInch = 1440;

    /// Rounded to the nearest and clamped to the range of int; 0 for what is not a number.
    static int toPixels(double twips);
    static double fromPixels(double pixels);
};

}  // namespace brindlex
