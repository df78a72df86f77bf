#include "widgets/XPButton.h"

#include <QShortcutEvent>

#include "widgets/XPButtonAccessible.h"

namespace brindlex {
namespace {

constexpr int kHoverInterval = 50;  // milliseconds

}  // namespace

XPButton::XPButton(Desktop& desktop, QWidget* parent, XPButtonHost* host)
    : XPButtonView(desktop, parent, host) {
    installXPButtonAccessible();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    tmrHover_.setInterval(kHoverInterval);
    tmrHover_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&tmrHover_, &QTimer::timeout, this, [this] { tmrHover_Timer(); });
}

XPButton::~XPButton() {
    UserControl_Terminate();
}

/// The focus goes while the button is whole: others ask it what it is when they hear of that.
void XPButton::UserControl_Terminate() {
    tmrHover_.stop();
    clearFocus();
}

// --- The access key -----------------------------------------------------------------------------

QKeySequence XPButton::accessKeySequence() const {
    const QString& key = accessKey();
    const bool none = key.isEmpty() || key == u' ';  // Alt and space open the window's menu
    return none ? QKeySequence() : QKeySequence::mnemonic(u'&' + key);
}

void XPButton::captionChanged() {
    if (accessKeyId_ != 0) releaseShortcut(accessKeyId_);
    const QKeySequence keys = accessKeySequence();
    accessKeyId_ = keys.isEmpty() ? 0 : grabShortcut(keys);
    setShortcutAutoRepeat(accessKeyId_, false);
    QAccessibleEvent named(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&named);
}

bool XPButton::event(QEvent* event) {
    if (event->type() != QEvent::Shortcut) return XPButtonView::event(event);
    if (static_cast<const QShortcutEvent*>(event)->isAmbiguous())
        setFocus(Qt::ShortcutFocusReason);
    else
        UserControl_AccessKeyPress(accessKey().at(0).unicode());
    return true;
}

// --- The default button -------------------------------------------------------------------------

void XPButton::UserControl_AmbientChanged(const QString& name) {
    if (name.compare(u"DisplayAsDefault", Qt::CaseInsensitive) == 0) followDefault();
    if (name.compare(u"BackColor", Qt::CaseInsensitive) == 0 && ButtonShape() >= kFirstOval)
        Redraw();
}

void XPButton::focusInEvent(QFocusEvent*) {
    if (!leftHeld_) lift();  // a key that was held when the button was disabled
    liftIfReleased();
    followDefault();
}

/// The release of a held key goes elsewhere. A button that is disabled loses the focus, too, but
/// stays as it was.
void XPButton::focusOutEvent(QFocusEvent*) {
    if (!leftHeld_ && isEnabled()) lift();
    followDefault();
}

}  // namespace brindlex
