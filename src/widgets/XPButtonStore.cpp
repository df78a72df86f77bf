#include "widgets/XPButtonStore.h"

#include <limits>

#include "platform/PropertyBag.h"

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
    void read(const char* key, T& member) const {
        member = bag_.readProperty(QString::fromLatin1(key), stored(member)).template value<T>();
    }
    /// A signed 32-bit number is the colour of the same bits.
    void read(const char* key, ColorValue& member) const {
        const qlonglong value =
            bag_.readProperty(QString::fromLatin1(key), stored(member)).toLongLong();
        if (value >= std::numeric_limits<std::int32_t>::min() &&
            value <= std::numeric_limits<std::uint32_t>::max())
            member = ColorValue(static_cast<std::uint32_t>(value));
    }
    void read(const char* key, ButtonPicture& member) const {
        member = ButtonPicture::of(bag_.readProperty(QString::fromLatin1(key), QVariant()));
    }
    void read(const char* key, int& member, int highest) const {
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
    reader.read("Caption", members.Caption);
    reader.read("CapAlign", members.CaptionAlign, kMaxCaptionAlign);
    reader.read("Shape", members.ButtonShape, kMaxButtonShape);
    reader.read("Gradient", members.GradientMode, kMaxGradientMode);
    reader.read("cGradient", members.GradientColor);
    reader.read("cFore", members.ForeColor);
    reader.read("Font", window.Font);
    reader.read("Focus", members.ShowFocusRect);
    reader.read("Image", members.Picture);
    reader.read("ImgSize", members.PicturePixels, kFittedSize);
    if (!isPictureSize(members.PicturePixels))
        members.PicturePixels = unset({}).members.PicturePixels;
    reader.read("ImgAlign", members.PictureAlign, kMaxPictureAlign);
    reader.read("cFHover", members.HoverForeColor);
    reader.read("Enabled", window.Enabled);
    reader.read("cBack", members.BackColor);
    members.HoverBackColor = members.BackColor;
    reader.read("cBHover", members.HoverBackColor);
    reader.read("LockHover", members.HoverColorLocks, kMaxHoverColorLocks);
    reader.read("CapStyle", members.CaptionStyle, kMaxCaptionStyle);
    reader.read("GotFocusBorderColor", members.GotFocusBorderColor);
    reader.read("HoverBorderColor", members.HoverBorderColor);
    reader.read("mIcon", window.MouseIcon);
    reader.read("mPointer", window.MousePointer);
    return record;
}

void writeRecord(PropertyBag& bag, const XPButtonRecord& record, const XPButtonDefaults& defaults) {
    const auto& [members, window] = record;
    const XPButtonRecord plain = unset(defaults);
    const auto write = [&](const char* key, const auto& value, const auto& defaultValue) {
        bag.writeProperty(QString::fromLatin1(key), stored(value), stored(defaultValue));
    };
    const XPButtonMembers& usual = plain.members;
    write("Caption", members.Caption, usual.Caption);
    write("CapAlign", members.CaptionAlign, usual.CaptionAlign);
    write("Shape", members.ButtonShape, usual.ButtonShape);
    write("Font", window.Font, plain.window.Font);
    write("cFore", members.ForeColor, usual.ForeColor);
    write("cFHover", members.HoverForeColor, usual.HoverForeColor);
    write("cBhover", members.HoverBackColor, members.BackColor);
    write("Focus", members.ShowFocusRect, usual.ShowFocusRect);
    write("LockHover", members.HoverColorLocks, usual.HoverColorLocks);
    write("cGradient", members.GradientColor, usual.GradientColor);
    write("Gradient", members.GradientMode, usual.GradientMode);
    write("CapStyle", members.CaptionStyle, usual.CaptionStyle);
    write("ImgAlign", members.PictureAlign, usual.PictureAlign);
    write("Image", members.Picture, usual.Picture);
    write("ImgSize", members.PicturePixels, usual.PicturePixels);
    write("Enabled", window.Enabled, plain.window.Enabled);
    write("cBack", members.BackColor, usual.BackColor);
    write("mPointer", window.MousePointer, plain.window.MousePointer);
    write("mIcon", window.MouseIcon, plain.window.MouseIcon);
    write("GotFocusBorderColor", members.GotFocusBorderColor, usual.GotFocusBorderColor);
    write("HoverBorderColor", members.HoverBorderColor, usual.HoverBorderColor);
}

}  // namespace brindlex
