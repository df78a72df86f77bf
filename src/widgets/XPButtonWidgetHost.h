#pragma once

#include "widgets/XPButtonHost.h"

namespace brindlex {

class XPButton;

/// The host of a button that has no other: answers from the widgets round it. Design mode is off,
/// notices go nowhere. A button shows as default while it is what Enter presses: in a window with
/// an XPButtonForm that form says so, else the focus.
class XPButtonWidgetHost : public XPButtonHost {
  public:
    explicit XPButtonWidgetHost(const XPButton& button) : button_(button) {}

    bool UserMode() const override { return true; }
    bool DisplayAsDefault() const override;
    ColorValue BackColor() const override;
    QString DisplayName() const override;
    std::optional<QFont> containerFont() const override;
    void propertyChanged(const QString&) override {}

  private:
    const XPButton& button_;
};

}  // namespace brindlex
