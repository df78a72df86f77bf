// The stored properties of KELP_RTBSyntax: keys, order and defaults.

#include <algorithm>
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

/// A property whose type is one of QVariant's own: Boolean, number, QString.
template <typename Value, auto kGet, auto kSet>
StoredProperty plain(const char* key, const Value& defaultValue) {
    return {key, QVariant::fromValue(defaultValue),
            [](const Control& control) { return QVariant::fromValue(Value{(control.*kGet)()}); },
            [](Control& control, const QVariant& value) { (control.*kSet)(value.value<Value>()); }};
}

template <auto kGet, auto kSet>
StoredProperty flag(const char* key, bool defaultValue) {
    return plain<bool, kGet, kSet>(key, defaultValue);
}

template <auto kGet, auto kSet>
StoredProperty number(const char* key, qlonglong defaultValue) {
    return plain<qlonglong, kGet, kSet>(key, defaultValue);
}

template <auto kGet, auto kSet>
StoredProperty length(const char* key, double defaultValue) {
    return plain<double, kGet, kSet>(key, defaultValue);
}

/// A text of the code page.
template <auto kGet, auto kSet>
StoredProperty text(const char* key, const char* defaultValue) {
    return {key, QString::fromLatin1(defaultValue),
            [](const Control& control) -> QVariant {
                return control.rtb().codePage().toUnicode((control.*kGet)());
            },
            [](Control& control, const QVariant& value) {
                (control.*kSet)(control.rtb().codePage().fromUnicode(value.toString()));
            }};
}

StoredProperty backColor() {
    constexpr qlonglong kWindowColor = 0x80000005;
    return {
        "BackColor", kWindowColor,
        [](const Control& control) -> QVariant { return qlonglong{control.BackColor().value()}; },
        [](Control& control, const QVariant& value) {
            control.SetBackColor(ColorValue(static_cast<std::uint32_t>(value.toLongLong())));
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
        flag<&C::AutoVerbMenu, &C::SetAutoVerbMenu>("AutoVerbMenu", false),
        backColor(),
        number<&C::BorderStyle, &C::SetBorderStyle>("BorderStyle", 1),
        length<&C::BulletIndent, &C::SetBulletIndent>("BulletIndent", 0),
        flag<&C::Enabled, &C::SetEnabled>("Enabled", true),
        plain<QString, &C::filename, &C::SetFilename>("FileName", QString()),
        flag<&C::HideSelection, &C::SetHideSelection>("HideSelection", true),
        flag<&C::Locked, &C::SetLocked>("Locked", false),
        maxLength(),
        number<&C::MousePointer, &C::SetMousePointer>("MousePointer", 0),
        length<&C::RightMargin, &C::SetRightMargin>("RightMargin", 0),
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
        number<&C::hWnd, &C::SethWnd>("hWnd", 0),
        number<&C::ForeColor, &C::SetForeColor>("ForeColor", 0),
    };
    return properties;
}

const StoredProperties& syntaxProperties() {
    using C = Control;
    static const StoredProperties properties = {
        text<&C::Syntax_ReservedWords, &C::SetSyntax_ReservedWords>("Syntax_ReservedWords", ""),
        text<&C::Syntax_ProceduresORFunctions, &C::SetSyntax_ProceduresORFunctions>(
            "Syntax_ProceduresORFunctions", ""),
        text<&C::Syntax_Delimiter, &C::SetSyntax_Delimiter>("Syntax_Delimiter", "\r\n"),
        text<&C::Syntax_LogicalOperators, &C::SetSyntax_LogicalOperators>("Syntax_LogicalOperators",
                                                                          ""),
        text<&C::Syntax_Operators, &C::SetSyntax_Operators>("Syntax_Operators", ""),
        text<&C::Syntax_Objects, &C::SetSyntax_Objects>("Syntax_Objects", ""),
        text<&C::Syntax_Constants, &C::SetSyntax_Constants>("Syntax_Constants", ""),
        number<&C::ColorOf_Comments, &C::SetColorOf_Comments>("ColorOf_Comments", 0x00C000),
        number<&C::ColorOf_ReservedWords, &C::SetColorOf_ReservedWords>("ColorOf_ReservedWords",
                                                                        0xC00000),
        number<&C::ColorOf_ProceduresORFunctions, &C::SetColorOf_ProceduresORFunctions>(
            "ColorOf_ProceduresORFunctions", 0xFF8080),
        number<&C::ColorOf_LogicalOperators, &C::SetColorOf_LogicalOperators>(
            "ColorOf_LogicalOperators", 0x0000C0),
        number<&C::ColorOf_Operators, &C::SetColorOf_Operators>("ColorOf_Operators", 0x0000C0),
        number<&C::ColorOf_Objects, &C::SetColorOf_Objects>("ColorOf_Objects", 0xC0C000),
        number<&C::ColorOf_Constants, &C::SetColorOf_Constants>("ColorOf_Constants", 0x0080FF),
        number<&C::ColorOf_Strings, &C::SetColorOf_Strings>("ColorOf_Strings", 0xFF00FF),
        number<&C::ColorOf_Normal, &C::SetColorOf_Normal>("ColorOf_Normal", 0),
        text<&C::Syntax_StringChar, &C::SetSyntax_StringChar>("Syntax_StringChar", "\""),
        text<&C::Syntax_CommentChar, &C::SetSyntax_CommentChar>("Syntax_CommentChar", "'"),
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
