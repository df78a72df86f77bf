#include "widgets/XPButtonForm.h"

#include <QApplication>
#include <QShortcut>

#include "platform/KeyCodes.h"
#include "widgets/XPButton.h"

namespace brindlex {
namespace {

XPButtonForm* formOf(const QWidget& window) {
    for (QObject* const child : window.children())
        if (auto* const form = dynamic_cast<XPButtonForm*>(child)) return form;
    return nullptr;
}

XPButton* buttonOf(QWidget* widget) {
    return dynamic_cast<XPButton*>(widget);
}

/// That it became or is no longer what Enter presses.
void tell(QWidget* widget) {
    if (XPButton* const button = buttonOf(widget))
        button->UserControl_AmbientChanged(QStringLiteral("DisplayAsDefault"));
}

}  // namespace

XPButtonForm::XPButtonForm(QWidget& window) : window_(window) {
    Q_ASSERT(!formOf(window));
    setParent(&window);
    makeKey(Qt::Key_Return, kAsciiEnter, &XPButtonForm::current_);
    makeKey(Qt::Key_Enter, kAsciiEnter, &XPButtonForm::current_);
    makeKey(Qt::Key_Escape, kAsciiEscape, &XPButtonForm::cancel_);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* focus) { follow(focus); });
    followFocus();
}

XPButtonForm::~XPButtonForm() {
    for (const Key& key : keys_) delete key.shortcut;
    setParent(nullptr);  // the button asks the window for its form
    tell(current_);
}

XPButtonForm* XPButtonForm::of(const XPButton& button) {
    return formOf(*button.window());
}

XPButton* XPButtonForm::currentDefault() const {
    return buttonOf(current_);
}

/// Held down, the key presses once. It is on while there is a button for it.
void XPButtonForm::makeKey(int key, int ascii, Button XPButtonForm::*button) {
    auto* const shortcut = new QShortcut(QKeySequence(key), &window_);
    shortcut->setAutoRepeat(false);
    shortcut->setEnabled(false);
    connect(shortcut, &QShortcut::activated, this, [this, ascii, button] {
        XPButton* const pressed = buttonOf(this->*button);
        if (pressed && pressed->window() == &window_) pressed->press(ascii);
    });
    keys_.push_back({shortcut, button});
}

void XPButtonForm::enableKeys() {
    for (const Key& key : keys_)
        if (key.shortcut) key.shortcut->setEnabled(buttonOf(this->*key.button) != nullptr);
}

void XPButtonForm::followEndOf(const XPButton* button) {
    if (button)
        connect(button, &QObject::destroyed, this, &XPButtonForm::followFocus,
                Qt::UniqueConnection);
}

void XPButtonForm::setDefaultButton(XPButton* button) {
    default_ = button;
    followEndOf(button);
    followFocus();
}

void XPButtonForm::setCancelButton(XPButton* button) {
    cancel_ = button;
    followEndOf(button);
    enableKeys();
}

void XPButtonForm::followFocus() {
    follow(QApplication::focusWidget());
}

void XPButtonForm::follow(QWidget* focus) {
    if (!focus || focus->window() != &window_) focus = nullptr;
    const Button before = current_;
    current_ = buttonOf(focus) ? focus : default_.data();
    enableKeys();
    if (before == current_) return;
    tell(before);
    tell(current_);
}

}  // namespace brindlex
