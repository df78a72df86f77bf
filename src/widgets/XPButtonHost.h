#pragma once

#include <QFont>
#include <QString>
#include <QWidget>
#include <optional>

#include "system/ColorValue.h"

namespace brindlex {

/// What a button asks of the form that it stands in. When an ambient member (UserMode,
/// DisplayAsDefault, BackColor, DisplayName) changes, the host calls the button's
/// UserControl_AmbientChanged with its name; a change of the focus the button sees by itself.
class XPButtonHost {
  public:
    virtual ~XPButtonHost() = default;
    /// False while the form is being designed.
    virtual bool UserMode() const = 0;
    /// Enter presses the button at present.
    virtual bool DisplayAsDefault() const = 0;
    /// The container's background.
    virtual ColorValue BackColor() const = 0;
    /// The instance name of the button.
    virtual QString DisplayName() const = 0;
    /// Unset when the container is a multiple-document frame.
    virtual std::optional<QFont> containerFont() const = 0;
    /// A stored member changed; `key` is the one that it is stored under. May read and set members,
    /// but not delete the button. Members that follow from this one may still have to change.
    virtual void propertyChanged(const QString& key) = 0;
};

/// The host of a button that is given none: answers from the widgets around it. The button shows as
/// default while it has the focus. Design mode is off.
class XPButtonWidgetHost : public XPButtonHost {
  public:
    /// The button outlives the host.
    explicit XPButtonWidgetHost(const QWidget& button) : button_(button) {}

    bool UserMode() const override { return true; }
    bool DisplayAsDefault() const override { return button_.hasFocus(); }
    ColorValue BackColor() const override;
    QString DisplayName() const override { return button_.objectName(); }
    std::optional<QFont> containerFont() const override;
    void propertyChanged(const QString&) override {}

  private:
    const QWidget& button_;
};

}  // namespace brindlex
