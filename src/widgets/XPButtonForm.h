#pragma once

#include <QObject>
#include <QPointer>
#include <vector>

class QShortcut;
class QWidget;

namespace brindlex {

class XPButton;

/// The keys of a window with buttons: Enter presses its default button, Escape its cancel button.
/// While a button has the focus, that one is the default button. A button that is disabled, hidden
/// or in another window is not pressed. Belongs to the window, which has one at most.
class XPButtonForm : public QObject {
  public:
    explicit XPButtonForm(QWidget& window);
    /// Gives the keys back, and the default look.
    ~XPButtonForm() override;
    /// The form of a button's window, or null.
    static XPButtonForm* of(const XPButton& button);

    /// Null for none.
    void setDefaultButton(XPButton* button);
    void setCancelButton(XPButton* button);
    /// What Enter presses at present, or null.
    XPButton* currentDefault() const;

  private:
    /// A button. In its destruction, which makes a plain widget of it first, it is one no more.
    using Button = QPointer<QWidget>;

    void followFocus();
    void follow(QWidget* focus);
    void followEndOf(const XPButton* button);
    void makeKey(int key, int ascii, Button XPButtonForm::*button);
    void enableKeys();

    struct Key {
        QPointer<QShortcut> shortcut;  // the window may delete it before the form
        Button XPButtonForm::*button;
    };

    QWidget& window_;
    std::vector<Key> keys_;
    Button default_;
    Button cancel_;
    Button current_;
};

}  // namespace brindlex
