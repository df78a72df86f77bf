#pragma once

#include <QLatin1String>

#include "widgets/XPButtonHost.h"
#include "widgets/XPButtonMembers.h"

namespace brindlex {

/// The members of one button and the rules between them. A set ignores a value outside its table.
/// Any other it stores; then it has the button laid out and redrawn as far as needed, and tells the
/// host the key. A box that advises the designer comes last: when it closes, the button may be
/// gone.
class XPButtonModel {
  public:
    const QString& Caption() const { return members_.Caption; }
    /// The character behind the last "&" becomes the access key; without a "&" that stays.
    void SetCaption(const QString& caption);
    int CaptionAlign() const { return members_.CaptionAlign; }
    /// 0 and 1 are refused while a picture stands above or below the caption.
    void SetCaptionAlign(int align);
    int CaptionStyle() const { return members_.CaptionStyle; }
    void SetCaptionStyle(int style);
    int ButtonShape() const { return members_.ButtonShape; }
    /// Centres the caption and ends delayed drawing. 7 is refused without a bitmap, and makes
    /// PictureSize 4.
    void SetButtonShape(int shape);
    const ButtonPicture& Picture() const { return members_.Picture; }
    /// Shape 7 becomes 0 without a bitmap.
    void SetPicture(const ButtonPicture& picture);
    int PictureAlign() const { return members_.PictureAlign; }
    /// 4 and 5 centre the caption.
    void SetPictureAlign(int align);
    /// 0 to 4, for 16 to 48 pixels. A size that is not set becomes 16 pixels here.
    int PictureSize();
    /// Refused for shape 7.
    void SetPictureSize(int size);
    bool ShowFocusRect() const { return members_.ShowFocusRect; }
    /// Outside of design mode the button loses the default look until followDefault.
    void SetShowFocusRect(bool show);

    // An unlocked hover colour follows: HoverForeColor the ForeColor, HoverBackColor the
    // GradientColor in a gradient mode, else the BackColor. Setting it to another colour locks it;
    // setting it back does not unlock it.
    ColorValue ForeColor() const { return members_.ForeColor; }
    void SetForeColor(ColorValue color);
    ColorValue BackColor() const { return members_.BackColor; }
    void SetBackColor(ColorValue color);
    ColorValue GradientColor() const { return members_.GradientColor; }
    void SetGradientColor(ColorValue color);
    ColorValue GotFocusBorderColor() const { return members_.GotFocusBorderColor; }
    void SetGotFocusBorderColor(ColorValue color);
    ColorValue HoverBorderColor() const { return members_.HoverBorderColor; }
    void SetHoverBorderColor(ColorValue color);
    int GradientMode() const { return members_.GradientMode; }
    void SetGradientMode(int mode);
    bool ResetDefaultColors() const { return false; }
    /// Only true has an effect, and only in design mode.
    void SetResetDefaultColors(bool reset);
    int HoverColorLocks() const { return members_.HoverColorLocks; }
    /// A hover colour that this unlocks goes back to the one that it follows.
    void SetHoverColorLocks(int locks);
    ColorValue HoverForeColor() const { return members_.HoverForeColor; }
    void SetHoverForeColor(ColorValue color);
    ColorValue HoverBackColor() const { return members_.HoverBackColor; }
    void SetHoverBackColor(ColorValue color);

    /// While on, the button is neither laid out nor redrawn; that follows when it goes off.
    virtual void DelayDrawing(bool on) = 0;

    const XPButtonState& state() const { return state_; }
    const XPButtonWorkingColors& workingColors() const { return colors_; }
    /// Empty when there is none.
    const QString& accessKey() const { return accessKey_; }

  protected:
    /// `button` is the widget that has the members; it answers where there is no host, and gives
    /// the system colours. Both outlive the model, which asks nothing of the host here.
    XPButtonModel(const QWidget& button, XPButtonHost* host);
    ~XPButtonModel() = default;

    XPButtonHost& host() const { return host_; }
    const XPButtonMembers& members() const { return members_; }
    /// Takes the members as they are, and the access key from the caption.
    void setMembers(const XPButtonMembers& members);
    /// Gives or takes the default look as the host says.
    void followDefault();
    /// Works out the working colours.
    void PrepareResource();
    void tell(QLatin1String key) { host_.propertyChanged(key); }

    // --- What the button does when members change -----------------------------------------------
    virtual void Redraw() = 0;
    /// Places caption and picture.
    virtual void ComputeLayout() = 0;
    /// Region, layout and a redraw for the present size and shape.
    virtual void UserControl_Resize() = 0;
    virtual void captionChanged() = 0;
    /// Shows a box with an information icon and the program's title.
    virtual void showBox(const QString& text) = 0;

    XPButtonState state_;

  private:
    void adviseDesigner(const char* text);
    template <typename T>
    void setAlong(T& member, const T& value, QLatin1String key);
    Bgr ResolveColor(ColorValue color) const;
    bool hoverBackFollows() const { return (members_.HoverColorLocks & 1) == 0; }
    bool hoverForeFollows() const { return (members_.HoverColorLocks & 2) == 0; }
    ColorValue followedBack() const;
    void followBack();
    void centreCaption();
    void changedLayout(QLatin1String key);
    void changedColor(QLatin1String key);

    const QWidget& button_;
    XPButtonWidgetHost widgetHost_{button_};
    XPButtonHost& host_;
    XPButtonMembers members_;
    XPButtonWorkingColors colors_;
    QString accessKey_;
};

}  // namespace brindlex
