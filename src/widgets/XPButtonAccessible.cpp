#include "widgets/XPButtonAccessible.h"

#include <QAccessibleWidget>

#include "system/KeyCodes.h"
#include "widgets/XPButton.h"

namespace brindlex {
namespace {

class XPButtonAccessible : public QAccessibleWidget {
  public:
    explicit XPButtonAccessible(XPButton& button)
        : QAccessibleWidget(&button, QAccessible::PushButton) {}

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

  private:
    /// Null in the button's destruction, which makes a plain widget of it first.
    XPButton* button() const { return dynamic_cast<XPButton*>(object()); }
};

QString XPButtonAccessible::text(QAccessible::Text kind) const {
    const QString own = QAccessibleWidget::text(kind);
    const XPButton* const shown = button();
    if (!shown || kind != QAccessible::Name || !shown->accessibleName().isEmpty()) return own;
    const QString spoken = spokenCaption(shown->Caption());
    return spoken.isEmpty() ? shown->toolTip() : spoken;
}

QAccessible::State XPButtonAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    if (const XPButton* const shown = button()) {
        state.pressed = shown->state().has(XPButtonState::kDown);
        state.hotTracked = shown->state().Hovering;
        state.defaultButton = shown->state().has(XPButtonState::kDefault);
    }
    return state;
}

QStringList XPButtonAccessible::actionNames() const {
    const bool presses = button() && button()->isEnabled();
    return (presses ? QStringList{pressAction()} : QStringList()) +
           QAccessibleWidget::actionNames();
}

/// From the event loop: what a click opens may wait for the user, and the caller must not.
void XPButtonAccessible::doAction(const QString& name) {
    XPButton* const pressed = button();
    if (!pressed || name != pressAction()) return QAccessibleWidget::doAction(name);
    const auto press = [pressed] {
        if (pressed->isEnabled() && pressed->isVisible())
            pressed->UserControl_AccessKeyPress(kAsciiEnter);
    };
    QMetaObject::invokeMethod(pressed, press, Qt::QueuedConnection);
}

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* const button = dynamic_cast<XPButton*>(object);
    return button ? new XPButtonAccessible(*button) : nullptr;
}

}  // namespace

void installXPButtonAccessible() {
    QAccessible::installFactory(makeAccessible);
}

}  // namespace brindlex
