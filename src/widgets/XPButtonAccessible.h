#pragma once

#include <QAccessibleWidget>

namespace brindlex {

class XPButton;

/// Makes XPButtonAccessible the face of every XPButton. May be called any number of times.
void installXPButtonAccessible();

/// A button as assistive technology sees it: a push button named by its caption, without its marks,
/// that can be pressed.
class XPButtonAccessible : public QAccessibleWidget {
  public:
    explicit XPButtonAccessible(XPButton& button);

    QString text(QAccessible::Text kind) const override;
    QAccessible::State state() const override;
    QStringList actionNames() const override;
    /// Presses from the event loop.
    void doAction(const QString& name) override;

  private:
    XPButton* button() const;
};

}  // namespace brindlex
