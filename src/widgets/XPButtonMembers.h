#pragma once

#include <QLatin1String>
#include <QString>

#include "system/ColorValue.h"
#include "widgets/ButtonPicture.h"
#include "widgets/XPButtonColors.h"

namespace brindlex {

/// Highest values; the lowest is 0.
inline constexpr int kMaxCaptionAlign = 2;
inline constexpr int kMaxCaptionStyle = 2;
inline constexpr int kMaxButtonShape = 7;
inline constexpr int kMaxPictureAlign = 5;
inline constexpr int kMaxPictureSize = 4;
inline constexpr int kMaxGradientMode = 4;
inline constexpr int kMaxHoverColorLocks = 3;

/// Values of CaptionAlign.
inline constexpr int kCaptionAtLeft = 0;
inline constexpr int kCaptionAtRight = 1;
inline constexpr int kCaptionCentred = 2;
/// Values of PictureAlign: at an edge of the button, or next to the caption.
enum PictureSide { kAtLeft, kLeftOfCaption, kAtRight, kRightOfCaption, kAbove, kBelow };

/// Values of ButtonShape: 0 rectangle, 1 left side slanted, 2 right side slanted, 3 both, 4 oval,
/// 5 oval with a picture only, 6 the same with an outline, 7 the picture is the button.
inline constexpr int kFirstOval = 4;
inline constexpr int kFirstShapeWithoutCaption = 5;
inline constexpr int kOutlinedOval = 6;
inline constexpr int kCustomShape = 7;

constexpr bool slantsLeft(int shape) {
    return shape == 1 || shape == 3;
}

constexpr bool slantsRight(int shape) {
    return shape == 2 || shape == 3;
}

constexpr bool isOval(int shape) {
    return shape >= kFirstOval && shape <= kOutlinedOval;
}

/// Values of PicturePixels. A larger picture than kLargestPlacedSize fills the button.
inline constexpr int kLargestPlacedSize = 32;
inline constexpr int kStretchedSize = 40;
inline constexpr int kFittedSize = 48;

inline constexpr ColorValue kButtonFace{0x8000000F};
inline constexpr ColorValue kButtonText{0x80000012};

/// The members of a button, as they are in one on which nothing was set.
struct XPButtonMembers {
    QString Caption;
    int CaptionAlign = kCaptionCentred;
    int CaptionStyle = 0;  ///< 0 plain, 1 engraved, 2 raised
    int ButtonShape = 0;
    ButtonPicture Picture;
    int PictureAlign = kAtLeft;
    int PicturePixels = 16;  ///< PictureSize as it is stored: 16, 24, 32, 40 or 48; 0 when not set
    bool ShowFocusRect = true;
    ColorValue ForeColor = kButtonText;
    ColorValue BackColor = kButtonFace;
    ColorValue GradientColor = kButtonFace;
    ColorValue GotFocusBorderColor{0xEF826B};
    ColorValue HoverBorderColor{0x0096E7};
    int GradientMode = 0;     ///< 0 none, 1 left to right, 2 right to left, 3 downward, 4 upward
    int HoverColorLocks = 0;  ///< sum of 1: HoverBackColor is locked, 2: HoverForeColor is locked
    ColorValue HoverForeColor = kButtonText;
    ColorValue HoverBackColor = kButtonFace;
};

/// The keys that the members are stored under, and by which the host hears what changed. Stores and
/// hosts take them without regard to case.
namespace storekey {

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

}  // namespace storekey

/// The colours that are painted with: the face in its states, made lighter or darker, and text and
/// gradient as they are with the present system colours.
struct XPButtonWorkingColors {
    Bgr FaceColor = 0;
    Bgr PressedColor = 0;
    Bgr HoverFaceColor = 0;
    Bgr ForeColor = 0;
    Bgr HoverForeColor = 0;
    Bgr GradientColor = 0;
};

/// What the pointer, the keys and the form have made of a button.
struct XPButtonState {
    static constexpr int kDefault = 1;  ///< it has the default look
    static constexpr int kDown = 2;     ///< the left mouse button or the space bar holds it down
    static constexpr int kOver = 4;     ///< the pointer is over it

    int ButtonFlags = 0;
    bool Hovering = false;  ///< the hover timer runs

    bool has(int flag) const { return (ButtonFlags & flag) != 0; }
    void set(int flag, bool on) { ButtonFlags = on ? ButtonFlags | flag : ButtonFlags & ~flag; }
    bool isPressed() const { return has(kDown) && has(kOver); }
};

}  // namespace brindlex
