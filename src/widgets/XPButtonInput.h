#pragma once

#include <memory>

#include "widgets/XPButtonEvents.h"
#include "widgets/XPButtonMembers.h"

namespace brindlex {

class XPButtonWindow;

/// A press, a release or a move of the mouse.
struct XPButtonMouse {
    int Button = 0;  ///< of a move: those that are held, summed up
    int Shift = 0;
    float X = 0;
    float Y = 0;
    bool onFace = false;  ///< inside of the button's region
};

/// Mouse, keys and hover of a button: keeps its flags, knows what holds it down, and raises its
/// events. Each handler may end in the destruction of the button by an event.
class XPButtonInput {
  public:
    static constexpr int kHoverInterval = 50;  ///< milliseconds between calls of tmrHover_Timer
    static constexpr int kEveryButton = 7;
    static constexpr int kSpace = 32;  ///< KeyCode of the space bar, which presses the button

    /// All outlive this object.
    XPButtonInput(XPButtonLook& look, XPButtonWindow& window, const XPButtonEvents& events);

    void UserControl_MouseDown(XPButtonMouse mouse);
    void UserControl_MouseMove(XPButtonMouse mouse);
    /// Ends in UserControl_Click when the button was pressed and released on the face.
    void UserControl_MouseUp(XPButtonMouse mouse);
    void UserControl_Click();
    /// `second` is the press that makes it a double click.
    void UserControl_DblClick(const XPButtonMouse& second);
    /// KeyCode is 0 afterwards when the key is consumed. `qtKey` is what goes to the container.
    void UserControl_KeyDown(int& KeyCode, int Shift, int qtKey);
    void UserControl_KeyPress(int KeyAscii);
    void UserControl_KeyUp(int KeyCode, int Shift);
    void UserControl_AccessKeyPress(int KeyAscii);
    void tmrHover_Timer();
    /// The releases of these mouse buttons, summed up, will not come: without a click the button is
    /// up again.
    void releaseLost(int buttons);
    /// So it is with all that are held no longer.
    void noticeReleases();
    /// The release of a held key goes elsewhere.
    void focusLost();

  private:
    void hold(const XPButtonMouse& mouse);
    void letGo(int buttons);
    void noticeReleasesSince(int before);
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
    int held_ = 0;    // mouse buttons whose release is due, summed up
    int onFace_ = 0;  // those of them that were pressed on the face
    std::shared_ptr<char> life_ = std::make_shared<char>();  // expires with the button
};

}  // namespace brindlex
