#include "widgets/XPButtonWidgetHost.h"

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>

#include "widgets/XPButton.h"
#include "widgets/XPButtonForm.h"

namespace brindlex {
namespace {

bool isMultipleDocumentFrame(const QWidget& widget) {
    const auto* const window = qobject_cast<const QMainWindow*>(&widget);
    return window && qobject_cast<const QMdiArea*>(window->centralWidget());
}

}  // namespace

bool XPButtonWidgetHost::DisplayAsDefault() const {
    const XPButtonForm* const form = XPButtonForm::of(button_);
    return form ? form->currentDefault() == &button_ : button_.hasFocus();
}

/// The usual background stays a system colour, so that it follows a change of the palette.
ColorValue XPButtonWidgetHost::BackColor() const {
    const QWidget* const container = button_.parentWidget();
    if (!container) return kButtonFace;
    const QColor background = container->palette().color(container->backgroundRole());
    const bool isUsual = background == kButtonFace.resolve(container->palette());
    return isUsual ? kButtonFace : ColorValue::of(background);
}

QString XPButtonWidgetHost::DisplayName() const {
    return button_.objectName();
}

std::optional<QFont> XPButtonWidgetHost::containerFont() const {
    const QWidget* const container = button_.parentWidget();
    if (!container) return QApplication::font(&button_);
    if (isMultipleDocumentFrame(*container)) return std::nullopt;
    return container->font();
}

}  // namespace brindlex
