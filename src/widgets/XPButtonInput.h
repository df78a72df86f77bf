#pragma once

#include <QKeyCombination>
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

/// A key that goes down or up. KeyCode is 0 when it is consumed.
struct XPButtonKey {
    int KeyCode = 0;
    int Shift = 0;
    QKeyCombination forContainer;  ///< the same, as the container gets it
    bool repeats = false;          ///< it is held
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
    /// A press of that mouse button was the last one, and the pointer has stayed since.
    bool hasFirstPress(int mouseButton) const { return firstPress_ == mouseButton; }
    void forgetPress() { firstPress_ = 0; }
    /// `key` outlives the button, should a handler destroy that.
    void UserControl_KeyDown(XPButtonKey& key);
    void UserControl_KeyPress(int KeyAscii);
    /// `key` as with UserControl_KeyDown.
    void UserControl_KeyUp(XPButtonKey& key);
    void UserControl_AccessKeyPress(int KeyAscii);
    void tmrHover_Timer();
    /// The releases of these mouse buttons, summed up, will not come: without a click the button is
    /// up again.
    void releaseLost(int buttons);
    /// So it is with all that are held no longer.
    void noticeReleases();
    /// Begins to hover when the pointer is over the button. False when the button is gone.
    bool noticePointer();
    /// The release of a held key goes elsewhere.
    void focusLost();

  private:
    void hold(const XPButtonMouse& mouse);
    void letGo(int buttons);
    int stillHeld() const;
    void noticeReleasesSince(int before);
    void redrawUndelayed();
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
    int firstPress_ = 0;  // the mouse button that a double click may follow
    int held_ = 0;        // mouse buttons whose release is due, summed up
    int onFace_ = 0;      // those of them that were pressed on the face
    std::shared_ptr<char> life_ = std::make_shared<char>();  // expires with the button
};

}  // namespace brindlex
