#include "widgets/XPButtonModel.h"

#include <QWidget>

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

constexpr int kFaceShift = 48;
constexpr int kPressedShift = -32;

constexpr bool isIn(int value, int highest) {
    return value >= 0 && value <= highest;
}

constexpr int pixelsOf(int pictureSize) {
    return (pictureSize + 2) * 8;
}

}  // namespace

XPButtonModel::XPButtonModel(const QWidget& button, XPButtonHost* host)
    : button_(button), host_(host ? *host : widgetHost_) {
    PrepareResource();
}

void XPButtonModel::setMembers(const XPButtonMembers& members) {
    members_ = members;
    PrepareResource();
    SetCaption(members.Caption);
}

/// Changes a member along with the one that is set.
template <typename T>
void XPButtonModel::setAlong(T& member, const T& value, QLatin1String key) {
    if (member == value) return;
    member = value;
    tell(key);
}

void XPButtonModel::changedLayout(QLatin1String key) {
    ComputeLayout();
    Redraw();
    tell(key);
}

void XPButtonModel::adviseDesigner(const char* text) {
    if (!host_.UserMode()) showBox(QString::fromLatin1(text));
}

// --- Caption ------------------------------------------------------------------------------------

void XPButtonModel::SetCaption(const QString& caption) {
    const qsizetype mark = caption.lastIndexOf(u'&');
    if (mark >= 0) accessKey_ = caption.mid(mark + 1, 1);
    members_.Caption = caption;
    captionChanged();
    changedLayout(storekey::kCaption);
}

void XPButtonModel::SetCaptionAlign(int align) {
    if (!isIn(align, kMaxCaptionAlign)) return;
    const bool beside = members_.PictureAlign < kAbove || members_.Picture.isNone();
    if (align != kCaptionCentred && !beside) return adviseDesigner(kOnlyCentred);
    members_.CaptionAlign = align;
    changedLayout(storekey::kCaptionAlign);
}

void XPButtonModel::centreCaption() {
    setAlong(members_.CaptionAlign, kCaptionCentred, storekey::kCaptionAlign);
}

void XPButtonModel::SetCaptionStyle(int style) {
    if (!isIn(style, kMaxCaptionStyle)) return;
    members_.CaptionStyle = style;
    if (members_.Caption.isEmpty()) return tell(storekey::kCaptionStyle);
    changedLayout(storekey::kCaptionStyle);
}

// --- Shape and picture --------------------------------------------------------------------------

void XPButtonModel::SetButtonShape(int shape) {
    if (!isIn(shape, kMaxButtonShape)) return;
    if (shape == kCustomShape) {
        const ButtonPicture& picture = members_.Picture;
        if (picture.isNone() || picture.isIcon()) return adviseDesigner(kNeedsBitmap);
        setAlong(members_.PicturePixels, kFittedSize, storekey::kPictureSize);
    }
    members_.ButtonShape = shape;
    centreCaption();
    UserControl_Resize();
    DelayDrawing(false);
    tell(storekey::kButtonShape);
}

void XPButtonModel::SetPicture(const ButtonPicture& picture) {
    const bool refused = members_.ButtonShape == kCustomShape && picture.isIcon();
    members_.Picture = picture;
    if (members_.PicturePixels == 0)
        setAlong(members_.PicturePixels, pixelsOf(0), storekey::kPictureSize);
    if (members_.ButtonShape < kCustomShape) {
        ComputeLayout();
        Redraw();
    } else {
        if (picture.isNone() || picture.isIcon())
            setAlong(members_.ButtonShape, 0, storekey::kButtonShape);
        UserControl_Resize();
    }
    tell(storekey::kPicture);
    if (refused) adviseDesigner(kNoIcons);
}

void XPButtonModel::SetPictureAlign(int align) {
    if (!isIn(align, kMaxPictureAlign)) return;
    members_.PictureAlign = align;
    if (align >= kAbove) centreCaption();
    changedLayout(storekey::kPictureAlign);
}

void XPButtonModel::SetPictureSize(int size) {
    if (!isIn(size, kMaxPictureSize)) return;
    if (members_.ButtonShape == kCustomShape) return adviseDesigner(kFixedSize);
    members_.PicturePixels = pixelsOf(size);
    changedLayout(storekey::kPictureSize);
}

int XPButtonModel::PictureSize() {
    if (members_.PicturePixels == 0) members_.PicturePixels = pixelsOf(0);
    return members_.PicturePixels / 8 - 2;
}

void XPButtonModel::SetShowFocusRect(bool show) {
    members_.ShowFocusRect = show;
    if (host_.UserMode()) state_.set(XPButtonState::kDefault, false);
    Redraw();
    tell(storekey::kShowFocusRect);
    if (state_.has(XPButtonState::kDefault)) adviseDesigner(kFocusAtDesign);
}

void XPButtonModel::followDefault() {
    const bool shows = members_.ShowFocusRect || !host_.UserMode();
    state_.set(XPButtonState::kDefault, shows && host_.DisplayAsDefault());
    Redraw();
}

// --- Colours ------------------------------------------------------------------------------------

Bgr XPButtonModel::ResolveColor(ColorValue color) const {
    return color.plain(button_.palette()).value();
}

void XPButtonModel::PrepareResource() {
    colors_.FaceColor = AdjustColor(ResolveColor(members_.BackColor), kFaceShift);
    colors_.HoverFaceColor = AdjustColor(ResolveColor(members_.HoverBackColor), kFaceShift);
    colors_.PressedColor = AdjustColor(colors_.FaceColor, kPressedShift);
    colors_.ForeColor = ResolveColor(members_.ForeColor);
    colors_.HoverForeColor = ResolveColor(members_.HoverForeColor);
    colors_.GradientColor = ResolveColor(members_.GradientColor);
}

ColorValue XPButtonModel::followedBack() const {
    return members_.GradientMode == 0 ? members_.BackColor : members_.GradientColor;
}

void XPButtonModel::followBack() {
    if (hoverBackFollows())
        setAlong(members_.HoverBackColor, followedBack(), storekey::kHoverBackColor);
}

void XPButtonModel::changedColor(QLatin1String key) {
    PrepareResource();
    Redraw();
    tell(key);
}

void XPButtonModel::SetForeColor(ColorValue color) {
    if (color == members_.ForeColor) return;
    members_.ForeColor = color;
    if (hoverForeFollows()) SetHoverForeColor(color);
    changedColor(storekey::kForeColor);
}

void XPButtonModel::SetBackColor(ColorValue color) {
    members_.BackColor = color;
    if (hoverBackFollows()) SetHoverBackColor(followedBack());
    changedColor(storekey::kBackColor);
}

void XPButtonModel::SetGradientColor(ColorValue color) {
    members_.GradientColor = color;
    if (members_.GradientMode != 0) followBack();
    PrepareResource();
    if (members_.GradientMode != 0) Redraw();
    tell(storekey::kGradientColor);
}

void XPButtonModel::SetGotFocusBorderColor(ColorValue color) {
    members_.GotFocusBorderColor = color;
    changedColor(storekey::kGotFocusBorderColor);
}

void XPButtonModel::SetHoverBorderColor(ColorValue color) {
    members_.HoverBorderColor = color;
    changedColor(storekey::kHoverBorderColor);
}

void XPButtonModel::SetGradientMode(int mode) {
    if (!isIn(mode, kMaxGradientMode)) return;
    members_.GradientMode = mode;
    followBack();
    changedColor(storekey::kGradientMode);
}

void XPButtonModel::SetResetDefaultColors(bool reset) {
    if (!reset || host_.UserMode()) return;
    DelayDrawing(true);
    SetBackColor(kButtonFace);
    SetForeColor(kButtonText);
    SetGradientColor(kButtonFace);
    SetGradientMode(0);
    SetHoverColorLocks(0);
    DelayDrawing(false);
    tell(storekey::kGradientColor);
    tell(storekey::kBackColor);
}

void XPButtonModel::SetHoverColorLocks(int locks) {
    if (!isIn(locks, kMaxHoverColorLocks)) return;
    members_.HoverColorLocks = locks;
    followBack();
    if (hoverForeFollows())
        setAlong(members_.HoverForeColor, members_.ForeColor, storekey::kHoverForeColor);
    changedColor(storekey::kHoverColorLocks);
}

void XPButtonModel::SetHoverForeColor(ColorValue color) {
    if (color != members_.HoverForeColor && color != members_.ForeColor)
        setAlong(members_.HoverColorLocks, members_.HoverColorLocks | 2,
                 storekey::kHoverColorLocks);
    members_.HoverForeColor = color;
    changedColor(storekey::kHoverForeColor);
}

void XPButtonModel::SetHoverBackColor(ColorValue color) {
    if (color != members_.HoverBackColor && color != members_.BackColor)
        setAlong(members_.HoverColorLocks, members_.HoverColorLocks | 1,
                 storekey::kHoverColorLocks);
    members_.HoverBackColor = color;
    changedColor(storekey::kHoverBackColor);
}

}  // namespace brindlex
