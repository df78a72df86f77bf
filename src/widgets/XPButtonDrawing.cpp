#include <QAccessible>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "widgets/XPButton.h"
#include "widgets/XPButtonPainter.h"

namespace brindlex {
namespace {

constexpr Qt::Alignment kAlignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};

constexpr QSize kTextMargins(16, 12);
constexpr QSize kSmallestHint(24, 20);

}  // namespace

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
    if (delay_.isOn()) return;
    frame_ = makeFrame();
    ownPaint_ = !visibleRegion().isEmpty();
    update();
    announce();
}

void XPButton::announce() {
    const XPButtonLook& look = model_.look();
    const XPButtonLook before = std::exchange(announced_, look);
    if (before == look || !QAccessible::isActive()) return;
    QAccessible::State changed;
    changed.pressed = before.has(XPButtonLook::kDown) != look.has(XPButtonLook::kDown);
    changed.hotTracked = before.Hovering != look.Hovering;
    changed.defaultButton = before.has(XPButtonLook::kDefault) != look.has(XPButtonLook::kDefault);
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
    frame.look = model_.look();
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

// --- Size ---------------------------------------------------------------------------------------

void XPButton::UserControl_Resize() {
    if (delay_.putsOff(XPButtonDelay::Work::Region)) return;
    delay_.takeWork();  // all of it follows
    const int shape = members().ButtonShape;
    laidOut_ = QSize(grownWidth(shape, size()), height());
    if (laidOut_ != size()) resize(laidOut_);
    laidOut_ = size();  // it may be kept from growing
    region_ = BuildRegion(shape, laidOut_);
    setMask(region_.window);
    placeContent();
    Redraw();
}

/// A hidden widget hears of its size late.
void XPButton::fitRegion() {
    if (laidOut_ != size()) UserControl_Resize();
}

const XPButtonRegion& XPButton::region() {
    fitRegion();
    return region_;
}

const XPButtonLayout& XPButton::layoutRects() {
    fitRegion();
    return layout_;
}

void XPButton::ComputeLayout() {
    updateGeometry();
    if (!delay_.putsOff(XPButtonDelay::Work::Layout)) placeContent();
}

void XPButton::placeContent() {
    const XPButtonMembers& m = members();
    XPButtonLayoutInput in;
    in.size = laidOut_;
    in.ButtonShape = m.ButtonShape;
    in.LeftEdge = region_.LeftEdge;
    in.RightEdge = region_.RightEdge;
    in.CaptionAlign = m.CaptionAlign;
    in.CaptionStyle = m.CaptionStyle;
    in.picture = m.Picture.image().size();
    in.PictureAlign = m.PictureAlign;
    in.PicturePixels = m.PicturePixels;
    const Qt::Alignment alignment = kAlignments[m.CaptionAlign];
    std::shared_ptr<XPButtonCaption> caption;
    if (!m.Caption.isEmpty()) {
        caption = std::make_shared<XPButtonCaption>(m.Caption, drawingFont(font()),
                                                    mostCharactersOn(laidOut_));
        in.measure = [&](int width) {
            caption->wrap(width, alignment);
            return caption->size();
        };
    }
    layout_ = brindlex::ComputeLayout(in);
    if (caption) caption->wrap(std::max(0, layout_.CaptionRect.width()), alignment);
    caption_ = std::move(caption);
}

QSize XPButton::sizeHint() const {
    const XPButtonMembers& m = members();
    XPButtonCaption caption(m.Caption, drawingFont(font()), mostCharactersOn({}));
    caption.wrap(QWIDGETSIZE_MAX, Qt::AlignLeft);
    QSize content = m.Caption.isEmpty() ? QSize(0, 0) : caption.size();
    const int s = m.Picture.isNone() ? 0 : m.PicturePixels;
    if (m.PictureAlign < kPictureAbove)
        content = QSize(content.width() + s, std::max(content.height(), s));
    else
        content = QSize(std::max(content.width(), s), content.height() + s);
    return wideEnough((content + kTextMargins).expandedTo(kSmallestHint));
}

QSize XPButton::minimumSizeHint() const {
    return wideEnough(kSmallestHint);
}

/// Of a width at which the button does not grow by itself, over its neighbour.
QSize XPButton::wideEnough(const QSize& hint) const {
    const int height = std::max(hint.height(), minimumHeight());
    return {grownWidth(members().ButtonShape, {hint.width(), height}), hint.height()};
}

}  // namespace brindlex
