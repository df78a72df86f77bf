#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QShortcutEvent>

#include "platform/CodePage.h"
#include "platform/KeyCodes.h"
#include "widgets/XPButton.h"

namespace brindlex {
namespace {

/// KeyAscii of each character that a key makes.
std::string asciiOf(const QKeyEvent& event) {
    if (makesCharacters(event)) return CodePage::system().fromUnicode(event.text());
    const int code = controlCodeOf(event);
    return code == 0 ? std::string() : std::string(1, static_cast<char>(code));
}

XPButtonKey keyOf(const QKeyEvent& event) {
    return {keyCodeOf(event), shiftOf(event.modifiers()), event.keyCombination(),
            event.isAutoRepeat()};
}

}  // namespace

bool XPButton::event(QEvent* event) {
    if (event->type() != QEvent::Shortcut) return QWidget::event(event);
    const auto& shortcut = *static_cast<const QShortcutEvent*>(event);
    if (shortcut.isAmbiguous())
        setFocus(Qt::ShortcutFocusReason);
    else if (const QString key = model_.accessKey(); !key.isEmpty())
        UserControl_AccessKeyPress(key.at(0).unicode());
    return true;
}

/// What the toolkit does by itself with these changes is to paint, delayed drawing or not.
void XPButton::changeEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::FontChange:
            ComputeLayout();
            return Redraw();
        case QEvent::PaletteChange:
            return model_.setPalette(palette());
        case QEvent::EnabledChange:
            if (isEnabled()) input_.noticeReleases();
            announceEnabled();
            return Redraw();
        case QEvent::ParentChange:
            QWidget::changeEvent(event);
            return followFocus();
        default:
            return QWidget::changeEvent(event);
    }
}

void XPButton::resizeEvent(QResizeEvent*) {
    if (face_.size() == size()) return;
    ownPaint_ = false;  // the paint event that follows has more to show
    UserControl_Resize();
}

void XPButton::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    ownPaint_ = false;
    setDelayDrawing(false);  // as the first paint event would, but that one must not resize
    followFocus();           // it may have come into another window
    UserControl_Show();
}

void XPButton::UserControl_Show() {
    if (!host_.UserMode() && host_.DisplayAsDefault() && ShowFocusRect()) model_.followDefault();
}

void XPButton::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    ownPaint_ = false;
    input_.releaseLost(XPButtonInput::kEveryButton);
    input_.forgetPress();
}

/// No handler runs in here: the toolkit goes on with the button, which that might destroy.
void XPButton::enterEvent(QEnterEvent*) {
    pointerLeft_ = false;
    input_.forgetPress();
    const auto notice = [this] {
        if (!isEnabled()) return;
        input_.noticeReleases();
        input_.noticePointer();
    };
    QMetaObject::invokeMethod(this, notice, Qt::QueuedConnection);
}

void XPButton::leaveEvent(QEvent*) {
    pointerLeft_ = true;
    input_.forgetPress();
}

/// Where no host says that the button is now, or no longer, what Enter presses.
void XPButton::followFocus() {
    if (ownHost_) UserControl_AmbientChanged(QStringLiteral("DisplayAsDefault"));
}

void XPButton::focusInEvent(QFocusEvent*) {
    followFocus();
}

void XPButton::focusOutEvent(QFocusEvent*) {
    input_.focusLost();
    followFocus();
}

// --- Mouse --------------------------------------------------------------------------------------

XPButtonMouse XPButton::mouseOf(const QMouseEvent& event, int button) const {
    const bool onFace = rect().contains(event.pos()) && face_.region().window.contains(event.pos());
    return {button, shiftOf(event.modifiers()), static_cast<float>(event.position().x()),
            static_cast<float>(event.position().y()), onFace};
}

/// Some systems say where the pointer is only while it is over a window of the program.
bool XPButton::isUnderPointer() const {
    return !pointerLeft_ && QApplication::widgetAt(QCursor::pos()) == this;
}

QPoint XPButton::pointerPosition() const {
    return mapFromGlobal(QCursor::pos());
}

int XPButton::heldButtons() const {
    return mouseButtonsOf(QGuiApplication::mouseButtons());
}

void XPButton::setHoverTimer(bool on) {
    on ? tmrHover_.start() : tmrHover_.stop();
}

void XPButton::mousePressEvent(QMouseEvent* event) {
    if (mouseButtonsOf(event->button()) == 0) return event->ignore();
    pointerLeft_ = false;
    input_.UserControl_MouseDown(mouseOf(*event, mouseButtonsOf(event->button())));
}

/// The toolkit counts the presses in a window, and the first one may have been elsewhere.
void XPButton::mouseDoubleClickEvent(QMouseEvent* event) {
    const int button = mouseButtonsOf(event->button());
    if (button == 0 || !input_.hasFirstPress(button)) return mousePressEvent(event);
    input_.UserControl_DblClick(mouseOf(*event, button));
}

void XPButton::mouseMoveEvent(QMouseEvent* event) {
    pointerLeft_ = false;
    input_.UserControl_MouseMove(mouseOf(*event, mouseButtonsOf(event->buttons())));
}

void XPButton::mouseReleaseEvent(QMouseEvent* event) {
    if (mouseButtonsOf(event->button()) == 0) return event->ignore();
    input_.UserControl_MouseUp(mouseOf(*event, mouseButtonsOf(event->button())));
}

// --- Keys ---------------------------------------------------------------------------------------

void XPButton::keyPressEvent(QKeyEvent* event) {
    if (keyCodeOf(*event) == kAsciiEnter && host_.DisplayAsDefault()) {
        if (!event->isAutoRepeat()) UserControl_AccessKeyPress(kAsciiEnter);
        return;
    }
    const QPointer<XPButton> self(this);
    const std::string characters = asciiOf(*event);
    XPButtonKey key = keyOf(*event);
    const bool taken = key.KeyCode == XPButtonInput::kSpace;
    input_.UserControl_KeyDown(key);
    event->setAccepted(taken || key.KeyCode == 0);
    if (key.KeyCode == 0) return;
    for (const char character : characters)
        if (self) input_.UserControl_KeyPress(static_cast<unsigned char>(character));
}

void XPButton::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat()) return;
    XPButtonKey key = keyOf(*event);
    const bool taken = key.KeyCode == XPButtonInput::kSpace;
    input_.UserControl_KeyUp(key);
    event->setAccepted(taken || key.KeyCode == 0);
}

/// A container that does nothing with the key leaves the step to the next or previous widget.
void XPButton::postToContainer(QKeyCombination key) {
    const auto hand = [this, key] {
        QKeyEvent event(QEvent::KeyPress, key.key(), key.keyboardModifiers());
        QWidget* const container = parentWidget();
        const QPointer<XPButton> self(this);
        if (container) QCoreApplication::sendEvent(container, &event);
        const bool forward = key.key() == Qt::Key_Right || key.key() == Qt::Key_Down;
        if (self && hasFocus() && !event.isAccepted()) focusNextPrevChild(forward);
    };
    QMetaObject::invokeMethod(this, hand, Qt::QueuedConnection);
}

}  // namespace brindlex
