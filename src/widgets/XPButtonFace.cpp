#include "widgets/XPButtonFace.h"

#include <algorithm>
#include <utility>

namespace brindlex {
namespace {

constexpr Qt::Alignment kAlignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};

/// Null without a caption.
std::unique_ptr<XPButtonCaption> makeCaption(const XPButtonMembers& members, const QFont& font,
                                             const QSize& face) {
    if (members.Caption.isEmpty()) return nullptr;
    return std::make_unique<XPButtonCaption>(members.Caption, drawingFont(font),
                                             mostCharactersOn(face));
}

/// Uses the caption, which may be null.
XPButtonLayoutInput layoutInput(const XPButtonMembers& members, const QSize& size,
                                XPButtonCaption* caption) {
    XPButtonLayoutInput in;
    in.size = size;
    in.ButtonShape = members.ButtonShape;
    in.CaptionAlign = members.CaptionAlign;
    in.CaptionStyle = members.CaptionStyle;
    in.picture = members.Picture.image().size();
    in.PictureAlign = members.PictureAlign;
    in.PicturePixels = members.PicturePixels;
    if (caption)
        in.measure = [caption, alignment = kAlignments[members.CaptionAlign]](int width) {
            caption->wrap(width, alignment);
            return caption->size();
        };
    return in;
}

}  // namespace

void XPButtonFace::fit(const QSize& size, const XPButtonMembers& members, const QFont& font) {
    size_ = size;
    region_ = BuildRegion(members.ButtonShape, size);
    place(members, font);
}

void XPButtonFace::place(const XPButtonMembers& members, const QFont& font) {
    std::unique_ptr<XPButtonCaption> caption = makeCaption(members, font, size_);
    XPButtonLayoutInput in = layoutInput(members, size_, caption.get());
    in.LeftEdge = region_.LeftEdge;
    in.RightEdge = region_.RightEdge;
    layout_ = ComputeLayout(in);
    if (caption) in.measure(std::max(0, layout_.CaptionRect.width()));
    caption_ = std::move(caption);
}

const QImage& XPButtonFace::picture(const ButtonPicture& picture, double pixelRatio, bool enabled) {
    maskBitmap_.PrepareMask(picture, layout_.PictureRect.size(), pixelRatio);
    return enabled ? maskBitmap_.image() : maskBitmap_.disabledImage();
}

QSize XPButtonFace::preferredSize(const XPButtonMembers& members, const QFont& font,
                                  const QSize& least) {
    const std::unique_ptr<XPButtonCaption> caption = makeCaption(members, font, least);
    const QSize size = brindlex::preferredSize(layoutInput(members, least, caption.get()));
    return {grownWidth(members.ButtonShape, size), size.height()};
}

}  // namespace brindlex
