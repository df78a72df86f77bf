#pragma once

#include <functional>

namespace brindlex {

/// What a button tells its user. Arguments are by reference: a handler may change them. Button: 1
/// left, 2 right, 4 middle. Shift: 1 Shift, 2 Ctrl, 4 Alt, summed up. X and Y: pixels of the
/// button. A handler may do anything to the button, delete it too.
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
