#include "widgets/XPButtonPainter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "widgets/XPButtonBorder.h"

namespace brindlex {
namespace {

constexpr int kRightward = 1;
constexpr int kLeftward = 2;
constexpr int kDownward = 3;
constexpr int kUpward = 4;

constexpr double kFaceSteps = 25;  // the face is that much darker at the bottom
constexpr int kGradientShift = 48;
constexpr int kDisabledFaceShift = -24;
constexpr int kDisabledTextShift = -104;
constexpr int kReliefShift = 40;
constexpr int kRaised = 2;
constexpr int kPartOfScreen = 4;  // larger buttons have coarser gradients

void fillRegion(QPainter& painter, const QRegion& region, Bgr color) {
    const QColor brush = qColor(color);
    for (const QRect& rect : region) painter.fillRect(rect, brush);
}

/// Fills the face with bands from the top or the left; the last one goes to the end.
class Bands {
  public:
    Bands(QPainter& painter, const QSize& size, bool alongWidth)
        : painter_(painter), size_(size), alongWidth_(alongWidth) {}

    void fill(const std::vector<Bgr>& colors, int depth) const {
        const int count = static_cast<int>(colors.size());
        const int end = alongWidth_ ? size_.width() : size_.height();
        for (int i = 0; i < count;) {
            const Bgr color = colors[static_cast<std::size_t>(i)];
            const int first = i * depth;
            while (i < count && colors[static_cast<std::size_t>(i)] == color) ++i;
            FillBand(first, i == count ? end : i * depth, color);
        }
    }

  private:
    void FillBand(int from, int to, Bgr color) const {
        const QRect band = alongWidth_ ? QRect(from, 0, to - from, size_.height())
                                       : QRect(0, from, size_.width(), to - from);
        painter_.fillRect(band, qColor(color));
    }

    QPainter& painter_;
    QSize size_;
    bool alongWidth_;
};

/// One frame on its way to the painter.
class FramePainter {
  public:
    FramePainter(QPainter& painter, const XPButtonFrame& frame);
    void PaintFace();

  private:
    void PaintBackground();
    void PrepareClip();
    void paintFill();
    void FillGradient(int mode, Bgr from, Bgr to);
    void shadeFace(Bgr color);
    void DrawContent();
    void DrawPicture(const QPoint& shift);
    void DrawCaption(const QPoint& shift);
    void drawText(const QPoint& shift, Bgr color);
    void DrawRim();

    QPainter& painter_;
    const XPButtonFrame& frame_;
    bool pressed_;
    bool hovers_;  // and is not pressed
    Bgr back_;
};

Bgr backOf(const XPButtonFrame& frame) {
    if (frame.look.isPressed() && frame.GradientMode == 0) return frame.PressedColor;
    return frame.Enabled ? frame.FaceColor : AdjustColor(frame.FaceColor, kDisabledFaceShift);
}

FramePainter::FramePainter(QPainter& painter, const XPButtonFrame& frame)
    : painter_(painter),
      frame_(frame),
      pressed_(frame.look.isPressed()),
      hovers_(frame.look.Hovering && !pressed_),
      back_(backOf(frame)) {}

void FramePainter::PaintFace() {
    painter_.save();
    PaintBackground();
    DrawContent();
    painter_.restore();
    if (frame_.ButtonShape < kFirstOval) DrawBorder(painter_, frame_);
    if (isOval(frame_.ButtonShape)) DrawRim();
}

/// Paints the ring of an oval, and leaves the painter's clip inside of it.
void FramePainter::PrepareClip() {
    const XPButtonRegion& region = frame_.region;
    if (frame_.ButtonShape == kOutlinedOval) {
        if (!frame_.look.Hovering) return;
        paintFill();  // shows between the outline and MiddleRegion
        fillRegion(painter_, region.windowFrame, 0);
        painter_.setClipRegion(region.MiddleRegion, Qt::IntersectClip);
        return;
    }
    FillGradient(kDownward, kWhite, kGrey);
    painter_.setClipRegion(region.MiddleRegion, Qt::IntersectClip);
    if (pressed_) {
        FillGradient(kDownward, kGrey, kWhite);
        painter_.setClipRegion(region.InnerRegion, Qt::IntersectClip);
    }
}

void FramePainter::PaintBackground() {
    if (isOval(frame_.ButtonShape)) PrepareClip();
    paintFill();
}

void FramePainter::paintFill() {
    const Bgr fill = hovers_ ? frame_.HoverFaceColor : back_;
    const QRect face(QPoint(0, 0), frame_.size);
    if (frame_.GradientMode != 0) {
        if (hovers_ && !frame_.hoverKeepsGradient)
            painter_.fillRect(face, qColor(frame_.HoverFaceColor));
        else
            FillGradient(frame_.GradientMode, back_,
                         AdjustColor(frame_.GradientColor, kGradientShift));
    } else if (frame_.Enabled) {
        shadeFace(fill);
    } else {
        painter_.fillRect(face, qColor(fill));
    }
}

void FramePainter::shadeFace(Bgr color) {
    const int h = frame_.size.height();
    std::vector<Bgr> rows;
    rows.reserve(static_cast<std::size_t>(h));
    for (int y = 0; y < h; ++y)
        rows.push_back(AdjustColor(color, -static_cast<int>(std::nearbyint(kFaceSteps / h * y))));
    Bands(painter_, frame_.size, false).fill(rows, 1);
}

void FramePainter::FillGradient(int mode, Bgr from, Bgr to) {
    const bool alongWidth = mode == kRightward || mode == kLeftward;
    const int length = alongWidth ? frame_.size.width() : frame_.size.height();
    const int screen = alongWidth ? frame_.screen.width() : frame_.screen.height();
    const int depth = screen / length < kPartOfScreen ? 2 : 1;
    std::vector<Bgr> colors = GradientColors(from, to, std::max(1, length / depth));
    if (mode == kLeftward || mode == kUpward) std::reverse(colors.begin(), colors.end());
    Bands(painter_, frame_.size, alongWidth).fill(colors, depth);
}

void FramePainter::DrawContent() {
    const int down = pressed_ ? 1 : 0;
    const QPoint shift(frame_.ButtonShape < kFirstOval ? down : 0, down);
    DrawPicture(shift);
    if (frame_.caption && frame_.ButtonShape < kFirstShapeWithoutCaption) DrawCaption(shift);
}

void FramePainter::DrawPicture(const QPoint& shift) {
    if (frame_.picture.isNull()) return;
    const int inset = pressed_ ? 1 : 0;
    const QRect place =
        frame_.ButtonShape == kCustomShape
            ? QRect(QPoint(0, 0), frame_.size).adjusted(inset, inset, -inset, -inset)
            : frame_.layout.PictureRect.translated(shift);
    if (!place.isEmpty()) painter_.drawImage(place, frame_.picture);
}

void FramePainter::DrawCaption(const QPoint& shift) {
    if (!frame_.Enabled && frame_.GradientMode == 0)
        return drawText(shift, AdjustColor(back_, kDisabledTextShift));
    if (!frame_.Enabled) {
        drawText(shift + QPoint(1, 1), kWhite);
        return drawText(shift, kGrey);
    }
    const Bgr color = hovers_ ? frame_.HoverForeColor : frame_.ForeColor;
    if (frame_.CaptionStyle == 0) return drawText(shift, color);
    const int relief = frame_.CaptionStyle == kRaised ? kReliefShift : -kReliefShift;
    drawText(shift + QPoint(-1, 0), AdjustColor(back_, relief));
    drawText(shift + QPoint(1, 2), AdjustColor(back_, -relief, false));
    drawText(shift + QPoint(0, 1), color);
}

void FramePainter::drawText(const QPoint& shift, Bgr color) {
    painter_.setPen(qColor(color));
    frame_.caption->draw(painter_, frame_.layout.CaptionRect.translated(shift));
}

void FramePainter::DrawRim() {
    const XPButtonLook& look = frame_.look;
    const bool outlined = frame_.ButtonShape == kOutlinedOval;
    const QRegion& rim =
        outlined && pressed_ ? frame_.region.windowFrame : frame_.region.middleFrame;
    if (look.Hovering)
        fillRegion(painter_, rim, frame_.HoverBorderColor);
    else if (look.has(XPButtonLook::kDefault) && !outlined)
        fillRegion(painter_, rim, frame_.GotFocusBorderColor);
}

}  // namespace

void PaintFrame(QPainter& painter, const XPButtonFrame& frame) {
    if (!frame.size.isEmpty()) FramePainter(painter, frame).PaintFace();
}

}  // namespace brindlex
