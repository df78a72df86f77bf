#pragma once

#include <QLatin1String>

/// The keys that a button is stored under, and by which its host hears what changed. A store and a
/// host take them without regard to case: the hover back colour is written as "cBhover".
namespace brindlex::storekey {

inline constexpr QLatin1String kCaption("Caption");
inline constexpr QLatin1String kCaptionAlign("CapAlign");
inline constexpr QLatin1String kCaptionStyle("CapStyle");
inline constexpr QLatin1String kButtonShape("Shape");
inline constexpr QLatin1String kPicture("Image");
inline constexpr QLatin1String kPictureAlign("ImgAlign");
inline constexpr QLatin1String kPictureSize("ImgSize");
inline constexpr QLatin1String kEnabled("Enabled");
inline constexpr QLatin1String kShowFocusRect("Focus");
inline constexpr QLatin1String kMousePointer("mPointer");
inline constexpr QLatin1String kMouseIcon("mIcon");
inline constexpr QLatin1String kFont("Font");
inline constexpr QLatin1String kForeColor("cFore");
inline constexpr QLatin1String kBackColor("cBack");
inline constexpr QLatin1String kGradientColor("cGradient");
inline constexpr QLatin1String kGotFocusBorderColor("GotFocusBorderColor");
inline constexpr QLatin1String kHoverBorderColor("HoverBorderColor");
inline constexpr QLatin1String kGradientMode("Gradient");
inline constexpr QLatin1String kHoverColorLocks("LockHover");
inline constexpr QLatin1String kHoverForeColor("cFHover");
inline constexpr QLatin1String kHoverBackColor("cBHover");
inline constexpr QLatin1String kHoverBackColorWritten("cBhover");

}  // namespace brindlex::storekey
