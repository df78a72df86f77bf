#include "widgets/XPButton.h"

#include <QApplication>
#include <QPainter>
#include <QScreen>

#include "platform/Desktop.h"
#include "platform/KeyCodes.h"
#include "platform/PropertyBag.h"
#include "widgets/XPButtonAccessible.h"
#include "widgets/XPButtonPainter.h"
#include "widgets/XPButtonWidgetHost.h"

namespace brindlex {
namespace {

/// By the value of MousePointer, from 1; 0 is the container's.
constexpr Qt::CursorShape kCursors[] = {
    Qt::ArrowCursor,      // arrow
    Qt::CrossCursor,      // cross
    Qt::IBeamCursor,      // I-beam
    Qt::ArrowCursor,      // icon
    Qt::SizeAllCursor,    // size
    Qt::SizeBDiagCursor,  // size north-east to south-west
    Qt::SizeVerCursor,    // size north to south
    Qt::SizeFDiagCursor,  // size north-west to south-east
    Qt::SizeHorCursor,    // size west to east
    Qt::UpArrowCursor,    // up arrow
    Qt::WaitCursor,       // hourglass
    Qt::ForbiddenCursor,  // no drop
    Qt::BusyCursor,       // arrow and hourglass
    Qt::WhatsThisCursor,  // arrow and question mark
    Qt::SizeAllCursor,    // size all
};

constexpr Qt::Alignment kAlignments[] = {Qt::AlignLeft, Qt::AlignRight, Qt::AlignHCenter};

constexpr QSize kTextMargins(16, 12);
constexpr QSize kSmallestHint(24, 20);

}  // namespace

XPButton::XPButton(Desktop& desktop, QWidget* parent, XPButtonHost* host)
    : QWidget(parent),
      desktop_(desktop),
      ownHost_(host ? nullptr : std::make_unique<XPButtonWidgetHost>(*this)),
      host_(host ? *host : *ownHost_),
      model_(*this, host_, palette()),
      input_(model_.look(), *this, events) {
    installXPButtonAccessible();
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    tmrHover_.setInterval(XPButtonInput::kHoverInterval);
    tmrHover_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&tmrHover_, &QTimer::timeout, this, [this] { input_.tmrHover_Timer(); });
}

XPButton::~XPButton() {
    tmrHover_.stop();
}

// --- Members of the window
// -------------------------------------------------------------------------

void XPButton::SetCaption(const QString& caption) {
    model_.SetCaption(caption);
    followCaption();
}

void XPButton::followCaption() {
    if (accessKeyId_ != 0) releaseShortcut(accessKeyId_);
    const QKeySequence keys = accessKeySequence();
    accessKeyId_ = keys.isEmpty() ? 0 : grabShortcut(keys);
    QAccessibleEvent named(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&named);
    updateGeometry();
}

QKeySequence XPButton::accessKeySequence() const {
    const QString& key = model_.accessKey();
    return key.isEmpty() ? QKeySequence() : QKeySequence::mnemonic(u'&' + key);
}

void XPButton::SetEnabled(bool on) {
    if (on == Enabled()) return;
    setEnabled(on);
    host_.propertyChanged(QStringLiteral("Enabled"));
}

void XPButton::SetMousePointer(int pointer) {
    const bool custom = pointer == kCustomPointer;
    if (pointer < 0 || (pointer > static_cast<int>(std::size(kCursors)) && !custom)) return;
    pointer_ = pointer;
    if (custom && !mouseIcon_.isNone())
        setCursor(QCursor(QPixmap::fromImage(mouseIcon_.image())));
    else if (custom || pointer == 0)
        unsetCursor();
    else
        setCursor(kCursors[pointer - 1]);
    host_.propertyChanged(QStringLiteral("mPointer"));
}

void XPButton::SetMouseIcon(const ButtonPicture& icon) {
    if (!icon.isNone() && !icon.isIcon())
        return showBox(QStringLiteral("Select .ico Or .cur Files Only"));
    mouseIcon_ = icon;
    SetMousePointer(icon.isNone() ? pointer_ : kCustomPointer);
    host_.propertyChanged(QStringLiteral("mIcon"));
}

void XPButton::SetFont(const QFont& newFont) {
    setFont(newFont);
    host_.propertyChanged(QStringLiteral("Font"));
}

// --- Drawing
// ---------------------------------------------------------------------------------------

void XPButton::Refresh() {
    DelayDrawing(false);
}

void XPButton::DelayDrawing(bool on) {
    setDelayDrawing(on);
    if (!on) Redraw();
}

void XPButton::setDelayDrawing(bool on) {
    delayed_ = on;
    if (!on && stale_ != Stale::Nothing) bringUpToDate();
}

/// What waited while drawing was delayed.
void XPButton::bringUpToDate() {
    const Stale stale = std::exchange(stale_, Stale::Nothing);
    if (stale == Stale::Region) return UserControl_Resize();
    if (stale == Stale::Layout) ComputeLayout();
    Redraw();
}

void XPButton::Redraw() {
    if (delayed_) return;
    frame_ = makeFrame();
    ownPaint_ = true;
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

/// A frame that the button did not ask for shows the present state. What has waited until now is
/// not for a paint event to do: it may change the size.
void XPButton::paintEvent(QPaintEvent*) {
    if (!std::exchange(ownPaint_, false)) {
        delayed_ = false;
        if (stale_ == Stale::Nothing)
            frame_ = makeFrame();
        else
            QMetaObject::invokeMethod(
                this, [this] { bringUpToDate(); }, Qt::QueuedConnection);
    }
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
    mask_.prepare(m.Picture, layout_.PictureRect.size(), devicePixelRatioF());
    frame.picture = frame.Enabled ? mask_.image() : mask_.disabledImage();
    return frame;
}

// --- Size
// ------------------------------------------------------------------------------------------

void XPButton::UserControl_Resize() {
    if (delayed_) {
        stale_ = Stale::Region;
        return;
    }
    const int shape = members().ButtonShape;
    if (const int grown = grownWidth(shape, size()); grown != width()) {
        delayed_ = true;
        resize(grown, height());
        delayed_ = false;
    }
    stale_ = Stale::Nothing;
    laidOut_ = size();
    region_ = BuildRegion(shape, laidOut_);
    setMask(region_.window);
    ComputeLayout();
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
    if (delayed_) {
        if (stale_ == Stale::Nothing) stale_ = Stale::Layout;
        return;
    }
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
    const QSize hint = (content + kTextMargins).expandedTo(kSmallestHint);
    return {std::max(grownWidth(m.ButtonShape, hint), hint.width()), hint.height()};
}

QSize XPButton::minimumSizeHint() const {
    return kSmallestHint;
}

// --- The host's side
// ---------------------------------------------------------------------------------

void XPButton::InitProperties() {
    if (const std::optional<QFont> font = host_.containerFont()) setFont(*font);
    model_.InitProperties();
    followCaption();
    UserControl_Resize();
}

void XPButton::ReadProperties(const PropertyBag& bag) {
    setDelayDrawing(true);
    const XPButtonRecord record = readRecord(bag, {host_.BackColor(), font()});
    setFont(record.window.Font);
    setEnabled(record.window.Enabled);
    SetMouseIcon(record.window.MouseIcon);
    SetMousePointer(record.window.MousePointer);
    model_.load(record.members);
    followCaption();
    delayed_ = false;
    UserControl_Resize();
}

void XPButton::WriteProperties(PropertyBag& bag) const {
    const XPButtonRecord record{members(), {Enabled(), font(), pointer_, mouseIcon_}};
    writeRecord(bag, record,
                {host_.BackColor(), host_.containerFont().value_or(QApplication::font(this))});
}

void XPButton::UserControl_AmbientChanged(const QString& name) {
    if (name.compare(u"DisplayAsDefault", Qt::CaseInsensitive) == 0) {
        const bool shows = members().ShowFocusRect || !host_.UserMode();
        model_.look().set(XPButtonLook::kDefault, shows && host_.DisplayAsDefault());
        Redraw();
    } else if (name.compare(u"BackColor", Qt::CaseInsensitive) == 0) {
        if (members().ButtonShape >= kFirstOval) Redraw();
    }
}

void XPButton::UserControl_AccessKeyPress(int KeyAscii) {
    input_.UserControl_AccessKeyPress(KeyAscii);
}

void XPButton::press() {
    if (isEnabled()) input_.UserControl_AccessKeyPress(kAsciiEnter);
}

void XPButton::showBox(const QString& text) {
    desktop_.showBox(this, {text, QGuiApplication::applicationDisplayName(), BoxIcon::Information});
}

}  // namespace brindlex
