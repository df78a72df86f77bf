#pragma once

#include <string>

#include "platform/text/Rope.h"

namespace brindlex {

/// The state of the editor just after a change. Records of neighbouring states share their text but
/// for what was changed.
struct UndoElement {
    Long SelStart = 0;
    Long TextLen = 0;
    Rope Text;
};

/// The stretch of the longer of two texts (of `a` when they are equally long) that ends in front of
/// the 1-based `position` and is as long as their difference. What of it lies outside of the text
/// is left out.
std::string TextDifference(const Rope& a, const Rope& b, Long position);

}  // namespace brindlex
