#pragma once

#include "platform/text/Rope.h"

namespace brindlex {

/// The state of the editor just after a change. Records of neighbouring states share their text but
/// for what was changed.
struct UndoElement {
    Long SelStart = 0;
    Long TextLen = 0;
    Rope Text;
};

}  // namespace brindlex
