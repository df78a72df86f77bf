#include "widgets/XPButtonForm.h"

#include <QApplication>
#include <QShortcut>
#include <utility>

#include "platform/KeyCodes.h"
#include "widgets/XPButton.h"

namespace brindlex {

XPButtonForm::XPButtonForm(QWidget& window) : QObject(&window), window_(window) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter})
        defaultKeys_.push_back(makeKey(key, kAsciiEnter, current_));
    cancelKey_ = makeKey(Qt::Key_Escape, kAsciiEscape, cancel_);
    connect(qApp, &QApplication::focusChanged, this,
            [this](QWidget*, QWidget* focus) { follow(focus); });
}

XPButtonForm* XPButtonForm::of(const XPButton& button) {
    for (QObject* const child : button.window()->children())
        if (auto* const form = dynamic_cast<XPButtonForm*>(child)) return form;
    return nullptr;
}

/// Held down, the key presses once. It is on while there is a button for it.
QShortcut* XPButtonForm::makeKey(int key, int ascii, const QPointer<XPButton>& button) {
    auto* const shortcut = new QShortcut(QKeySequence(key), &window_);
    shortcut->setAutoRepeat(false);
    shortcut->setEnabled(false);
    connect(shortcut, &QShortcut::activated, this, [&button, shortcut, ascii] {
        if (!button) return shortcut->setEnabled(false);
        if (button->isEnabled() && button->isVisible()) button->UserControl_AccessKeyPress(ascii);
    });
    return shortcut;
}

void XPButtonForm::setDefaultButton(XPButton* button) {
    default_ = button;
    follow(QApplication::focusWidget());
}

void XPButtonForm::setCancelButton(XPButton* button) {
    cancel_ = button;
    cancelKey_->setEnabled(button != nullptr);
}

void XPButtonForm::follow(QWidget* focus) {
    if (!focus || focus->window() != &window_) focus = nullptr;
    auto* const focused = dynamic_cast<XPButton*>(focus);
    const QPointer<XPButton> before = std::exchange(current_, focused ? focused : default_.data());
    for (QShortcut* const key : defaultKeys_) key->setEnabled(!current_.isNull());
    if (before == current_) return;
    for (const QPointer<XPButton>& button : {before, current_})
        if (button) button->UserControl_AmbientChanged(QStringLiteral("DisplayAsDefault"));
}

}  // namespace brindlex
