#include "widgets/XPButtonHost.h"

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>

#include "widgets/XPButtonMembers.h"

namespace brindlex {
namespace {

bool isMultipleDocumentFrame(const QWidget& widget) {
    const auto* const window = qobject_cast<const QMainWindow*>(&widget);
    return window && qobject_cast<const QMdiArea*>(window->centralWidget());
}

}  // namespace

/// The usual background stays a system colour, so that it follows a change of the palette.
ColorValue XPButtonWidgetHost::BackColor() const {
    const QWidget* const container = button_.parentWidget();
    if (!container) return kButtonFace;
    const QColor background = container->palette().color(container->backgroundRole());
    const bool isUsual = background == kButtonFace.resolve(container->palette());
    return isUsual ? kButtonFace : ColorValue::of(background);
}

std::optional<QFont> XPButtonWidgetHost::containerFont() const {
    const QWidget* const container = button_.parentWidget();
    if (!container) return QApplication::font(&button_);
    if (isMultipleDocumentFrame(*container)) return std::nullopt;
    return container->font();
}

}  // namespace brindlex
