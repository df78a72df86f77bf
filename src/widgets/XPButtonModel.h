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

    /// The character behind its last "&" becomes the access key; without a "&" that stays.
    void SetCaption(const QString& caption);
    /// 0 and 1 are refused while a picture stands above or below the caption.
    void SetCaptionAlign(int align);
    void SetCaptionStyle(int style);
    /// Centres the caption, and ends delayed drawing. 7 is refused without a bitmap, and makes the
    /// picture's size 4.
    void SetButtonShape(int shape);
    /// Shape 7 becomes 0 without a bitmap.
    void SetPicture(const ButtonPicture& picture);
    /// 4 and 5, above and below the caption, centre that.
    void SetPictureAlign(int align);
    /// 0 to 4, for 16 to 48 pixels. No effect for shape 7.
    void SetPictureSize(int size);
    /// A size that is not set becomes 16 pixels here.
    int PictureSize();
    /// Takes the default look away until the host's DisplayAsDefault is heard of again, but not
    /// while the form is being designed.
    void SetShowFocusRect(bool show);

    // The hover colours follow unless they are locked: HoverForeColor the ForeColor, HoverBackColor
    // the GradientColor in a gradient mode, else the BackColor. One that is set to something else
    // is locked from then on, also when it is set back.
    void SetForeColor(ColorValue color);
    void SetBackColor(ColorValue color);
    void SetGradientColor(ColorValue color);
    void SetGotFocusBorderColor(ColorValue color);
    void SetHoverBorderColor(ColorValue color);
    void SetGradientMode(int mode);
    /// No effect with false, or when no form is being designed.
    void SetResetDefaultColors(bool reset);
    /// A colour that is not locked goes back to the one that it follows.
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
