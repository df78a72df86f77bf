#include "widgets/XPButtonStore.h"

#include <limits>

#include "platform/PropertyBag.h"
#include "widgets/XPButtonStoreKeys.h"

namespace brindlex {
namespace {

QVariant stored(const QString& text) {
    return text;
}
QVariant stored(bool on) {
    return on;
}
QVariant stored(int number) {
    return number;
}
QVariant stored(ColorValue color) {
    return static_cast<qlonglong>(color.value());
}
QVariant stored(const QFont& font) {
    return font;
}
QVariant stored(const ButtonPicture& picture) {
    return picture.toVariant();
}

/// Reads members out of a bag; the value that a member has is its default.
class Reader {
  public:
    explicit Reader(const PropertyBag& bag) : bag_(bag) {}

    template <typename T>
    void read(QLatin1String key, T& member) const {
        member = bag_.readProperty(key, stored(member)).template value<T>();
    }
    /// A signed 32-bit number is the colour of the same bits.
    void read(QLatin1String key, ColorValue& member) const {
        const qlonglong value = bag_.readProperty(key, stored(member)).toLongLong();
        if (value >= std::numeric_limits<std::int32_t>::min() &&
            value <= std::numeric_limits<std::uint32_t>::max())
            member = ColorValue(static_cast<std::uint32_t>(value));
    }
    void read(QLatin1String key, ButtonPicture& member) const {
        member = ButtonPicture::of(bag_.readProperty(key, QVariant()));
    }
    void read(QLatin1String key, int& member, int highest) const {
        int value = member;
        read(key, value);
        if (value >= 0 && value <= highest) member = value;
    }

  private:
    const PropertyBag& bag_;
};

bool isPictureSize(int pixels) {
    return pixels == 0 || (pixels >= 16 && pixels <= kFittedSize && pixels % 8 == 0);
}

XPButtonRecord unset(const XPButtonDefaults& defaults) {
    XPButtonRecord record;
    record.members.BackColor = defaults.BackColor;
    record.window.Font = defaults.Font;
    return record;
}

}  // namespace

XPButtonRecord readRecord(const PropertyBag& bag, const XPButtonDefaults& defaults) {
    XPButtonRecord record = unset(defaults);
    auto& [members, window] = record;
    const Reader reader(bag);
    reader.read(storekey::kCaption, members.Caption);
    reader.read(storekey::kCaptionAlign, members.CaptionAlign, kMaxCaptionAlign);
    reader.read(storekey::kButtonShape, members.ButtonShape, kMaxButtonShape);
    reader.read(storekey::kGradientMode, members.GradientMode, kMaxGradientMode);
    reader.read(storekey::kGradientColor, members.GradientColor);
    reader.read(storekey::kForeColor, members.ForeColor);
    reader.read(storekey::kFont, window.Font);
    reader.read(storekey::kShowFocusRect, members.ShowFocusRect);
    reader.read(storekey::kPicture, members.Picture);
    reader.read(storekey::kPictureSize, members.PicturePixels, kFittedSize);
    if (!isPictureSize(members.PicturePixels))
        members.PicturePixels = XPButtonMembers{}.PicturePixels;
    reader.read(storekey::kPictureAlign, members.PictureAlign, kMaxPictureAlign);
    reader.read(storekey::kHoverForeColor, members.HoverForeColor);
    reader.read(storekey::kEnabled, window.Enabled);
    reader.read(storekey::kBackColor, members.BackColor);
    members.HoverBackColor = members.BackColor;
    reader.read(storekey::kHoverBackColor, members.HoverBackColor);
    reader.read(storekey::kHoverColorLocks, members.HoverColorLocks, kMaxHoverColorLocks);
    reader.read(storekey::kCaptionStyle, members.CaptionStyle, kMaxCaptionStyle);
    reader.read(storekey::kGotFocusBorderColor, members.GotFocusBorderColor);
    reader.read(storekey::kHoverBorderColor, members.HoverBorderColor);
    reader.read(storekey::kMouseIcon, window.MouseIcon);
    reader.read(storekey::kMousePointer, window.MousePointer, kCustomPointer);
    if (!isMousePointer(window.MousePointer)) window.MousePointer = kDefaultPointer;
    return record;
}

void writeRecord(PropertyBag& bag, const XPButtonRecord& record, const XPButtonDefaults& defaults) {
    const auto& [members, window] = record;
    const XPButtonRecord plain = unset(defaults);
    const auto write = [&](QLatin1String key, const auto& value, const auto& defaultValue) {
        bag.writeProperty(key, stored(value), stored(defaultValue));
    };
    const XPButtonMembers& usual = plain.members;
    write(storekey::kCaption, members.Caption, usual.Caption);
    write(storekey::kCaptionAlign, members.CaptionAlign, usual.CaptionAlign);
    write(storekey::kButtonShape, members.ButtonShape, usual.ButtonShape);
    write(storekey::kFont, window.Font, plain.window.Font);
    write(storekey::kForeColor, members.ForeColor, usual.ForeColor);
    write(storekey::kHoverForeColor, members.HoverForeColor, usual.HoverForeColor);
    write(storekey::kHoverBackColorWritten, members.HoverBackColor, members.BackColor);
    write(storekey::kShowFocusRect, members.ShowFocusRect, usual.ShowFocusRect);
    write(storekey::kHoverColorLocks, members.HoverColorLocks, usual.HoverColorLocks);
    write(storekey::kGradientColor, members.GradientColor, usual.GradientColor);
    write(storekey::kGradientMode, members.GradientMode, usual.GradientMode);
    write(storekey::kCaptionStyle, members.CaptionStyle, usual.CaptionStyle);
    write(storekey::kPictureAlign, members.PictureAlign, usual.PictureAlign);
    write(storekey::kPicture, members.Picture, usual.Picture);
    write(storekey::kPictureSize, members.PicturePixels, usual.PicturePixels);
    write(storekey::kEnabled, window.Enabled, plain.window.Enabled);
    write(storekey::kBackColor, members.BackColor, usual.BackColor);
    write(storekey::kMousePointer, window.MousePointer, plain.window.MousePointer);
    write(storekey::kMouseIcon, window.MouseIcon, plain.window.MouseIcon);
    write(storekey::kGotFocusBorderColor, members.GotFocusBorderColor, usual.GotFocusBorderColor);
    write(storekey::kHoverBorderColor, members.HoverBorderColor, usual.HoverBorderColor);
}

}  // namespace brindlex
