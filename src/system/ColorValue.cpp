#include "system/ColorValue.h"

namespace brindlex {
namespace {

struct SystemColor {
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
};

/// By the index of a system colour, from 0.
constexpr SystemColor kSystemColors[] = {
    {QPalette::Active, QPalette::Button},           // scroll bar
    {QPalette::Active, QPalette::Dark},             // desktop
    {QPalette::Active, QPalette::Highlight},        // title of the active window
    {QPalette::Inactive, QPalette::Window},         // title of another window
    {QPalette::Active, QPalette::Window},           // menu
    {QPalette::Active, QPalette::Base},             // window
    {QPalette::Active, QPalette::Shadow},           // window frame
    {QPalette::Active, QPalette::WindowText},       // menu text
    {QPalette::Active, QPalette::Text},             // window text
    {QPalette::Active, QPalette::HighlightedText},  // text of the active title
    {QPalette::Active, QPalette::Button},           // border of the active window
    {QPalette::Inactive, QPalette::Button},         // border of another window
    {QPalette::Active, QPalette::Mid},              // background of a workspace
    {QPalette::Active, QPalette::Highlight},        // selection
    {QPalette::Active, QPalette::HighlightedText},  // selected text
    {QPalette::Active, QPalette::Button},           // button face
    {QPalette::Active, QPalette::Dark},             // button shadow
    {QPalette::Disabled, QPalette::WindowText},     // grey text
    {QPalette::Active, QPalette::ButtonText},       // button text
    {QPalette::Disabled, QPalette::WindowText},     // text of another title
    {QPalette::Active, QPalette::Light},            // button highlight
    {QPalette::Active, QPalette::Shadow},           // dark shadow
    {QPalette::Active, QPalette::Midlight},         // light edge
    {QPalette::Active, QPalette::ToolTipText},      // tool tip text
    {QPalette::Active, QPalette::ToolTipBase},      // tool tip
};

QColor systemColor(std::uint32_t index, const QPalette& palette) {
    if (index >= std::size(kSystemColors)) return Qt::black;
    return palette.color(kSystemColors[index].group, kSystemColors[index].role);
}

}  // namespace

ColorValue ColorValue::of(const QColor& color) {
    const QRgb rgb = color.rgb();
    return ColorValue(static_cast<std::uint32_t>(qBlue(rgb) << 16 | qGreen(rgb) << 8 | qRed(rgb)));
}

QColor ColorValue::resolve(const QPalette& palette) const {
    return isSystem() ? systemColor(value_ & 0xFF, palette) : QColor(rgb());
}

ColorValue ColorValue::plain(const QPalette& palette) const {
    return isSystem() ? of(resolve(palette)) : *this;
}

}  // namespace brindlex
