#include <QAccessible>
#include <QPainter>
#include <QScreen>
#include <utility>

#include "widgets/XPButton.h"
#include "widgets/XPButtonPainter.h"

namespace brindlex {
void XPButton::Refresh() {
    DelayDrawing(false);
}

void XPButton::DelayDrawing(bool on) {
    setDelayDrawing(on);
    if (!on) Redraw();
}

void XPButton::setDelayDrawing(bool on) {
    delay_.set(on);
    if (!on && delay_.hasWork()) bringUpToDate();
}

/// What waited while drawing was delayed.
void XPButton::bringUpToDate() {
    const XPButtonDelay::Work work = delay_.takeWork();
    if (work == XPButtonDelay::Work::Region) return UserControl_Resize();
    if (work == XPButtonDelay::Work::Layout) placeContent();
    Redraw();
}

void XPButton::Redraw() {
    announce();
    if (delay_.isOn()) return;
    frame_ = makeFrame();
    ownPaint_ = !visibleRegion().isEmpty();
    update();
}

void XPButton::announce() {
    const XPButtonLook& look = look_;
    const XPButtonLook before = std::exchange(announced_, look);
    if (before == look || !QAccessible::isActive()) return;
    QAccessible::State changed;
    changed.pressed = before.has(XPButtonLook::kDown) != look.has(XPButtonLook::kDown);
    changed.hotTracked = before.Hovering != look.Hovering;
    changed.defaultButton = before.has(XPButtonLook::kDefault) != look.has(XPButtonLook::kDefault);
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

void XPButton::announceEnabled() {
    QAccessible::State changed;
    changed.disabled = true;
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

/// What has waited until now is not for a paint event to do: it may change the size.
void XPButton::UserControl_Paint() {
    delay_.set(false);
    if (delay_.hasWork())
        QMetaObject::invokeMethod(
            this, [this] { bringUpToDate(); }, Qt::QueuedConnection);
    else
        frame_ = makeFrame();
}

void XPButton::paintEvent(QPaintEvent*) {
    if (!std::exchange(ownPaint_, false)) UserControl_Paint();
    QPainter painter(this);
    PaintFrame(painter, frame_);
}

XPButtonFrame XPButton::frame() {
    fitRegion();
    return makeFrame();
}

XPButtonFrame XPButton::makeFrame() {
    const XPButtonMembers& m = members();
    const XPButtonWorkingColors& colors = model_.workingColors();
    XPButtonFrame frame;
    frame.size = laidOut_;
    frame.screen = screen()->size();
    frame.ButtonShape = m.ButtonShape;
    frame.GradientMode = m.GradientMode;
    frame.CaptionStyle = m.CaptionStyle;
    frame.look = look_;
    frame.Enabled = isEnabled();
    frame.ShowFocusRect = m.ShowFocusRect;
    frame.FaceColor = colors.FaceColor;
    frame.PressedColor = colors.PressedColor;
    frame.HoverFaceColor = colors.HoverFaceColor;
    frame.ForeColor = model_.ResolveColor(m.ForeColor);
    frame.HoverForeColor = model_.ResolveColor(m.HoverForeColor);
    frame.GradientColor = model_.ResolveColor(m.GradientColor);
    frame.GotFocusBorderColor = m.GotFocusBorderColor.value();
    frame.HoverBorderColor = m.HoverBorderColor.value();
    frame.hoverKeepsGradient = m.GradientColor == m.HoverBackColor;
    frame.region = region_;
    frame.layout = layout_;
    frame.caption = caption_;
    maskBitmap_.PrepareMask(m.Picture, layout_.PictureRect.size(), devicePixelRatioF());
    frame.picture = frame.Enabled ? maskBitmap_.image() : maskBitmap_.disabledImage();
    return frame;
}

}  // namespace brindlex
