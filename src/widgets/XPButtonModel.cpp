#include "widgets/XPButtonModel.h"

#include "widgets/XPButtonCaption.h"
#include "widgets/XPButtonHost.h"
#include "widgets/XPButtonWindow.h"

namespace brindlex {
namespace {

constexpr const char* kOnlyCentred =
    "When button images are aligned top/bottom center, \r\n"
    "button captions can only be center aligned";
constexpr const char* kNeedsBitmap =
    "The Picture Property must be assigned first and must be a bitmap or JPEG.";
constexpr const char* kNoIcons =
    "Icons cannot be used for custom buttons. Only use bitmaps or JPEGs.\r\n"
    "Button was changed to Rectangular shaped.";
constexpr const char* kFixedSize = "The picture size cannot be changed for Shaped buttons";
constexpr const char* kFocusAtDesign =
    "The focus rectangle may appear on default buttons ONLY while in design mode, \r\n"
    "but will not appear when the form is running.";

constexpr bool isIn(int value, int highest) {
    return value >= 0 && value <= highest;
}

constexpr int pixelsOf(int pictureSize) {
    return (pictureSize + 2) * 8;
}

}  // namespace

XPButtonModel::XPButtonModel(XPButtonWindow& window, XPButtonHost& host, const QPalette& palette)
    : window_(window), host_(host), palette_(palette) {
    PrepareColors();
}

Bgr XPButtonModel::ResolveColor(ColorValue color) const {
    return color.isSystem() ? ColorValue::of(color.resolve(palette_)).value() : color.value();
}

void XPButtonModel::tell(const char* key) {
    host_.propertyChanged(QString::fromLatin1(key));
}

void XPButtonModel::adviseDesigner(const char* text) {
    if (!host_.UserMode()) window_.showBox(QString::fromLatin1(text));
}

void XPButtonModel::PrepareColors() {
    colors_.FaceColor = AdjustColor(ResolveColor(members_.BackColor), 48);
    colors_.HoverFaceColor = AdjustColor(ResolveColor(members_.HoverBackColor), 48);
    colors_.PressedColor = AdjustColor(colors_.FaceColor, -32);
}

// --- Caption ------------------------------------------------------------------------------------

void XPButtonModel::SetCaption(const QString& caption) {
    accessKey_ = accessKeyOf(caption).value_or(accessKey_);
    members_.Caption = caption;
    window_.ComputeLayout();
    window_.Redraw();
    tell("Caption");
}

void XPButtonModel::SetCaptionAlign(int align) {
    if (!isIn(align, kMaxCaptionAlign)) return;
    const bool beside = members_.PictureAlign < kPictureAbove || members_.Picture.isNone();
    if (align != kCaptionCentred && !beside) return adviseDesigner(kOnlyCentred);
    members_.CaptionAlign = align;
    window_.ComputeLayout();
    window_.Redraw();
    tell("CapAlign");
}

void XPButtonModel::alignCentred() {
    if (members_.CaptionAlign == kCaptionCentred) return;
    members_.CaptionAlign = kCaptionCentred;
    tell("CapAlign");
}

void XPButtonModel::SetCaptionStyle(int style) {
    if (!isIn(style, kMaxCaptionStyle)) return;
    members_.CaptionStyle = style;
    if (!members_.Caption.isEmpty()) {
        window_.ComputeLayout();
        window_.Redraw();
    }
    tell("CapStyle");
}

// --- Shape and picture --------------------------------------------------------------------------

void XPButtonModel::SetButtonShape(int shape) {
    if (!isIn(shape, kMaxButtonShape)) return;
    if (shape == kCustomShape) {
        const ButtonPicture& picture = members_.Picture;
        if (picture.isNone() || picture.isIcon()) return adviseDesigner(kNeedsBitmap);
        if (members_.PicturePixels != kFittedSize) {
            window_.setDelayDrawing(true);
            SetPictureSize(kMaxPictureSize);
            window_.setDelayDrawing(false);
        }
    }
    members_.ButtonShape = shape;
    alignCentred();
    window_.UserControl_Resize();
    window_.setDelayDrawing(false);
    tell("Shape");
}

void XPButtonModel::SetPicture(const ButtonPicture& picture) {
    members_.Picture = picture;
    if (members_.PicturePixels == 0) members_.PicturePixels = pixelsOf(0);
    if (members_.ButtonShape < kCustomShape) {
        window_.ComputeLayout();
        window_.Redraw();
    } else {
        if (picture.isNone() || picture.isIcon()) {
            members_.ButtonShape = 0;
            tell("Shape");
        }
        if (picture.isIcon()) adviseDesigner(kNoIcons);
        window_.UserControl_Resize();
    }
    tell("Image");
}

void XPButtonModel::SetPictureAlign(int align) {
    if (!isIn(align, kMaxPictureAlign)) return;
    members_.PictureAlign = align;
    if (align >= kPictureAbove) alignCentred();
    window_.ComputeLayout();
    window_.Redraw();
    tell("ImgAlign");
}

void XPButtonModel::SetPictureSize(int size) {
    if (!isIn(size, kMaxPictureSize)) return;
    if (members_.ButtonShape == kCustomShape) return adviseDesigner(kFixedSize);
    members_.PicturePixels = pixelsOf(size);
    window_.ComputeLayout();
    window_.Redraw();
    tell("ImgSize");
}

int XPButtonModel::PictureSize() {
    if (members_.PicturePixels == 0) members_.PicturePixels = pixelsOf(0);
    return members_.PicturePixels / 8 - 2;
}

void XPButtonModel::SetShowFocusRect(bool show) {
    members_.ShowFocusRect = show;
    if (look_.has(XPButtonLook::kDefault) && !host_.UserMode()) {
        adviseDesigner(kFocusAtDesign);
    } else {
        look_.set(XPButtonLook::kDefault, false);
        window_.Redraw();
    }
    tell("Focus");
}

// --- Colours ------------------------------------------------------------------------------------

bool XPButtonModel::hoverBackFollows() const {
    return (members_.HoverColorLocks & 1) == 0;
}

bool XPButtonModel::hoverForeFollows() const {
    return (members_.HoverColorLocks & 2) == 0;
}

ColorValue XPButtonModel::followedBack() const {
    return members_.GradientMode == 0 ? members_.BackColor : members_.GradientColor;
}

void XPButtonModel::changedColor(const char* key) {
    PrepareColors();
    window_.Redraw();
    tell(key);
}

void XPButtonModel::SetForeColor(ColorValue color) {
    if (color == members_.ForeColor) return;
    members_.ForeColor = color;
    if (hoverForeFollows()) SetHoverForeColor(color);
    changedColor("cFore");
}

void XPButtonModel::SetBackColor(ColorValue color) {
    members_.BackColor = color;
    if (hoverBackFollows()) SetHoverBackColor(followedBack());
    changedColor("cBack");
}

void XPButtonModel::SetGradientColor(ColorValue color) {
    members_.GradientColor = color;
    if (hoverBackFollows() && members_.GradientMode != 0) members_.HoverBackColor = color;
    changedColor("cGradient");
}

void XPButtonModel::SetGotFocusBorderColor(ColorValue color) {
    members_.GotFocusBorderColor = color;
    changedColor("GotFocusBorderColor");
}

void XPButtonModel::SetHoverBorderColor(ColorValue color) {
    members_.HoverBorderColor = color;
    changedColor("HoverBorderColor");
}

void XPButtonModel::SetGradientMode(int mode) {
    if (!isIn(mode, kMaxGradientMode)) return;
    members_.GradientMode = mode;
    if (hoverBackFollows()) members_.HoverBackColor = followedBack();
    changedColor("Gradient");
}

void XPButtonModel::SetResetDefaultColors(bool reset) {
    if (!reset || host_.UserMode()) return;
    window_.setDelayDrawing(true);
    SetBackColor(kButtonFace);
    SetForeColor(kButtonText);
    SetGradientColor(kButtonFace);
    SetGradientMode(0);
    SetHoverColorLocks(0);
    window_.setDelayDrawing(false);
    window_.Redraw();
    tell("cGradient");
    tell("cBack");
}

void XPButtonModel::SetHoverColorLocks(int locks) {
    if (!isIn(locks, kMaxHoverColorLocks)) return;
    members_.HoverColorLocks = locks;
    if (hoverBackFollows()) members_.HoverBackColor = followedBack();
    if (hoverForeFollows()) members_.HoverForeColor = members_.ForeColor;
    changedColor("LockHover");
}

void XPButtonModel::SetHoverForeColor(ColorValue color) {
    if (color != members_.HoverForeColor && color != members_.ForeColor)
        members_.HoverColorLocks |= 2;
    members_.HoverForeColor = color;
    changedColor("cFHover");
}

void XPButtonModel::SetHoverBackColor(ColorValue color) {
    if (color != members_.HoverBackColor && color != members_.BackColor)
        members_.HoverColorLocks |= 1;
    members_.HoverBackColor = color;
    changedColor("cBHover");
}

// --- Making and loading -------------------------------------------------------------------------

void XPButtonModel::InitProperties() {
    members_ = XPButtonMembers{};
    members_.Caption = host_.DisplayName();
    PrepareColors();
    for (const char* key : {"Caption", "CapAlign", "Focus", "cFHover", "cBHover", "Font"})
        tell(key);
}

void XPButtonModel::load(const XPButtonMembers& members) {
    members_ = members;
    PrepareColors();
    SetCaption(members.Caption);
}

void XPButtonModel::setPalette(const QPalette& palette) {
    palette_ = palette;
    PrepareColors();
    window_.Redraw();
}

}  // namespace brindlex
