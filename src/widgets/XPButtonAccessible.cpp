#include "widgets/XPButtonAccessible.h"

#include "platform/KeyCodes.h"
#include "widgets/XPButton.h"

namespace brindlex {
namespace {

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* const button = dynamic_cast<XPButton*>(object);
    return button ? new XPButtonAccessible(*button) : nullptr;
}

}  // namespace

void installXPButtonAccessible() {
    QAccessible::installFactory(makeAccessible);
}

XPButtonAccessible::XPButtonAccessible(XPButton& button)
    : QAccessibleWidget(&button, QAccessible::PushButton) {}

/// Null in the button's destruction, which makes a plain widget of it first.
XPButton* XPButtonAccessible::button() const {
    return dynamic_cast<XPButton*>(object());
}

QString XPButtonAccessible::text(QAccessible::Text kind) const {
    const QString own = QAccessibleWidget::text(kind);
    const XPButton* const face = button();
    if (!face) return own;
    if (kind == QAccessible::Accelerator && own.isEmpty())
        return face->accessKeySequence().toString(QKeySequence::NativeText);
    // the tool tip is the name of a button without a caption, and need not be said twice
    if (kind == QAccessible::Description && own == text(QAccessible::Name)) return {};
    if (kind != QAccessible::Name || !face->accessibleName().isEmpty()) return own;
    const QString spoken = spokenCaption(face->Caption());
    return spoken.isEmpty() ? face->toolTip() : spoken;
}

QAccessible::State XPButtonAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const XPButton* const face = button();
    if (!face) return state;
    const XPButtonLook& look = face->look();
    state.pressed = look.has(XPButtonLook::kDown);
    state.hotTracked = look.Hovering;
    state.defaultButton = look.has(XPButtonLook::kDefault);
    return state;
}

QStringList XPButtonAccessible::actionNames() const {
    const bool presses = button() && button()->isEnabled();
    return (presses ? QStringList{pressAction()} : QStringList()) +
           QAccessibleWidget::actionNames();
}

void XPButtonAccessible::doAction(const QString& name) {
    if (name != pressAction()) return QAccessibleWidget::doAction(name);
    XPButton* const face = button();
    if (!face) return;
    // what a click opens may wait for the user: the caller must not
    QMetaObject::invokeMethod(
        face, [face] { face->press(kAsciiEnter); }, Qt::QueuedConnection);
}

}  // namespace brindlex
