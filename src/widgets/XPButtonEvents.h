#pragma once

#include <functional>

namespace brindlex {

/// The events of a button. Button: 1 left, 2 right, 4 middle; of a move the sum of those that are
/// held. Shift: the sum of 1 Shift, 2 Ctrl, 4 Alt. X and Y: pixels of the button. MouseLeave comes
/// up to 50 milliseconds after the pointer has left.
///
/// A handler may set members and handlers of the button, wait in an event loop of its own, and call
/// deleteLater: the button is gone when the event has been handled, and not before. It must not
/// delete the button at once, and what runs in a loop of its own must not delete it at all.
///
/// Arguments are passed by reference. A KeyCode set to 0 consumes the key. A Click follows MouseUp,
/// and a press follows DblClick, only if the handler leaves Button at 1. What a handler writes into
/// other arguments has no effect.
struct XPButtonEvents {
    using Mouse = std::function<void(int& Button, int& Shift, float& X, float& Y)>;
    using Key = std::function<void(int& KeyCode, int& Shift)>;

    Mouse MouseDown;
    Mouse MouseUp;
    Mouse MouseMove;
    Key KeyDown;
    std::function<void(int& KeyAscii)> KeyPress;
    Key KeyUp;
    std::function<void()> Click;
    std::function<void(int& Button)> DblClick;
    std::function<void()> MouseEnter;
    std::function<void()> MouseLeave;
};

}  // namespace brindlex
