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

ColorValue XPButtonWidgetHost::BackColor() const {
    return kButtonFace;
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
