#include "widgets/XPButtonInput.h"

#include <Qt>

#include "platform/KeyCodes.h"
#include "widgets/XPButtonWindow.h"

namespace brindlex {
namespace {

using Look = XPButtonLook;

constexpr int kLeftButton = 1;
constexpr int kNoButton = -1;
constexpr int kShiftKey = 16;
constexpr int kFirstArrow = 37;
constexpr int kLastArrow = 40;

constexpr bool isArrow(int keyCode) {
    return keyCode >= kFirstArrow && keyCode <= kLastArrow;
}

}  // namespace

XPButtonInput::XPButtonInput(Look& look, XPButtonWindow& window, const XPButtonEvents& events)
    : look_(look), window_(window), events_(events) {}

/// False when the button is gone.
template <typename Event, typename... Arguments>
bool XPButtonInput::raise(const Event& event, Arguments&... arguments) {
    if (!event) return true;
    const std::weak_ptr<char> life = life_;
    const Event handler = event;  // outlives a button that it destroys
    handler(arguments...);
    return !life.expired();
}

void XPButtonInput::redrawUndelayed() {
    window_.setDelayDrawing(false);
    window_.redrawAtOnce();
}

// --- Mouse --------------------------------------------------------------------------------------

void XPButtonInput::hold(const XPButtonMouse& mouse) {
    held_ |= mouse.Button;
    onFace_ = mouse.onFace ? onFace_ | mouse.Button : onFace_ & ~mouse.Button;
}

void XPButtonInput::letGo(int buttons) {
    held_ &= ~buttons;
    onFace_ &= ~buttons;
}

void XPButtonInput::releaseLost(int buttons) {
    letGo(buttons);
    if ((buttons & kLeftButton) == 0 || !look_.has(Look::kDown)) return;
    look_.set(Look::kDown, false);
    window_.Redraw();
}

int XPButtonInput::stillHeld() const {
    return held_ & window_.heldButtons();
}

void XPButtonInput::noticeReleases() {
    noticeReleasesSince(held_);
}

/// A handler may have waited for the user, who let go meanwhile, or have hidden the button.
void XPButtonInput::noticeReleasesSince(int before) {
    releaseLost(before & ~stillHeld());
}

void XPButtonInput::UserControl_MouseDown(XPButtonMouse mouse) {
    hold(mouse);
    const int before = stillHeld();
    firstPress_ = mouse.Button;
    if (press(mouse)) noticeReleasesSince(before);
}

/// False when the button is gone. The button may have come to a pointer that rests.
bool XPButtonInput::press(XPButtonMouse mouse) {
    if (!noticePointer()) return false;
    LastButton_ = mouse.Button;
    if (mouse.Button == kLeftButton) {
        look_.set(Look::kDown, true);
        redrawUndelayed();
    }
    return raise(events_.MouseDown, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
}

void XPButtonInput::UserControl_MouseMove(XPButtonMouse mouse) {
    releaseLost(held_ & ~mouse.Button);
    if (noticePointer()) raise(events_.MouseMove, mouse.Button, mouse.Shift, mouse.X, mouse.Y);
}

bool XPButtonInput::noticePointer() {
    const bool entering = look_.has(Look::kOver);  // the handler of MouseEnter runs
    return look_.Hovering || entering || !window_.isUnderPointer() || startHover();
}

/// False when the button is gone.
bool XPButtonInput::startHover() {
    look_.set(Look::kOver, true);
    if (!raise(events_.MouseEnter)) return false;
    window_.setHoverTimer(true);
    look_.Hovering = true;
    redrawUndelayed();
    return true;
}

void XPButtonInput::tmrHover_Timer() {
    if (window_.isUnderPointer()) return;
    window_.setHoverTimer(false);
    look_.Hovering = false;
    look_.set(Look::kOver, false);
    window_.setDelayDrawing(false);
    if (raise(events_.MouseLeave)) redrawUndelayed();
}

void XPButtonInput::UserControl_MouseUp(XPButtonMouse mouse) {
    const bool clicked = mouse.onFace && (onFace_ & mouse.Button) != 0;
    letGo(mouse.Button);
    if (mouse.Button == kLeftButton) {
        look_.set(Look::kDown, false);
        redrawUndelayed();
    }
    if (!raise(events_.MouseUp, mouse.Button, mouse.Shift, mouse.X, mouse.Y)) return;
    LastButton_ = mouse.Button;
    if (clicked) UserControl_Click();
}

void XPButtonInput::UserControl_Click() {
    click();
}

/// False when the button is gone.
bool XPButtonInput::click() {
    return LastButton_ != kLeftButton || raise(events_.Click);
}

void XPButtonInput::UserControl_DblClick(const XPButtonMouse& second) {
    hold(second);
    const int before = stillHeld();
    LastButton_ = second.Button;  // an access key may have come between
    const QPoint place = window_.pointerPosition();
    XPButtonMouse mouse{kLeftButton, 0, static_cast<float>(place.x()),
                        static_cast<float>(place.y())};
    int button = LastButton_;  // the handler's: the button may be gone when it returns
    if (!raise(events_.DblClick, button)) return;
    LastButton_ = button;
    if (button == kLeftButton) {
        if (!press(mouse)) return;
        LastButton_ = kNoButton;
    } else if (!raise(events_.MouseDown, mouse.Button, mouse.Shift, mouse.X, mouse.Y)) {
        return;
    }
    noticeReleasesSince(before);
}

// --- Keys ---------------------------------------------------------------------------------------

void XPButtonInput::UserControl_KeyDown(XPButtonKey& key) {
    if (isArrow(key.KeyCode)) {
        key.KeyCode = 0;
        window_.postToContainer(key.forContainer);
    }
    if (key.KeyCode == kSpace && !key.repeats && !look_.has(Look::kDown)) pressSpace();
    if (key.KeyCode != 0) raise(events_.KeyDown, key.KeyCode, key.Shift);
}

/// Shows one pressed frame wherever the pointer is; the next one follows the pointer.
void XPButtonInput::pressSpace() {
    look_.set(Look::kDown, true);
    look_.set(Look::kOver, true);
    window_.redrawAtOnce();
    if (!look_.Hovering) look_.set(Look::kOver, false);
}

void XPButtonInput::UserControl_KeyUp(XPButtonKey& key) {
    if (key.KeyCode == kSpace && look_.has(Look::kDown)) {
        LastButton_ = kLeftButton;
        look_.set(Look::kDown, false);
        window_.redrawAtOnce();
        if (!click()) return;
    }
    if (isArrow(key.KeyCode) || key.KeyCode == kShiftKey) key.KeyCode = 0;
    if (key.KeyCode > 0) raise(events_.KeyUp, key.KeyCode, key.Shift);
}

void XPButtonInput::UserControl_KeyPress(int KeyAscii) {
    raise(events_.KeyPress, KeyAscii);
}

void XPButtonInput::UserControl_AccessKeyPress(int KeyAscii) {
    const bool formKey = KeyAscii == kAsciiEscape || KeyAscii == kAsciiEnter;
    if (!formKey && !look_.has(Look::kDefault)) window_.redrawAtOnce();
    LastButton_ = kLeftButton;
    click();
}

void XPButtonInput::focusLost() {
    if ((held_ & kLeftButton) == 0) releaseLost(kLeftButton);
}

}  // namespace brindlex
