#include "widgets/XPButtonView.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "system/Desktop.h"
#include "system/MousePointer.h"
#include "widgets/MaskBitmap.h"

namespace brindlex {

XPButtonView::XPButtonView(Desktop& desktop, QWidget* parent, XPButtonHost* host)
    : QWidget(parent), XPButtonModel(*this, host), desktop_(desktop) {}

// --- Members of the window ----------------------------------------------------------------------

void XPButtonView::SetEnabled(bool on) {
    if (on == Enabled()) return;
    setEnabled(on);
    tell(storekey::kEnabled);
}

void XPButtonView::SetMousePointer(int pointer) {
    if (!isMousePointer(pointer)) return;
    pointer_ = pointer;
    showPointer();
    tell(storekey::kMousePointer);
}

void XPButtonView::showPointer() {
    if (const auto cursor = cursorOf(pointer_, QPixmap::fromImage(mouseIcon_.image())))
        setCursor(*cursor);
    else
        unsetCursor();
}

void XPButtonView::SetMouseIcon(const ButtonPicture& icon) {
    if (!icon.isNone() && !icon.isIcon())
        return showBox(QStringLiteral("Select .ico Or .cur Files Only"));
    mouseIcon_ = icon;
    if (icon.isNone())
        showPointer();
    else
        SetMousePointer(kCustomPointer);
    tell(storekey::kMouseIcon);
}

void XPButtonView::SetFont(const QFont& newFont) {
    setFont(newFont);
    tell(storekey::kFont);
}

/// The window owns the box: the button may go while that is open.
void XPButtonView::showBox(const QString& text) {
    desktop_.showBox(window(),
                     {text, QGuiApplication::applicationDisplayName(), BoxIcon::Information});
}

void XPButtonView::announce(QAccessible::State changed) {
    QAccessibleStateChangeEvent event(this, changed);
    QAccessible::updateAccessibility(&event);
}

/// The toolkit would answer each of these with a paint event, delayed drawing or not.
void XPButtonView::changeEvent(QEvent* event) {
    switch (event->type()) {
        case QEvent::FontChange:
            ComputeLayout();
            return Redraw();
        case QEvent::PaletteChange:
            PrepareResource();
            return Redraw();
        case QEvent::EnabledChange: {
            QAccessible::State changed;
            changed.disabled = true;
            announce(changed);
            return Redraw();
        }
        default:
            return QWidget::changeEvent(event);
    }
}

// --- Region and layout --------------------------------------------------------------------------

void XPButtonView::UserControl_Resize() {
    if (putOff(Work::Region)) return;
    fitted_ = QSize(grownWidth(ButtonShape(), size()), height());
    if (fitted_ != size()) resize(fitted_);  // its resize event finds nothing to do
    fitted_ = size();                        // the button may have been kept from growing
    region_ = BuildRegion(ButtonShape(), fitted_);
    setMask(region_.window);
    ComputeLayout();
    Redraw();
}

void XPButtonView::resizeEvent(QResizeEvent*) {
    fit();
}

/// A hidden widget hears of its size late.
void XPButtonView::fit() {
    if (fitted_ != size()) UserControl_Resize();
}

void XPButtonView::ComputeLayout() {
    if (putOff(Work::Layout)) return;
    constexpr Qt::Alignment kAlignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};
    const Qt::Alignment alignment = kAlignments[CaptionAlign()];
    caption_.setText(Caption(), font());
    const QSize text = caption_.wrap(captionRoom(members(), fitted_, region_), alignment);
    layout_ = brindlex::ComputeLayout(members(), fitted_, region_, text);
    caption_.wrap(layout_.CaptionRect.width(), alignment);
}

bool XPButtonView::isOnFace(const QPoint& place) const {
    return rect().contains(place) && region_.window.contains(place);
}

// --- Painting -----------------------------------------------------------------------------------

void XPButtonView::Redraw() {
    if (delayed_) return;
    redrawIsDue_ = isVisible();
    update();
}

void XPButtonView::showRedraw() {
    if (redrawIsDue_) repaint();
}

void XPButtonView::DelayDrawing(bool on) {
    if (on) showRedraw();
    delayed_ = on;
    if (on) return;
    doPutOff();
    Redraw();
}

/// True while drawing is delayed: the work is not for now.
bool XPButtonView::putOff(Work work) {
    if (delayed_) putOff_ = std::max(putOff_, work);
    return delayed_;
}

void XPButtonView::doPutOff() {
    const Work work = std::exchange(putOff_, Work::Nothing);
    if (work == Work::Region) UserControl_Resize();
    if (work == Work::Layout) ComputeLayout();
}

/// The work that was put off may change the size, which a paint event must not.
void XPButtonView::UserControl_Paint() {
    delayed_ = false;
    if (putOff_ == Work::Nothing) return;
    const auto refresh = [this] {
        if (!delayed_) Refresh();
    };
    QMetaObject::invokeMethod(this, refresh, Qt::QueuedConnection);
}

void XPButtonView::paintEvent(QPaintEvent*) {
    redrawIsDue_ = false;
    UserControl_Paint();
    QPainter painter(this);
    PaintFrame(painter, makeFrame());
}

void XPButtonView::showEvent(QShowEvent*) {
    DelayDrawing(false);  // as the first paint event would, but that one must not resize
    UserControl_Show();
}

void XPButtonView::UserControl_Show() {
    if (!host().UserMode() && host().DisplayAsDefault() && ShowFocusRect()) followDefault();
}

XPButtonFrame XPButtonView::frame() {
    fit();
    return makeFrame();
}

XPButtonFrame XPButtonView::makeFrame() {
    const MaskSource source(Picture(), layout_.PictureRect.size(), devicePixelRatioF());
    if (source != maskSource_) {
        maskSource_ = source;
        MaskBitmap_ = std::apply(PrepareMask, source);
    }
    return {members(),   workingColors(), region_,          layout_, caption_,
            MaskBitmap_, fitted_,         screen()->size(), state(), isEnabled()};
}

}  // namespace brindlex
