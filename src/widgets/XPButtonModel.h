#pragma once

#include <QPalette>

#include "widgets/XPButtonColors.h"
#include "widgets/XPButtonMembers.h"

namespace brindlex {

class XPButtonHost;
class XPButtonWindow;

/// Colours that follow from BackColor and HoverBackColor.
struct XPButtonWorkingColors {
    Bgr FaceColor = 0;
    Bgr PressedColor = 0;
    Bgr HoverFaceColor = 0;

    bool operator==(const XPButtonWorkingColors&) const = default;
};

/// The members of one button and the rules between them. A set takes the value or, outside its
/// table, ignores it; then it tells the host the key and has the window lay out and draw what
/// changed.
class XPButtonModel {
  public:
    /// All outlive the model. Nothing is asked of them here. Of `look` the model sets kDefault.
    XPButtonModel(XPButtonLook& look, XPButtonWindow& window, XPButtonHost& host,
                  const QPalette& palette);

    const XPButtonMembers& members() const { return members_; }
    const XPButtonWorkingColors& workingColors() const { return colors_; }
    Bgr ResolveColor(ColorValue color) const;
    /// The character of the access key; empty when there is none.
    const QString& accessKey() const { return accessKey_; }

    void SetCaption(const QString& caption);
    /// 0 and 1 are refused while a picture stands above or below the caption.
    void SetCaptionAlign(int align);
    void SetCaptionStyle(int style);
    /// 7 is refused without a bitmap.
    void SetButtonShape(int shape);
    void SetPicture(const ButtonPicture& picture);
    void SetPictureAlign(int align);
    /// 0 to 4, for 16 to 48 pixels. No effect for shape 7.
    void SetPictureSize(int size);
    /// Never 0 or below, whatever was stored: a size that is not set becomes 16 pixels.
    int PictureSize();
    void SetShowFocusRect(bool show);
    void SetForeColor(ColorValue color);
    void SetBackColor(ColorValue color);
    void SetGradientColor(ColorValue color);
    void SetGotFocusBorderColor(ColorValue color);
    void SetHoverBorderColor(ColorValue color);
    void SetGradientMode(int mode);
    void SetResetDefaultColors(bool reset);
    void SetHoverColorLocks(int locks);
    void SetHoverForeColor(ColorValue color);
    void SetHoverBackColor(ColorValue color);

    /// The members of a new button.
    void InitProperties();
    /// Takes stored members as they are; the caption, with its access key, through its set.
    void load(const XPButtonMembers& members);
    /// The host's DisplayAsDefault changed.
    void followDefault();
    /// The present values of the system colours changed.
    void setPalette(const QPalette& palette);

  private:
    void tell(QLatin1String key);
    void adviseDesigner(const char* text);
    void PrepareResource();
    template <typename T>
    void follow(T& member, const T& value, QLatin1String key);
    void alignCentred();
    bool hoverBackFollows() const;
    bool hoverForeFollows() const;
    ColorValue followedBack() const;
    void followBack();
    void changedLayout(QLatin1String key);
    void changedColor(QLatin1String key);

    XPButtonLook& look_;
    XPButtonWindow& window_;
    XPButtonHost& host_;
    QPalette palette_;
    XPButtonMembers members_;
    XPButtonWorkingColors colors_;
    QString accessKey_;
};

}  // namespace brindlex
