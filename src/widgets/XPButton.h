#pragma once

#include <QKeySequence>
#include <QTimer>
#include <QWidget>
#include <memory>

#include "widgets/XPButtonDelay.h"
#include "widgets/XPButtonEvents.h"
#include "widgets/XPButtonFace.h"
#include "widgets/XPButtonFrame.h"
#include "widgets/XPButtonHost.h"
#include "widgets/XPButtonInput.h"
#include "widgets/XPButtonModel.h"
#include "widgets/XPButtonStore.h"
#include "widgets/XPButtonWindow.h"

namespace brindlex {

class Desktop;
class PropertyBag;

/// A push button that paints itself: rectangular, slanted, oval or a picture, with its own colours,
/// caption styles and a look for the pointer. Sizes are logical pixels. What a member takes and
/// what follows from it stands with its set here or in XPButtonModel. The widget's mask is the
/// window region.
///
/// A program lets it stand in a widget and sets its members; Enter and Escape in a window come with
/// XPButtonForm. A host of its own gives it design mode and hears which members changed.
class XPButton : public QWidget, private XPButtonWindow {
  public:
    /// `desktop` shows its boxes. Without a host the widget's surroundings answer for one. Both
    /// outlive the button.
    explicit XPButton(Desktop& desktop, QWidget* parent = nullptr, XPButtonHost* host = nullptr);
    ~XPButton() override;

    XPButtonEvents events;

    // --- Members --------------------------------------------------------------------------------
    QString Caption() const { return members().Caption; }
    void SetCaption(const QString& caption);
    int CaptionAlign() const { return members().CaptionAlign; }
    void SetCaptionAlign(int align) { model_.SetCaptionAlign(align); }
    int CaptionStyle() const { return members().CaptionStyle; }
    void SetCaptionStyle(int style) { model_.SetCaptionStyle(style); }
    int ButtonShape() const { return members().ButtonShape; }
    void SetButtonShape(int shape);
    ButtonPicture Picture() const { return members().Picture; }
    void SetPicture(const ButtonPicture& picture);
    int PictureAlign() const { return members().PictureAlign; }
    void SetPictureAlign(int align) { model_.SetPictureAlign(align); }
    /// Of the button itself, also while what it stands in is disabled.
    bool Enabled() const { return !testAttribute(Qt::WA_ForceDisabled); }
    void SetEnabled(bool on);
    bool ShowFocusRect() const { return members().ShowFocusRect; }
    void SetShowFocusRect(bool show) { model_.SetShowFocusRect(show); }
    int PictureSize() { return model_.PictureSize(); }
    void SetPictureSize(int size) { model_.SetPictureSize(size); }
    /// 0 to 15, or 99 for the MouseIcon; anything else is ignored.
    int MousePointer() const { return pointer_; }
    void SetMousePointer(int pointer);
    ButtonPicture MouseIcon() const { return mouseIcon_; }
    /// None or an icon, which makes the MousePointer 99. A bitmap is refused with a box.
    void SetMouseIcon(const ButtonPicture& icon);
    QFont Font() const { return font(); }
    void SetFont(const QFont& font);
    ColorValue ForeColor() const { return members().ForeColor; }
    void SetForeColor(ColorValue color) { model_.SetForeColor(color); }
    ColorValue BackColor() const { return members().BackColor; }
    void SetBackColor(ColorValue color) { model_.SetBackColor(color); }
    ColorValue GradientColor() const { return members().GradientColor; }
    void SetGradientColor(ColorValue color) { model_.SetGradientColor(color); }
    ColorValue GotFocusBorderColor() const { return members().GotFocusBorderColor; }
    void SetGotFocusBorderColor(ColorValue color) { model_.SetGotFocusBorderColor(color); }
    ColorValue HoverBorderColor() const { return members().HoverBorderColor; }
    void SetHoverBorderColor(ColorValue color) { model_.SetHoverBorderColor(color); }
    int GradientMode() const { return members().GradientMode; }
    void SetGradientMode(int mode) { model_.SetGradientMode(mode); }
    bool ResetDefaultColors() const { return false; }
    void SetResetDefaultColors(bool reset) { model_.SetResetDefaultColors(reset); }
    int HoverColorLocks() const { return members().HoverColorLocks; }
    void SetHoverColorLocks(int locks) { model_.SetHoverColorLocks(locks); }
    ColorValue HoverForeColor() const { return members().HoverForeColor; }
    void SetHoverForeColor(ColorValue color) { model_.SetHoverForeColor(color); }
    ColorValue HoverBackColor() const { return members().HoverBackColor; }
    void SetHoverBackColor(ColorValue color) { model_.SetHoverBackColor(color); }
    /// What the window is painted on. The toolkit refuses to paint on it outside of a paint event.
    QPaintDevice* hDC() { return this; }
    /// Gives the widget a native window of its own when it has none.
    WId hWnd() const { return winId(); }
    /// Switches delayed drawing off and redraws.
    void Refresh();
    /// While on, the button keeps its frame, region and layout; they follow when it goes off.
    void DelayDrawing(bool on);

    // --- The host's side ------------------------------------------------------------------------
    /// Makes a new button of the host's: call it instead of ReadProperties.
    void InitProperties();
    /// What is not stored gets the default of the place that the button stands in. Ends delayed
    /// drawing.
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;
    /// An ambient member of the host changed. Names are taken without regard to case.
    void UserControl_AmbientChanged(const QString& name);
    /// The access key, or Enter (13) and Escape (27) for the form's default and cancel button.
    void UserControl_AccessKeyPress(int KeyAscii);
    /// Presses it from outside, as its form and assistive technology do: nothing while it is
    /// disabled or hidden, else UserControl_AccessKeyPress.
    void press(int KeyAscii);

    // --- What it shows --------------------------------------------------------------------------
    // The region, the rectangles and the frame follow a change of the size here at the latest, and
    // the button may grow with it. While drawing is delayed they are those from before.
    const XPButtonLook& look() const { return look_; }
    const XPButtonRegion& region();
    const XPButtonLayout& layoutRects();
    /// Empty without an access key.
    QKeySequence accessKeySequence() const;
    /// The frame of the present state.
    XPButtonFrame frame();
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

  private:
    const XPButtonMembers& members() const { return model_.members(); }
    void followCaption();
    void followFocus();
    void showPointer();
    XPButtonDefaults storeDefaults() const;
    void UserControl_Show();
    void UserControl_Paint();
    void UserControl_Terminate();
    void bringUpToDate();
    void fitFace();
    XPButtonFrame makeFrame();
    void announce();
    void announceEnabled();
    XPButtonMouse mouseOf(const QMouseEvent& event, int button) const;

    // --- What model and input ask of the window -------------------------------------------------
    void Redraw() override;
    void redrawAtOnce() override;
    void setDelayDrawing(bool on) override;
    void ComputeLayout() override;
    void UserControl_Resize() override;
    void showBox(const QString& text) override;
    bool isUnderPointer() const override;
    QPoint pointerPosition() const override;
    int heldButtons() const override;
    void setHoverTimer(bool on) override;
    void postToContainer(QKeyCombination key) override;

    Desktop& desktop_;
    std::unique_ptr<XPButtonHost> ownHost_;
    XPButtonHost& host_;
    XPButtonLook look_;
    XPButtonModel model_;
    XPButtonInput input_;
    QTimer tmrHover_{this};
    int pointer_ = 0;
    ButtonPicture mouseIcon_;
    int accessKeyId_ = 0;

    XPButtonFace face_;
    XPButtonFrame frame_;
    XPButtonDelay delay_;
    bool pointerLeft_ = false;  // the toolkit told so last
    bool ownPaint_ = false;     // the next paint event is taken for the answer to Redraw
    XPButtonLook announced_;
};

}  // namespace brindlex
