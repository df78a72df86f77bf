#include <algorithm>
#include <utility>

#include "widgets/XPButton.h"

namespace brindlex {
namespace {

constexpr Qt::Alignment kAlignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};

constexpr QSize kSmallestHint(24, 20);

}  // namespace

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

/// Null without a caption.
std::unique_ptr<XPButtonCaption> XPButton::makeCaption(const QSize& face) const {
    if (members().Caption.isEmpty()) return nullptr;
    return std::make_unique<XPButtonCaption>(members().Caption, drawingFont(font()),
                                             mostCharactersOn(face));
}

/// Uses the caption, which may be null.
XPButtonLayoutInput XPButton::layoutInput(const QSize& face, XPButtonCaption* caption) const {
    const XPButtonMembers& m = members();
    XPButtonLayoutInput in;
    in.size = face;
    in.ButtonShape = m.ButtonShape;
    in.LeftEdge = region_.LeftEdge;
    in.RightEdge = region_.RightEdge;
    in.CaptionAlign = m.CaptionAlign;
    in.CaptionStyle = m.CaptionStyle;
    in.picture = m.Picture.image().size();
    in.PictureAlign = m.PictureAlign;
    in.PicturePixels = m.PicturePixels;
    if (caption)
        in.measure = [caption, alignment = kAlignments[m.CaptionAlign]](int width) {
            caption->wrap(width, alignment);
            return caption->size();
        };
    return in;
}

void XPButton::placeContent() {
    std::unique_ptr<XPButtonCaption> caption = makeCaption(laidOut_);
    const XPButtonLayoutInput in = layoutInput(laidOut_, caption.get());
    layout_ = brindlex::ComputeLayout(in);
    if (caption) in.measure(std::max(0, layout_.CaptionRect.width()));
    caption_ = std::move(caption);
}

QSize XPButton::sizeHint() const {
    const std::unique_ptr<XPButtonCaption> caption = makeCaption({});
    return wideEnough(preferredSize(layoutInput(leastHint(), caption.get())));
}

QSize XPButton::minimumSizeHint() const {
    return wideEnough(leastHint());
}

/// A layout may give no less than the minimum height.
QSize XPButton::leastHint() const {
    return kSmallestHint.expandedTo({0, minimumHeight()});
}

/// Of a width at which the button does not grow by itself, over its neighbour.
QSize XPButton::wideEnough(const QSize& hint) const {
    return {grownWidth(members().ButtonShape, hint), hint.height()};
}

}  // namespace brindlex
