#pragma once

#include <string>

#include "platform/text/Rope.h"

namespace brindlex {

/// The stretch of the longer of two texts (of `a` when they are equally long) that ends in front of
/// the 1-based `position` and is as long as their difference. What of it lies outside of the text
/// is left out.
std::string TextDifference(const Rope& a, const Rope& b, Long position);

}  // namespace brindlex
