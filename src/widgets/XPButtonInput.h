#pragma once

#include <memory>

#include "widgets/XPButtonEvents.h"
#include "widgets/XPButtonMembers.h"

namespace brindlex {

class XPButtonWindow;

/// The mouse press, the key press or the pointer as the handlers get it.
struct XPButtonMouse {
    int Button = 0;
    int Shift = 0;
    float X = 0;
    float Y = 0;
};

/// Mouse, keys and hover of a button: keeps its flags and raises its events. Each handler may end
/// in the destruction of the button by an event.
class XPButtonInput {
  public:
    static constexpr int kHoverInterval = 50;  ///< milliseconds between calls of tmrHover_Timer

    /// All outlive this object.
    XPButtonInput(XPButtonLook& look, XPButtonWindow& window, const XPButtonEvents& events);

    void UserControl_MouseDown(XPButtonMouse mouse);
    void UserControl_MouseMove(XPButtonMouse mouse);
    void UserControl_MouseUp(XPButtonMouse mouse);
    void UserControl_Click();
    void UserControl_DblClick();
    /// KeyCode is 0 afterwards when the key is consumed. `qtKey` is what goes to the container.
    void UserControl_KeyDown(int& KeyCode, int Shift, int qtKey);
    void UserControl_KeyPress(int KeyAscii);
    void UserControl_KeyUp(int KeyCode, int Shift);
    void UserControl_AccessKeyPress(int KeyAscii);
    void tmrHover_Timer();
    /// A held button or key whose release will not come: the button is up again, without a click.
    void abandonPress();

  private:
    void redrawNow();
    bool startHover();
    void pressSpace();
    bool press(XPButtonMouse mouse);
    bool click();
    template <typename Event, typename... Arguments>
    bool raise(const Event& event, Arguments&... arguments);

    XPButtonLook& look_;
    XPButtonWindow& window_;
    const XPButtonEvents& events_;
    int LastButton_ = 0;
    std::shared_ptr<char> life_ = std::make_shared<char>();  // expires with the button
};

}  // namespace brindlex
