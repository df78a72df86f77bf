#pragma once

#include <QFont>
#include <QString>
#include <optional>

#include "platform/ColorValue.h"

namespace brindlex {

/// What a button asks of the place that it stands in. When an ambient member (UserMode,
/// DisplayAsDefault, BackColor, DisplayName) changes, the host calls the button's
/// UserControl_AmbientChanged with its name.
class XPButtonHost {
  public:
    virtual ~XPButtonHost() = default;
    /// False while a form is being designed.
    virtual bool UserMode() const = 0;
    /// The button is what Enter presses at present.
    virtual bool DisplayAsDefault() const = 0;
    /// The container's background.
    virtual ColorValue BackColor() const = 0;
    /// The instance name of the button.
    virtual QString DisplayName() const = 0;
    /// Unset when the container is a multiple-document frame.
    virtual std::optional<QFont> containerFont() const = 0;
    /// A stored member changed. `key` is the one that it is stored under. It may read and set
    /// members, but not destroy the button; what follows from the change may not be done yet.
    virtual void propertyChanged(const QString& key) = 0;
};

}  // namespace brindlex
