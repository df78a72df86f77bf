#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

class QShortcut;
class QWidget;

namespace brindlex {

class XPButton;

/// The keys of a window with buttons: Enter presses its default button, Escape its cancel button.
/// While a button has the focus, that one is the default button. Belongs to the window.
class XPButtonForm : public QObject {
  public:
    explicit XPButtonForm(QWidget& window);
    /// The form of a button's window, or null.
    static XPButtonForm* of(const XPButton& button);

    void setDefaultButton(XPButton* button);
    void setCancelButton(XPButton* button);
    /// What Enter presses at present, or null.
    XPButton* currentDefault() const { return current_; }

  private:
    void follow(QWidget* focus);
    QShortcut* makeKey(int key, int ascii, const QPointer<XPButton>& button);

    QWidget& window_;
    std::vector<QShortcut*> defaultKeys_;
    QShortcut* cancelKey_ = nullptr;
    QPointer<XPButton> default_;
    QPointer<XPButton> cancel_;
    QPointer<XPButton> current_;
};

}  // namespace brindlex
