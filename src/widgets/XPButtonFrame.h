#pragma once

#include <QImage>
#include <QSize>
#include <memory>

#include "widgets/XPButtonCaption.h"
#include "widgets/XPButtonColors.h"
#include "widgets/XPButtonLayout.h"
#include "widgets/XPButtonMembers.h"
#include "widgets/XPButtonRegion.h"

namespace brindlex {

/// All that one frame shows, as values. Colours are resolved, but for the two of the border.
struct XPButtonFrame {
    QSize size;
    QSize screen;  ///< of the screen, in logical pixels
    int ButtonShape = 0;
    int GradientMode = 0;
    int CaptionStyle = 0;
    XPButtonLook look;
    bool Enabled = true;
    bool ShowFocusRect = true;

    Bgr FaceColor = 0;
    Bgr PressedColor = 0;
    Bgr HoverFaceColor = 0;
    Bgr ForeColor = 0;
    Bgr HoverForeColor = 0;
    Bgr GradientColor = 0;
    Bgr GotFocusBorderColor = 0;
    Bgr HoverBorderColor = 0;
    bool hoverKeepsGradient = true;  ///< GradientColor and HoverBackColor are the same

    XPButtonRegion region;
    XPButtonLayout layout;
    std::shared_ptr<const XPButtonCaption> caption;  ///< none without a caption
    QImage picture;  ///< at its drawn size, as it shows for Enabled; null without a picture
};

}  // namespace brindlex
