#include <QAccessible>
#include <QPainter>
#include <QScreen>
#include <utility>

#include "widgets/XPButton.h"
#include "widgets/XPButtonPainter.h"

namespace brindlex {
namespace {

constexpr QSize kSmallestHint(24, 20);

}  // namespace

// --- Size ---------------------------------------------------------------------------------------

void XPButton::UserControl_Resize() {
    if (delay_.putsOff(XPButtonDelay::Work::Region)) return;
    delay_.takeWork();  // all of it follows
    const QSize grown(grownWidth(members().ButtonShape, size()), height());
    face_.fit(grown, members(), font());  // first, so that its resize event finds nothing to do
    if (grown != size()) resize(grown);
    if (grown != size()) face_.fit(size(), members(), font());  // it is kept from growing
    setMask(face_.region().window);
    Redraw();
}

/// A hidden widget hears of its size late.
void XPButton::fitFace() {
    if (face_.size() != size()) UserControl_Resize();
}

const XPButtonRegion& XPButton::region() {
    fitFace();
    return face_.region();
}

const XPButtonLayout& XPButton::layoutRects() {
    fitFace();
    return face_.layout();
}

void XPButton::ComputeLayout() {
    updateGeometry();
    if (!delay_.putsOff(XPButtonDelay::Work::Layout)) face_.place(members(), font());
}

/// A layout may give no less than the minimum height, and no less than a slanted button grows to.
QSize XPButton::minimumSizeHint() const {
    const QSize least = kSmallestHint.expandedTo({0, minimumHeight()});
    return {grownWidth(members().ButtonShape, least), least.height()};
}

QSize XPButton::sizeHint() const {
    return XPButtonFace::preferredSize(members(), font(), minimumSizeHint());
}

// --- Delayed drawing ----------------------------------------------------------------------------

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
    if (work == XPButtonDelay::Work::Layout) face_.place(members(), font());
    Redraw();
}

// --- Frames -------------------------------------------------------------------------------------

/// A button that is not seen gets its frame from its next paint event.
void XPButton::Redraw() {
    announce();
    if (delay_.isOn()) return;
    ownPaint_ = !visibleRegion().isEmpty();
    if (ownPaint_) frame_ = makeFrame();
    update();
}

void XPButton::redrawAtOnce() {
    Redraw();
    if (ownPaint_) repaint();
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
    if (!delay_.hasWork()) {
        frame_ = makeFrame();
        return;
    }
    const auto endDelay = [this] {
        if (!delay_.isOn()) setDelayDrawing(false);
    };
    QMetaObject::invokeMethod(this, endDelay, Qt::QueuedConnection);
}

void XPButton::paintEvent(QPaintEvent*) {
    if (!std::exchange(ownPaint_, false)) UserControl_Paint();
    QPainter painter(this);
    PaintFrame(painter, frame_);
}

XPButtonFrame XPButton::frame() {
    fitFace();
    return makeFrame();
}

XPButtonFrame XPButton::makeFrame() {
    const XPButtonMembers& m = members();
    const XPButtonWorkingColors& colors = model_.workingColors();
    XPButtonFrame frame;
    frame.size = face_.size();
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
    frame.region = face_.region();
    frame.layout = face_.layout();
    frame.caption = face_.caption();
    frame.picture = face_.picture(m.Picture, devicePixelRatioF(), frame.Enabled);
    return frame;
}

}  // namespace brindlex
