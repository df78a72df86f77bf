#pragma once

#include <QFont>
#include <QString>

#include "platform/ColorValue.h"
#include "platform/MousePointer.h"
#include "widgets/ButtonPicture.h"

namespace brindlex {

/// Highest values; the lowest is 0.
inline constexpr int kMaxCaptionAlign = 2;
inline constexpr int kMaxCaptionStyle = 2;
inline constexpr int kMaxButtonShape = 7;
inline constexpr int kMaxPictureAlign = 5;
inline constexpr int kMaxPictureSize = 4;
inline constexpr int kMaxGradientMode = 4;
inline constexpr int kMaxHoverColorLocks = 3;

inline constexpr int kCaptionCentred = 2;
/// Values of PictureAlign: at an edge, or beside, above or below the caption. From kAbove on
/// caption and picture stand in the middle.
enum PictureSide { kAtLeft, kLeftOfCaption, kAtRight, kRightOfCaption, kAbove, kBelow };

/// Shapes: 0 rectangle, 1 left side slanted, 2 right side slanted, 3 both, 4 oval, 5 oval with a
/// picture only, 6 the same with an outline, 7 the picture is the button.
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

/// Sizes of a picture in pixels. Above kLargestPlacedSize it takes its place from the button.
inline constexpr int kLargestPlacedSize = 32;
inline constexpr int kStretchedSize = 40;
inline constexpr int kFittedSize = 48;

inline constexpr ColorValue kButtonFace{0x8000000F};
inline constexpr ColorValue kButtonText{0x80000012};

/// What the user of a button sets, with the values of a button that nothing was set on.
struct XPButtonMembers {
    QString Caption;
    int CaptionAlign = kCaptionCentred;
    int CaptionStyle = 0;
    int ButtonShape = 0;
    ButtonPicture Picture;
    int PictureAlign = 0;
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

/// The members that belong to the window itself.
struct XPButtonWindowMembers {
    bool Enabled = true;
    QFont Font;
    int MousePointer = 0;  ///< 0 to 15, or kCustomPointer
    ButtonPicture MouseIcon;
};

/// The state that shows. The model sets kDefault, the input the rest.
struct XPButtonLook {
    static constexpr int kDefault = 1;  ///< it shows the default look
    static constexpr int kDown = 2;     ///< the left mouse button or the space bar holds it down
    static constexpr int kOver = 4;     ///< the pointer is over it

    int ButtonFlags = 0;
    bool Hovering = false;  ///< the hover timer runs

    bool has(int flag) const { return (ButtonFlags & flag) != 0; }
    void set(int flag, bool on) { ButtonFlags = on ? ButtonFlags | flag : ButtonFlags & ~flag; }
    bool isPressed() const { return has(kDown) && has(kOver); }

    bool operator==(const XPButtonLook&) const = default;
};

}  // namespace brindlex
