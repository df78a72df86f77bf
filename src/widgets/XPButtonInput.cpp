// Pointer and keys of a button. It is still there after each event: handlers only call deleteLater.

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>

#include "system/CodePage.h"
#include "system/KeyCodes.h"
#include "widgets/XPButton.h"

namespace brindlex {
namespace {

constexpr int kLeftButton = 1;
constexpr int kNoButton = -1;
constexpr int kShiftKey = 16;
constexpr int kSpace = 32;
constexpr int kFirstArrow = 37;
constexpr int kLastArrow = 40;

constexpr bool isArrow(int keyCode) {
    return keyCode >= kFirstArrow && keyCode <= kLastArrow;
}

/// KeyAscii of each character that a key makes.
std::string asciiOf(const QKeyEvent& event) {
    if (makesCharacters(event)) return CodePage::system().fromUnicode(event.text());
    const int code = controlCodeOf(event);
    return code == 0 ? std::string() : std::string(1, static_cast<char>(code));
}

template <typename Event, typename... Arguments>
void raiseEvent(const Event& event, Arguments&... arguments) {
    if (const Event handler = event) handler(arguments...);  // a copy: it may replace itself
}

}  // namespace

// --- Hover --------------------------------------------------------------------------------------

/// Some systems say where the pointer is only while it is over a window of the program.
bool XPButton::isUnderPointer() const {
    return !pointerLeft_ && QApplication::widgetAt(QCursor::pos()) == this;
}

void XPButton::followPointer() {
    pointerLeft_ = false;
    liftIfReleased();
    if (state().Hovering || !isUnderPointer()) return;
    state_.set(XPButtonState::kOver, true);
    state_.Hovering = true;
    tmrHover_.start();
    raiseEvent(events.MouseEnter);
    DelayDrawing(false);
}

void XPButton::tmrHover_Timer() {
    if (isUnderPointer()) return;
    tmrHover_.stop();
    state_.Hovering = false;
    state_.set(XPButtonState::kOver, false);
    DelayDrawing(false);
    raiseEvent(events.MouseLeave);
    Refresh();
}

/// The button may have come to a pointer that rests.
void XPButton::enterEvent(QEnterEvent*) {
    if (isEnabled()) followPointer();
}

void XPButton::leaveEvent(QEvent*) {
    pointerLeft_ = true;
    firstPress_ = 0;
}

// --- Down and up --------------------------------------------------------------------------------

/// Ends the delay; what is raised next may take its time.
void XPButton::redrawAtOnce() {
    DelayDrawing(false);
    showRedraw();
}

void XPButton::setDown(bool down) {
    if (state().has(XPButtonState::kDown) == down) return;
    state_.set(XPButtonState::kDown, down);
    QAccessible::State changed;
    changed.pressed = true;
    announce(changed);
}

/// Without a click: the release goes elsewhere.
void XPButton::lift() {
    leftHeld_ = false;
    setDown(false);
    Redraw();
}

/// Another window may have got the release: one that a handler has opened, for instance.
void XPButton::liftIfReleased() {
    if (leftHeld_ && !(QGuiApplication::mouseButtons() & Qt::LeftButton)) lift();
}

void XPButton::hideEvent(QHideEvent*) {
    lift();
}

// --- Mouse --------------------------------------------------------------------------------------

void XPButton::UserControl_MouseDown(int Button, int Shift, float X, float Y) {
    LastButton_ = Button;
    if (Button == kLeftButton) {
        leftHeld_ = true;
        setDown(true);
        redrawAtOnce();
    }
    raiseEvent(events.MouseDown, Button, Shift, X, Y);
}

void XPButton::UserControl_MouseMove(int Button, int Shift, float X, float Y) {
    followPointer();
    raiseEvent(events.MouseMove, Button, Shift, X, Y);
}

void XPButton::UserControl_MouseUp(int Button, int Shift, float X, float Y) {
    if (Button == kLeftButton) {
        leftHeld_ = false;
        setDown(false);
        redrawAtOnce();
    }
    raiseEvent(events.MouseUp, Button, Shift, X, Y);
    LastButton_ = Button;
}

void XPButton::UserControl_Click() {
    if (LastButton_ == kLeftButton) raiseEvent(events.Click);
}

void XPButton::UserControl_DblClick() {
    const QPoint pointer = mapFromGlobal(QCursor::pos());
    int Button = kLeftButton;
    int Shift = 0;
    auto X = static_cast<float>(pointer.x());
    auto Y = static_cast<float>(pointer.y());
    raiseEvent(events.DblClick, LastButton_);
    if (LastButton_ != kLeftButton) return raiseEvent(events.MouseDown, Button, Shift, X, Y);
    UserControl_MouseDown(Button, Shift, X, Y);
    LastButton_ = kNoButton;
}

void XPButton::mousePressEvent(QMouseEvent* event) {
    const int button = mouseButtonsOf(event->button());
    if (button == 0) return event->ignore();
    firstPress_ = button;
    followPointer();
    const QPointF place = event->position();
    UserControl_MouseDown(button, shiftOf(event->modifiers()), place.x(), place.y());
}

/// The toolkit counts the presses in a window, and the first one may have been elsewhere.
void XPButton::mouseDoubleClickEvent(QMouseEvent* event) {
    const int button = mouseButtonsOf(event->button());
    if (button == 0 || button != firstPress_) return mousePressEvent(event);
    followPointer();
    LastButton_ = button;  // an access key may have come between
    UserControl_DblClick();
}

void XPButton::mouseMoveEvent(QMouseEvent* event) {
    const QPointF place = event->position();
    UserControl_MouseMove(mouseButtonsOf(event->buttons()), shiftOf(event->modifiers()), place.x(),
                          place.y());
}

void XPButton::mouseReleaseEvent(QMouseEvent* event) {
    const int button = mouseButtonsOf(event->button());
    if (button == 0) return event->ignore();
    const QPointF place = event->position();
    const bool clicks = leftHeld_ && button == kLeftButton && isOnFace(event->pos());
    UserControl_MouseUp(button, shiftOf(event->modifiers()), place.x(), place.y());
    if (clicks) UserControl_Click();
}

// --- Keys ---------------------------------------------------------------------------------------

/// Shows one pressed frame wherever the pointer is; the next one follows the pointer.
void XPButton::pressSpace() {
    setDown(true);
    state_.set(XPButtonState::kOver, true);
    Redraw();
    showRedraw();
    state_.set(XPButtonState::kOver, state().Hovering);
}

void XPButton::UserControl_KeyDown(int& KeyCode, int Shift, const QKeyEvent& key) {
    if (isArrow(KeyCode)) {
        KeyCode = 0;
        passToContainer(key);
    }
    const bool isDown = state().has(XPButtonState::kDown);
    if (KeyCode == kSpace && !isDown && !key.isAutoRepeat()) pressSpace();
    if (KeyCode != 0) raiseEvent(events.KeyDown, KeyCode, Shift);
}

void XPButton::UserControl_KeyPress(int KeyAscii) {
    raiseEvent(events.KeyPress, KeyAscii);
}

void XPButton::UserControl_KeyUp(int& KeyCode, int Shift) {
    if (KeyCode == kSpace && state().has(XPButtonState::kDown)) {
        LastButton_ = kLeftButton;
        setDown(false);
        Redraw();
        showRedraw();
        UserControl_Click();
    }
    if (isArrow(KeyCode) || KeyCode == kShiftKey) KeyCode = 0;
    if (KeyCode > 0) raiseEvent(events.KeyUp, KeyCode, Shift);
}

void XPButton::UserControl_AccessKeyPress(int KeyAscii) {
    const bool formKey = KeyAscii == kAsciiEscape || KeyAscii == kAsciiEnter;
    if (!formKey && !state().has(XPButtonState::kDefault)) Redraw();
    LastButton_ = kLeftButton;
    UserControl_Click();
}

void XPButton::keyPressEvent(QKeyEvent* event) {
    int KeyCode = keyCodeOf(*event);
    if (KeyCode == kAsciiEnter && host().DisplayAsDefault()) {
        if (!event->isAutoRepeat()) UserControl_AccessKeyPress(kAsciiEnter);
        return;
    }
    const bool isSpace = KeyCode == kSpace;
    UserControl_KeyDown(KeyCode, shiftOf(event->modifiers()), *event);
    event->setAccepted(isSpace || KeyCode == 0);
    if (KeyCode == 0) return;
    for (const char character : asciiOf(*event))
        UserControl_KeyPress(static_cast<unsigned char>(character));
}

void XPButton::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat()) return;
    int KeyCode = keyCodeOf(*event);
    const bool isSpace = KeyCode == kSpace;
    UserControl_KeyUp(KeyCode, shiftOf(event->modifiers()));
    event->setAccepted(isSpace || KeyCode == 0);
}

/// A container that does nothing with the key leaves the step to the next or previous widget.
void XPButton::passToContainer(const QKeyEvent& key) {
    QKeyEvent copy(key.type(), key.key(), key.modifiers());
    if (QWidget* const container = parentWidget()) QCoreApplication::sendEvent(container, &copy);
    const bool forward = key.key() == Qt::Key_Right || key.key() == Qt::Key_Down;
    if (hasFocus() && !copy.isAccepted()) focusNextPrevChild(forward);
}

}  // namespace brindlex
