#pragma once

namespace brindlex {

/// Shows every XPButton to assistive technology as a push button that is named by its caption, or
/// by its tool tip without one, and can be pressed. May be called any number of times.
void installXPButtonAccessible();

}  // namespace brindlex
