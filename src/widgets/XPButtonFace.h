#pragma once

#include <QFont>
#include <QImage>
#include <QSize>
#include <memory>

#include "widgets/MaskBitmap.h"
#include "widgets/XPButtonCaption.h"
#include "widgets/XPButtonLayout.h"
#include "widgets/XPButtonMembers.h"
#include "widgets/XPButtonRegion.h"

namespace brindlex {

/// The outline of a button of one size, and caption and picture in their places on it. Sizes are
/// logical pixels.
class XPButtonFace {
  public:
    /// The size, not below `least`, at which a button shows all of its caption and picture and does
    /// not grow by itself.
    static QSize preferredSize(const XPButtonMembers& members, const QFont& font,
                               const QSize& least);

    /// All of it for that size.
    void fit(const QSize& size, const XPButtonMembers& members, const QFont& font);
    /// Caption and picture anew.
    void place(const XPButtonMembers& members, const QFont& font);

    const QSize& size() const { return size_; }
    const XPButtonRegion& region() const { return region_; }
    const XPButtonLayout& layout() const { return layout_; }
    /// None without a caption.
    const std::shared_ptr<const XPButtonCaption>& caption() const { return caption_; }
    /// The picture at its drawn size for a screen of that pixel ratio; null without one. The copy
    /// is kept until the next picture or size.
    const QImage& picture(const ButtonPicture& picture, double pixelRatio, bool enabled);

  private:
    QSize size_{0, 0};
    XPButtonRegion region_;
    XPButtonLayout layout_;
    std::shared_ptr<const XPButtonCaption> caption_;
    MaskBitmap maskBitmap_;
};

}  // namespace brindlex
