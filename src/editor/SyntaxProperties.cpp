// The stored properties of KELP_RTBSyntax: keys, order and defaults.

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string>
#include <type_traits>
#include <vector>

#include "editor/KELP_RTBSyntax.h"

namespace brindlex {
namespace {

using Control = KELP_RTBSyntax;

struct StoredProperty {
    const char* key;
    QVariant defaultValue;
    QVariant (*get)(const Control&);
    void (*set)(Control&, const QVariant&);
};
using StoredProperties = std::vector<StoredProperty>;

/// A value as it is stored: texts of the code page as QString, numbers and colours as qlonglong.
template <typename Value>
QVariant stored(const CodePage& page, const Value& value) {
    if constexpr (std::is_same_v<Value, std::string>)
        return page.toUnicode(value);
    else if constexpr (std::is_same_v<Value, ColorValue>)
        return qlonglong{value.value()};
    else if constexpr (std::is_same_v<Value, Long>)
        return qlonglong{value};
    else
        return QVariant::fromValue(value);
}

template <typename Value>
Value restored(const CodePage& page, const QVariant& value) {
    if constexpr (std::is_same_v<Value, std::string>)
        return page.fromUnicode(value.toString());
    else if constexpr (std::is_same_v<Value, ColorValue>)
        return ColorValue(static_cast<std::uint32_t>(value.toLongLong()));
    else
        return value.value<Value>();
}

template <auto kGet>
using ValueOf = std::remove_cvref_t<std::invoke_result_t<decltype(kGet), const Control&>>;

template <auto kGet, auto kSet>
StoredProperty property(const char* key, const ValueOf<kGet>& defaultValue) {
    return {key, stored(CodePage::system(), defaultValue),
            [](const Control& control) {
                return stored(control.rtb().codePage(), std::invoke(kGet, control));
            },
            [](Control& control, const QVariant& value) {
                const CodePage& page = control.rtb().codePage();
                std::invoke(kSet, control, restored<ValueOf<kGet>>(page, value));
            }};
}

/// A negative one, which the box would refuse, means no limit.
StoredProperty maxLength() {
    return {"MaxLength", qlonglong{0},
            [](const Control& control) -> QVariant { return qlonglong{control.MaxLength()}; },
            [](Control& control, const QVariant& value) {
                control.SetMaxLength(std::max(value.toLongLong(), qlonglong{0}));
            }};
}

StoredProperty mouseIcon() {
    return {"MouseIcon", QVariant(),
            [](const Control& control) {
                const QPixmap icon = control.MouseIcon();
                return icon.isNull() ? QVariant() : QVariant::fromValue(icon);
            },
            [](Control& control, const QVariant& value) {
                control.SetMouseIcon(value.value<QPixmap>());
            }};
}

/// A store without a font leaves the view with the one that it has.
StoredProperty font() {
    return {"Font", QVariant(),
            [](const Control& control) { return QVariant::fromValue(control.Font()); },
            [](Control& control, const QVariant& value) {
                if (value.canConvert<QFont>()) control.SetFont(value.value<QFont>());
            }};
}

const StoredProperties& viewProperties() {
    using C = Control;
    static const StoredProperties properties = {
        property<&C::AutoVerbMenu, &C::SetAutoVerbMenu>("AutoVerbMenu", false),
        property<&C::BackColor, &C::SetBackColor>("BackColor", ColorValue(0x80000005)),
        property<&C::BorderStyle, &C::SetBorderStyle>("BorderStyle", 1),
        property<&C::BulletIndent, &C::SetBulletIndent>("BulletIndent", 0),
        property<&C::Enabled, &C::SetEnabled>("Enabled", true),
        property<&C::filename, &C::SetFilename>("FileName", QString()),
        property<&C::HideSelection, &C::SetHideSelection>("HideSelection", true),
        property<&C::Locked, &C::SetLocked>("Locked", false),
        maxLength(),
        property<&C::MousePointer, &C::SetMousePointer>("MousePointer", 0),
        property<&C::RightMargin, &C::SetRightMargin>("RightMargin", 0),
        {"Text", QString(),
         [](const C& control) -> QVariant {
             return control.rtb().codePage().toUnicode(control.Text());
         },
         [](C& control, const QVariant& value) {
             control.box().SetText(control.rtb().codePage().fromUnicode(value.toString()));
         }},
        mouseIcon(),
        font(),
    };
    return properties;
}

const StoredProperties& valueProperties() {
    using C = Control;
    static const StoredProperties properties = {
        property<&C::hWnd, &C::SethWnd>("hWnd", 0),
        property<&C::ForeColor, &C::SetForeColor>("ForeColor", 0),
    };
    return properties;
}

const StoredProperties& syntaxProperties() {
    using C = Control;
    static const StoredProperties properties = {
        property<&C::Syntax_ReservedWords, &C::SetSyntax_ReservedWords>("Syntax_ReservedWords", ""),
        property<&C::Syntax_ProceduresORFunctions, &C::SetSyntax_ProceduresORFunctions>(
            "Syntax_ProceduresORFunctions", ""),
        property<&C::Syntax_Delimiter, &C::SetSyntax_Delimiter>("Syntax_Delimiter", "\r\n"),
        property<&C::Syntax_LogicalOperators, &C::SetSyntax_LogicalOperators>(
            "Syntax_LogicalOperators", ""),
        property<&C::Syntax_Operators, &C::SetSyntax_Operators>("Syntax_Operators", ""),
        property<&C::Syntax_Objects, &C::SetSyntax_Objects>("Syntax_Objects", ""),
        property<&C::Syntax_Constants, &C::SetSyntax_Constants>("Syntax_Constants", ""),
        property<&C::ColorOf_Comments, &C::SetColorOf_Comments>("ColorOf_Comments", 0x00C000),
        property<&C::ColorOf_ReservedWords, &C::SetColorOf_ReservedWords>("ColorOf_ReservedWords",
                                                                          0xC00000),
        property<&C::ColorOf_ProceduresORFunctions, &C::SetColorOf_ProceduresORFunctions>(
            "ColorOf_ProceduresORFunctions", 0xFF8080),
        property<&C::ColorOf_LogicalOperators, &C::SetColorOf_LogicalOperators>(
            "ColorOf_LogicalOperators", 0x0000C0),
        property<&C::ColorOf_Operators, &C::SetColorOf_Operators>("ColorOf_Operators", 0x0000C0),
        property<&C::ColorOf_Objects, &C::SetColorOf_Objects>("ColorOf_Objects", 0xC0C000),
        property<&C::ColorOf_Constants, &C::SetColorOf_Constants>("ColorOf_Constants", 0x0080FF),
        property<&C::ColorOf_Strings, &C::SetColorOf_Strings>("ColorOf_Strings", 0xFF00FF),
        property<&C::ColorOf_Normal, &C::SetColorOf_Normal>("ColorOf_Normal", 0),
        property<&C::Syntax_StringChar, &C::SetSyntax_StringChar>("Syntax_StringChar", "\""),
        property<&C::Syntax_CommentChar, &C::SetSyntax_CommentChar>("Syntax_CommentChar", "'"),
    };
    return properties;
}

void setDefaults(Control& control, const StoredProperties& properties) {
    for (const StoredProperty& property : properties) property.set(control, property.defaultValue);
}

void read(Control& control, const StoredProperties& properties, const PropertyBag& bag) {
    for (const StoredProperty& property : properties)
        property.set(control,
                     bag.readProperty(QString::fromLatin1(property.key), property.defaultValue));
}

void write(const Control& control, const StoredProperties& properties, PropertyBag& bag) {
    for (const StoredProperty& property : properties)
        bag.writeProperty(QString::fromLatin1(property.key), property.get(control),
                          property.defaultValue);
}

}  // namespace

void KELP_RTBSyntax::InitProperties() {
    setDefaults(*this, valueProperties());
    setDefaults(*this, syntaxProperties());
}

void KELP_RTBSyntax::ReadProperties(const PropertyBag& bag) {
    read(*this, viewProperties(), bag);
    read(*this, valueProperties(), bag);
    ReColorize();
    read(*this, syntaxProperties(), bag);
}

void KELP_RTBSyntax::WriteProperties(PropertyBag& bag) const {
    write(*this, viewProperties(), bag);
    write(*this, valueProperties(), bag);
    write(*this, syntaxProperties(), bag);
}

}  // namespace brindlex
