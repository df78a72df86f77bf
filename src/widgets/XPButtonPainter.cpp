#include <QPainter>
#include <algorithm>
#include <cmath>

#include "widgets/XPButtonFrame.h"

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

/// One frame on its way to the painter.
class FramePainter {
  public:
    FramePainter(QPainter& painter, const XPButtonFrame& frame);
    void PaintFace();

  private:
    void PaintBackground();
    void PrepareClip();
    void paintFill();
    void shadeFace(Bgr color);
    void FillGradient(int mode, Bgr from, Bgr to);
    void fillBands(const std::vector<Bgr>& colors, bool alongWidth, int depth);
    void DrawContent();
    void DrawPicture(const QPoint& shift);
    void drawGreyed(const QRect& place);
    void DrawCaption(const QPoint& shift);
    void drawText(const QPoint& shift, Bgr color);
    void DrawRim();

    QPainter& painter_;
    const XPButtonFrame& frame_;
    const XPButtonMembers& members_;
    const XPButtonWorkingColors& colors_;
    bool pressed_;
    bool hovers_;  // and is not pressed
    Bgr back_;
};

Bgr backOf(const XPButtonFrame& frame) {
    const Bgr face = frame.colors.FaceColor;
    if (frame.state.isPressed() && frame.members.GradientMode == 0)
        return frame.colors.PressedColor;
    return frame.Enabled ? face : AdjustColor(face, kDisabledFaceShift);
}

FramePainter::FramePainter(QPainter& painter, const XPButtonFrame& frame)
    : painter_(painter),
      frame_(frame),
      members_(frame.members),
      colors_(frame.colors),
      pressed_(frame.state.isPressed()),
      hovers_(frame.state.Hovering && !pressed_),
      back_(backOf(frame)) {}

void FramePainter::PaintFace() {
    painter_.save();
    PaintBackground();
    DrawContent();
    painter_.restore();
    if (members_.ButtonShape < kFirstOval) DrawBorder(painter_, frame_);
    if (isOval(members_.ButtonShape)) DrawRim();
}

void FramePainter::PaintBackground() {
    const XPButtonRegion& region = frame_.region;
    const bool outlined = members_.ButtonShape == kOutlinedOval;
    if (isOval(members_.ButtonShape) && !outlined) PrepareClip();
    paintFill();
    if (!outlined || !frame_.state.Hovering) return;
    fillRegion(painter_, region.windowFrame, 0);
    painter_.setClipRegion(region.MiddleRegion, Qt::IntersectClip);
}

/// Paints the ring of an oval, and leaves the painter's clip inside of it.
void FramePainter::PrepareClip() {
    FillGradient(kDownward, kWhite, kGrey);
    painter_.setClipRegion(frame_.region.MiddleRegion, Qt::IntersectClip);
    if (!pressed_) return;
    FillGradient(kDownward, kGrey, kWhite);
    painter_.setClipRegion(frame_.region.InnerRegion, Qt::IntersectClip);
}

void FramePainter::paintFill() {
    const Bgr fill = hovers_ ? colors_.HoverFaceColor : back_;
    const bool gradient = members_.GradientMode != 0;
    if (gradient && (!hovers_ || members_.GradientColor == members_.HoverBackColor))
        FillGradient(members_.GradientMode, back_,
                     AdjustColor(colors_.GradientColor, kGradientShift));
    else if (gradient || !frame_.Enabled)
        painter_.fillRect(QRect(QPoint(0, 0), frame_.size), qColor(fill));
    else
        shadeFace(fill);
}

void FramePainter::shadeFace(Bgr color) {
    const int h = frame_.size.height();
    std::vector<Bgr> rows;
    rows.reserve(static_cast<std::size_t>(h));
    for (int y = 0; y < h; ++y)
        rows.push_back(AdjustColor(color, -static_cast<int>(std::nearbyint(kFaceSteps / h * y))));
    fillBands(rows, false, 1);
}

void FramePainter::FillGradient(int mode, Bgr from, Bgr to) {
    const bool alongWidth = mode == kRightward || mode == kLeftward;
    const int length = alongWidth ? frame_.size.width() : frame_.size.height();
    const int screen = alongWidth ? frame_.screen.width() : frame_.screen.height();
    const int depth = screen / length < kPartOfScreen ? 2 : 1;
    std::vector<Bgr> colors = GradientColors(from, to, std::max(1, length / depth));
    if (mode == kLeftward || mode == kUpward) std::reverse(colors.begin(), colors.end());
    fillBands(colors, alongWidth, depth);
}

/// Bands of that depth, from the left or the top; the last one goes to the end. Neighbours of one
/// colour are filled at once.
void FramePainter::fillBands(const std::vector<Bgr>& colors, bool alongWidth, int depth) {
    const QSize& size = frame_.size;
    const auto FillBand = [&](int from, int to, Bgr color) {
        const QRect band = alongWidth ? QRect(from, 0, to - from, size.height())
                                      : QRect(0, from, size.width(), to - from);
        painter_.fillRect(band, qColor(color));
    };
    const std::size_t count = colors.size();
    int from = 0;
    for (std::size_t i = 1; i < count; ++i) {
        if (colors[i] == colors[i - 1]) continue;
        const int to = static_cast<int>(i) * depth;
        FillBand(from, to, colors[i - 1]);
        from = to;
    }
    FillBand(from, alongWidth ? size.width() : size.height(), colors.back());
}

void FramePainter::DrawContent() {
    const int down = pressed_ ? 1 : 0;
    const QPoint shift(members_.ButtonShape < kFirstOval ? down : 0, down);
    DrawPicture(shift);
    if (!members_.Caption.isEmpty() && members_.ButtonShape < kFirstShapeWithoutCaption)
        DrawCaption(shift);
}

void FramePainter::DrawPicture(const QPoint& shift) {
    if (frame_.picture.isNull()) return;
    const int inset = pressed_ ? 1 : 0;
    const QRect place =
        members_.ButtonShape == kCustomShape
            ? QRect(QPoint(0, 0), frame_.size).adjusted(inset, inset, -inset, -inset)
            : frame_.layout.PictureRect.translated(shift);
    if (place.isEmpty()) return;
    if (frame_.Enabled)
        painter_.drawImage(place, frame_.picture);
    else
        drawGreyed(place);
}

/// The picture on white decides each bit of a pixel: where it is set the face stays, else grey
/// comes through. The three operations are: grey ^ (picture & (face ^ grey)).
void FramePainter::drawGreyed(const QRect& place) {
    QImage onWhite(frame_.picture.size(), QImage::Format_RGB32);
    onWhite.fill(Qt::white);
    onWhite.setDevicePixelRatio(frame_.picture.devicePixelRatio());
    QPainter(&onWhite).drawImage(0, 0, frame_.picture);
    painter_.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    painter_.fillRect(place, qColor(kGrey));
    painter_.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
    painter_.drawImage(place, onWhite);
    painter_.setCompositionMode(QPainter::RasterOp_SourceXorDestination);
    painter_.fillRect(place, qColor(kGrey));
    painter_.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void FramePainter::DrawCaption(const QPoint& shift) {
    if (!frame_.Enabled && members_.GradientMode == 0)
        return drawText(shift, AdjustColor(back_, kDisabledTextShift));
    if (!frame_.Enabled) {
        drawText(shift + QPoint(1, 1), kWhite);
        return drawText(shift, kGrey);
    }
    const Bgr color = hovers_ ? colors_.HoverForeColor : colors_.ForeColor;
    if (members_.CaptionStyle == 0) return drawText(shift, color);
    const int relief = members_.CaptionStyle == kRaised ? kReliefShift : -kReliefShift;
    drawText(shift + QPoint(-1, 0), AdjustColor(back_, relief));
    drawText(shift + QPoint(1, 2), AdjustColor(back_, -relief, false));
    drawText(shift + QPoint(0, 1), color);
}

void FramePainter::drawText(const QPoint& shift, Bgr color) {
    painter_.setPen(qColor(color));
    frame_.caption.draw(painter_, frame_.layout.CaptionRect.translated(shift));
}

void FramePainter::DrawRim() {
    const XPButtonState& state = frame_.state;
    const bool outlined = members_.ButtonShape == kOutlinedOval;
    const QRegion& rim =
        outlined && pressed_ ? frame_.region.windowFrame : frame_.region.middleFrame;
    if (state.Hovering)
        fillRegion(painter_, rim, members_.HoverBorderColor.value());
    else if (state.has(XPButtonState::kDefault) && !outlined)
        fillRegion(painter_, rim, members_.GotFocusBorderColor.value());
}

}  // namespace

void PaintFrame(QPainter& painter, const XPButtonFrame& frame) {
    if (!frame.size.isEmpty()) FramePainter(painter, frame).PaintFace();
}

}  // namespace brindlex
