#include "widgets/XPButton.h"

#include <QApplication>

#include "platform/Desktop.h"
#include "platform/KeyCodes.h"
#include "platform/MousePointer.h"
#include "platform/PropertyBag.h"
#include "widgets/XPButtonAccessible.h"
#include "widgets/XPButtonStoreKeys.h"
#include "widgets/XPButtonWidgetHost.h"

namespace brindlex {

XPButton::XPButton(Desktop& desktop, QWidget* parent, XPButtonHost* host)
    : QWidget(parent),
      desktop_(desktop),
      ownHost_(host ? nullptr : std::make_unique<XPButtonWidgetHost>(*this)),
      host_(host ? *host : *ownHost_),
      model_(look_, *this, host_, palette()),
      input_(look_, *this, events) {
    installXPButtonAccessible();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    tmrHover_.setInterval(XPButtonInput::kHoverInterval);
    tmrHover_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&tmrHover_, &QTimer::timeout, this, [this] { input_.tmrHover_Timer(); });
}

XPButton::~XPButton() {
    UserControl_Terminate();
}

/// The focus goes while the button is whole: others ask it what it is when they hear of that.
void XPButton::UserControl_Terminate() {
    tmrHover_.stop();
    clearFocus();
}

// --- Members of the window ----------------------------------------------------------------------

void XPButton::SetCaption(const QString& caption) {
    model_.SetCaption(caption);
    followCaption();
}

void XPButton::followCaption() {
    if (accessKeyId_ != 0) releaseShortcut(accessKeyId_);
    const QKeySequence keys = accessKeySequence();
    accessKeyId_ = keys.isEmpty() ? 0 : grabShortcut(keys);
    setShortcutAutoRepeat(accessKeyId_, false);
    QAccessibleEvent named(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&named);
}

QKeySequence XPButton::accessKeySequence() const {
    const QString& key = model_.accessKey();
    const bool none = key.isEmpty() || key == u' ';  // Alt and space open the window's menu
    return none ? QKeySequence() : QKeySequence::mnemonic(u'&' + key);
}

void XPButton::SetButtonShape(int shape) {
    model_.SetButtonShape(shape);
    updateGeometry();
}

void XPButton::SetPicture(const ButtonPicture& picture) {
    model_.SetPicture(picture);
    updateGeometry();
}

void XPButton::SetEnabled(bool on) {
    if (on == Enabled()) return;
    setEnabled(on);
    host_.propertyChanged(storekey::kEnabled);
}

void XPButton::SetMousePointer(int pointer) {
    if (!isMousePointer(pointer)) return;
    pointer_ = pointer;
    showPointer();
    host_.propertyChanged(storekey::kMousePointer);
}

void XPButton::showPointer() {
    const bool custom = pointer_ == kCustomPointer;
    if (custom && !mouseIcon_.isNone())
        setCursor(cursorOf(QPixmap::fromImage(mouseIcon_.image())));
    else if (custom || pointer_ == kDefaultPointer)
        unsetCursor();
    else
        setCursor(cursorOf(pointer_));
}

void XPButton::SetMouseIcon(const ButtonPicture& icon) {
    if (!icon.isNone() && !icon.isIcon())
        return showBox(QStringLiteral("Select .ico Or .cur Files Only"));
    mouseIcon_ = icon;
    if (icon.isNone())
        showPointer();
    else
        SetMousePointer(kCustomPointer);
    host_.propertyChanged(storekey::kMouseIcon);
}

void XPButton::SetFont(const QFont& newFont) {
    setFont(newFont);
    host_.propertyChanged(storekey::kFont);
}

// --- The host's side ----------------------------------------------------------------------------

void XPButton::InitProperties() {
    if (const std::optional<QFont> font = host_.containerFont()) setFont(*font);
    model_.InitProperties();
    followCaption();
    updateGeometry();
    UserControl_Resize();
}

/// Of the place that the button stands in at present.
XPButtonDefaults XPButton::storeDefaults() const {
    return {host_.BackColor(), host_.containerFont().value_or(QApplication::font(this))};
}

void XPButton::ReadProperties(const PropertyBag& bag) {
    setDelayDrawing(true);
    const XPButtonRecord record = readRecord(bag, storeDefaults());
    setFont(record.window.Font);
    setEnabled(record.window.Enabled);
    SetMouseIcon(record.window.MouseIcon);
    SetMousePointer(record.window.MousePointer);
    model_.load(record.members);
    followCaption();
    delay_.set(false);
    UserControl_Resize();
}

void XPButton::WriteProperties(PropertyBag& bag) const {
    const XPButtonRecord record{members(), {Enabled(), font(), pointer_, mouseIcon_}};
    writeRecord(bag, record, storeDefaults());
}

void XPButton::UserControl_AmbientChanged(const QString& name) {
    if (name.compare(u"DisplayAsDefault", Qt::CaseInsensitive) == 0) {
        model_.followDefault();
    } else if (name.compare(u"BackColor", Qt::CaseInsensitive) == 0) {
        if (members().ButtonShape >= kFirstOval) Redraw();
    }
}

void XPButton::UserControl_AccessKeyPress(int KeyAscii) {
    input_.UserControl_AccessKeyPress(KeyAscii);
}

void XPButton::press(int KeyAscii) {
    if (isEnabled() && isVisible()) input_.UserControl_AccessKeyPress(KeyAscii);
}

void XPButton::showBox(const QString& text) {
    desktop_.showBox(this, {text, QGuiApplication::applicationDisplayName(), BoxIcon::Information});
}

}  // namespace brindlex
