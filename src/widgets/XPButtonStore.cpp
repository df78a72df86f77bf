// How a button is made, stored and loaded.

#include <QApplication>
#include <limits>

#include "system/MousePointer.h"
#include "system/PropertyBag.h"
#include "widgets/XPButton.h"

namespace brindlex {
namespace {

/// Everything of a button that is stored.
struct Record {
    XPButtonMembers members;
    QFont Font;
    bool Enabled = true;
    int MousePointer = kDefaultPointer;
    ButtonPicture MouseIcon;
};

/// Calls `each` with key, value, default and, of a number, its highest value.
template <typename Each>
void forEachMember(Record& record, const Record& usual, Each each) {
    XPButtonMembers& m = record.members;
    const XPButtonMembers& u = usual.members;
    each(storekey::kCaption, m.Caption, u.Caption);
    each(storekey::kCaptionAlign, m.CaptionAlign, u.CaptionAlign, kMaxCaptionAlign);
    each(storekey::kButtonShape, m.ButtonShape, u.ButtonShape, kMaxButtonShape);
    each(storekey::kFont, record.Font, usual.Font);
    each(storekey::kForeColor, m.ForeColor, u.ForeColor);
    each(storekey::kHoverForeColor, m.HoverForeColor, u.HoverForeColor);
    each(storekey::kHoverBackColorWritten, m.HoverBackColor, u.HoverBackColor);
    each(storekey::kShowFocusRect, m.ShowFocusRect, u.ShowFocusRect);
    each(storekey::kHoverColorLocks, m.HoverColorLocks, u.HoverColorLocks, kMaxHoverColorLocks);
    each(storekey::kGradientColor, m.GradientColor, u.GradientColor);
    each(storekey::kGradientMode, m.GradientMode, u.GradientMode, kMaxGradientMode);
    each(storekey::kCaptionStyle, m.CaptionStyle, u.CaptionStyle, kMaxCaptionStyle);
    each(storekey::kPictureAlign, m.PictureAlign, u.PictureAlign, kMaxPictureAlign);
    each(storekey::kPicture, m.Picture, u.Picture);
    each(storekey::kPictureSize, m.PicturePixels, u.PicturePixels, kFittedSize);
    each(storekey::kEnabled, record.Enabled, usual.Enabled);
    each(storekey::kBackColor, m.BackColor, u.BackColor);
    each(storekey::kMousePointer, record.MousePointer, usual.MousePointer, kCustomPointer);
    each(storekey::kMouseIcon, record.MouseIcon, usual.MouseIcon);
    each(storekey::kGotFocusBorderColor, m.GotFocusBorderColor, u.GotFocusBorderColor);
    each(storekey::kHoverBorderColor, m.HoverBorderColor, u.HoverBorderColor);
}

template <typename T>
QVariant stored(const T& value) {
    return QVariant::fromValue(value);
}
QVariant stored(ColorValue color) {
    return static_cast<qlonglong>(color.value());
}
QVariant stored(const ButtonPicture& picture) {
    return picture.toVariant();
}

/// Reads members out of a bag. What is absent, of a wrong type or too high has its default.
class Reader {
  public:
    explicit Reader(const PropertyBag& bag) : bag_(bag) {}

    template <typename T>
    void operator()(QLatin1String key, T& value, const T& usual) const {
        value = bag_.readProperty(key, stored(usual)).template value<T>();
    }
    void operator()(QLatin1String key, int& value, int usual, int highest) const {
        value = bag_.readProperty(key, usual).toInt();
        if (value < 0 || value > highest) value = usual;
    }
    /// A signed 32-bit number is the colour of the same bits.
    void operator()(QLatin1String key, ColorValue& value, ColorValue usual) const {
        const qlonglong number = bag_.readProperty(key, stored(usual)).toLongLong();
        const bool isColor = number >= std::numeric_limits<std::int32_t>::min() &&
                             number <= std::numeric_limits<std::uint32_t>::max();
        value = isColor ? ColorValue(static_cast<std::uint32_t>(number)) : usual;
    }
    void operator()(QLatin1String key, ButtonPicture& value, const ButtonPicture&) const {
        value = ButtonPicture::of(bag_.readProperty(key, QVariant()));
    }

  private:
    const PropertyBag& bag_;
};

/// The record of a button of which nothing is stored.
Record usualRecord(const XPButtonHost& host, const QWidget& button) {
    Record usual;
    usual.members.BackColor = host.BackColor();
    usual.Font = host.containerFont().value_or(QApplication::font(&button));
    return usual;
}

bool isPictureSize(int pixels) {
    return pixels == 0 || (pixels >= 16 && pixels % 8 == 0);
}

}  // namespace

void XPButton::InitProperties() {
    if (const std::optional<QFont> font = host().containerFont()) setFont(*font);
    XPButtonMembers members;
    members.Caption = host().DisplayName();
    setMembers(members);
    for (const QLatin1String key :
         {storekey::kCaptionAlign, storekey::kShowFocusRect, storekey::kHoverForeColor,
          storekey::kHoverBackColor, storekey::kFont})
        tell(key);
    UserControl_Resize();
}

void XPButton::ReadProperties(const PropertyBag& bag) {
    DelayDrawing(true);
    const Reader read(bag);
    Record usual = usualRecord(host(), *this);
    Record record;
    read(storekey::kBackColor, usual.members.HoverBackColor, usual.members.BackColor);
    forEachMember(record, usual, read);
    if (!isPictureSize(record.members.PicturePixels))
        record.members.PicturePixels = usual.members.PicturePixels;
    setFont(record.Font);
    setEnabled(record.Enabled);
    SetMouseIcon(record.MouseIcon);
    SetMousePointer(isMousePointer(record.MousePointer) ? record.MousePointer : kDefaultPointer);
    setMembers(record.members);
    UserControl_Resize();
    DelayDrawing(false);
}

void XPButton::WriteProperties(PropertyBag& bag) const {
    Record usual = usualRecord(host(), *this);
    usual.members.HoverBackColor = BackColor();
    Record record{members(), Font(), Enabled(), MousePointer(), MouseIcon()};
    forEachMember(
        record, usual,
        [&bag](QLatin1String key, const auto& value, const auto& plain, auto... /*highest*/) {
            bag.writeProperty(key, stored(value), stored(plain));
        });
}

}  // namespace brindlex
