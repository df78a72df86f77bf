#pragma once

#include <functional>

namespace brindlex {

/// What a button tells its user. Button: 1 left, 2 right, 4 middle; of a move those that are held,
/// summed up. Shift: 1 Shift, 2 Ctrl, 4 Alt, summed up. X and Y: pixels of the button. MouseLeave
/// comes up to 50 milliseconds after the pointer has left. A handler may do anything to the button,
/// delete it too.
///
/// Arguments are by reference. A KeyCode set to 0 consumes the key. After MouseUp a Click follows
/// when Button is 1, after DblClick the button is held down when Button is 1. What a handler writes
/// into the others has no effect.
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
