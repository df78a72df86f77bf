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
    : QAccessibleWidget(&button, QAccessible::PushButton), button_(button) {}

QString XPButtonAccessible::text(QAccessible::Text kind) const {
    const QString own = QAccessibleWidget::text(kind);
    if (kind == QAccessible::Accelerator && own.isEmpty())
        return button_.accessKeySequence().toString(QKeySequence::NativeText);
    // the tool tip is the name of a button without a caption, and need not be said twice
    if (kind == QAccessible::Description && own == text(QAccessible::Name)) return {};
    if (kind != QAccessible::Name || !button_.accessibleName().isEmpty()) return own;
    const QString spoken = spokenCaption(button_.Caption());
    return spoken.isEmpty() ? button_.toolTip() : spoken;
}

QAccessible::State XPButtonAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    const XPButtonLook& look = button_.look();
    state.pressed = look.has(XPButtonLook::kDown);
    state.hotTracked = look.Hovering;
    state.defaultButton = look.has(XPButtonLook::kDefault);
    return state;
}

QStringList XPButtonAccessible::actionNames() const {
    const QStringList press = button_.isEnabled() ? QStringList{pressAction()} : QStringList();
    return press + QAccessibleWidget::actionNames();
}

void XPButtonAccessible::doAction(const QString& name) {
    if (name != pressAction()) return QAccessibleWidget::doAction(name);
    // what a click opens may wait for the user: the caller must not
    QMetaObject::invokeMethod(
        &button_, [button = &button_] { button->press(kAsciiEnter); }, Qt::QueuedConnection);
}

}  // namespace brindlex
