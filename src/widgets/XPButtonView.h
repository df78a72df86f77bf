#pragma once

#include <QAccessible>
#include <QWidget>
#include <tuple>

#include "widgets/XPButtonFrame.h"
#include "widgets/XPButtonModel.h"

namespace brindlex {

class Desktop;

/// A button as it is seen: the members of its window, its region and layout, and when it is
/// painted. Sizes are logical pixels. The widget's mask is the window region.
///
/// A redraw is painted from the event loop, once for all that have come together by then.
class XPButtonView : public QWidget, public XPButtonModel {
  public:
    /// Of the button itself, whether its container is enabled or not.
    bool Enabled() const { return !testAttribute(Qt::WA_ForceDisabled); }
    void SetEnabled(bool on);
    /// 0 to 15, or 99 for the MouseIcon; anything else is ignored.
    int MousePointer() const { return pointer_; }
    void SetMousePointer(int pointer);
    const ButtonPicture& MouseIcon() const { return mouseIcon_; }
    /// None or an icon, which makes the MousePointer 99. A bitmap is refused with a box.
    void SetMouseIcon(const ButtonPicture& icon);
    const QFont& Font() const { return font(); }
    void SetFont(const QFont& font);
    /// What the window is painted on. The toolkit refuses to paint on it outside of a paint event.
    QPaintDevice* hDC() { return this; }
    /// Gives the widget a native window of its own when it has none.
    WId hWnd() const { return winId(); }
    /// Switches delayed drawing off and redraws.
    void Refresh() { DelayDrawing(false); }
    void DelayDrawing(bool on) override;

    /// What the button shows, until it changes. It may grow here to have the region and layout of
    /// its size; while drawing is delayed they are those from before.
    XPButtonFrame frame();

  protected:
    /// `desktop` and `host` outlive the view.
    XPButtonView(Desktop& desktop, QWidget* parent, XPButtonHost* host);

    void Redraw() override;
    /// Paints a redraw that is due at once: what follows may take its time.
    void showRedraw();
    void ComputeLayout() override;
    void UserControl_Resize() override;
    void showBox(const QString& text) override;
    bool isOnFace(const QPoint& place) const;
    /// Tells assistive technology what has changed.
    void announce(QAccessible::State changed);

    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    /// What waits for the end of the delay. Each includes those before it.
    enum class Work { Nothing, Layout, Region };

    /// The picture, its drawn size and the pixel ratio of the screen.
    using MaskSource = std::tuple<ButtonPicture, QSize, double>;

    bool putOff(Work work);
    void doPutOff();
    void fit();
    XPButtonFrame makeFrame();
    void showPointer();
    void UserControl_Paint();
    void UserControl_Show();

    Desktop& desktop_;
    int pointer_ = 0;
    ButtonPicture mouseIcon_;

    QSize fitted_{0, 0};  // the size that region and layout are for
    XPButtonRegion region_;
    XPButtonLayout layout_;
    XPButtonCaption caption_;
    MaskSource maskSource_;
    QImage MaskBitmap_;  // of maskSource_

    bool delayed_ = false;
    Work putOff_ = Work::Nothing;
    bool redrawIsDue_ = false;
};

}  // namespace brindlex
