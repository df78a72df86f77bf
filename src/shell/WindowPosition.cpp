#include "shell/WindowPosition.h"

#include <QGuiApplication>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <chrono>
#include <cmath>

#include "document/AppState.h"
#include "document/Settings.h"
#include "system/SettingsStore.h"
#include "system/Twips.h"

namespace brindlex {
namespace {

/// Some window systems change the frame of a window that was maximised, and do not tell when.
constexpr std::chrono::milliseconds kFrameDelay(100);

// The window states of the product.
enum State { StateNormal = 0, StateMinimised = 1, StateMaximised = 2 };

int stateOf(const QWidget& window) {
    if (window.isMinimized()) return StateMinimised;
    return window.isMaximized() ? StateMaximised : StateNormal;
}

Qt::WindowStates statesFor(int state) {
    switch (state) {
        case StateMinimised:
            return Qt::WindowMinimized;
        case StateMaximised:
            return Qt::WindowMaximized;
        default:
            return Qt::WindowNoState;
    }
}

/// The largest coordinate that every window system takes, in pixels.
constexpr int kFurthest = 0x7FFF;

/// Unset for a text that is no number, or a number outside `least` to kFurthest pixels.
std::optional<int> pixelsOf(const QString& twips, int least) {
    bool ok = false;
    const double value = twips.toDouble(&ok);
    if (!ok || !std::isfinite(value)) return std::nullopt;
    const int pixels = Twips::toPixels(value);
    return pixels >= least && pixels <= kFurthest ? std::optional(pixels) : std::nullopt;
}

/// In twips, as the decimal text of a single-precision number.
QString textOf(int pixels) {
    return QString::number(float(Twips::fromPixels(pixels)), 'g', 7);
}

QScreen* screenOf(const QWidget& window) {
    return window.screen() ? window.screen() : QGuiApplication::primaryScreen();
}

/// Whether enough of the title shows to drag the window by it.
bool canBeDragged(const QRect& frame) {
    constexpr int kHandle = 16;
    const QRect title(frame.topLeft(), QSize(frame.width(), kHandle));
    const QSize least = QSize(kHandle, kHandle / 2).boundedTo(title.size());
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [&](const QScreen* screen) {
        const QSize shown = screen->geometry().intersected(title).size();
        return shown.expandedTo(least) == shown;
    });
}

/// In the middle of the screen, but with its title bar in the part that is free of the system's
/// panels, and no larger than that part.
QRect defaultFrame(const QScreen& screen) {
    const QRect available = screen.availableGeometry();
    const QSize wanted(Twips::toPixels(13470), Twips::toPixels(11970));
    const QSize size = wanted.boundedTo(available.size());
    const QSize rest = screen.size() - size;
    QRect frame(screen.geometry().topLeft() + QPoint(rest.width() / 2, rest.height() / 2), size);
    frame.moveRight(std::min(frame.right(), available.right()));
    frame.moveBottom(std::min(frame.bottom(), available.bottom()));
    frame.moveLeft(std::max(frame.left(), available.left()));
    frame.moveTop(std::max(frame.top(), available.top()));
    return frame;
}

}  // namespace

WindowPosition::WindowPosition(QWidget& window, SettingsStore& settings)
    : window_(window), settings_(settings) {}

void WindowPosition::setFirstSize(QSize size) {
    // The window has no frame yet: leave room for a usual one.
    const QSize frame(16, window_.style()->pixelMetric(QStyle::PM_TitleBarHeight) + 16);
    if (const QScreen* screen = screenOf(window_))
        size = size.boundedTo(screen->availableSize() - frame);
    window_.resize(size);
}

void WindowPosition::restore() {
    const SettingsStore::Section saved = settings_.readSection(kProgram, Settings::kSection);
    if (saved.value("FormPos_Top").isEmpty()) return;
    QRect frame(window_.pos(), window_.frameGeometry().size());
    const auto pixels = [&saved](const char* key, int least) {
        return pixelsOf(saved.value(QString::fromLatin1(key)), least);
    };
    if (const auto top = pixels("FormPos_Top", -kFurthest)) frame.moveTop(*top);
    if (const auto left = pixels("FormPos_Left", -kFurthest)) frame.moveLeft(*left);
    if (const auto width = pixels("FormPos_Width", 1)) frame.setWidth(*width);
    if (const auto height = pixels("FormPos_Height", 1)) frame.setHeight(*height);
    // A window may be larger than the screens, but a far larger one could not be painted.
    frame.setSize(frame.size().boundedTo(2 * screenOf(window_)->virtualSize()));
    // The screen where it was saved may be gone.
    if (!canBeDragged(frame)) frame.moveTopLeft(window_.pos());
    setFrame(frame);
    restoreState(saved.value("FormPos_State"));
}

void WindowPosition::restoreState(const QString& state) {
    if (state.isEmpty()) settings_.write(kProgram, Settings::kSection, "FormPos_State", "0");
    window_.setWindowState(statesFor(state.toInt()));
}

void WindowPosition::frameIsKnown() {
    if (frameToCome_ && stateOf(window_) == StateNormal)
        setFrame(QRect(window_.pos(), *frameToCome_));
    frameToCome_.reset();
}

void WindowPosition::setFrame(const QRect& pixels) {
    frameToCome_ = pixels.size();
    const QSize border = window_.frameGeometry().size() - window_.size();
    window_.move(pixels.topLeft());
    window_.resize((pixels.size() - border).expandedTo(QSize(1, 1)));
}

void WindowPosition::funSavePos_Click() {
    const QRect frame = window_.frameGeometry();
    settings_.write(kProgram, Settings::kSection,
                    {{"FormPos_Top", textOf(frame.top())},
                     {"FormPos_Left", textOf(frame.left())},
                     {"FormPos_Width", textOf(frame.width())},
                     {"FormPos_Height", textOf(frame.height())},
                     {"FormPos_State", QString::number(stateOf(window_))}});
}

void WindowPosition::funFull_Click() {
    window_.setWindowState(Qt::WindowMaximized);
}

void WindowPosition::funDefault_Click() {
    const bool frameStays = stateOf(window_) == StateNormal;
    window_.setWindowState(Qt::WindowNoState);
    setFrame(defaultFrame(*screenOf(window_)));
    if (frameStays)
        frameToCome_.reset();
    else
        QTimer::singleShot(kFrameDelay, &window_, [this] { frameIsKnown(); });
}

}  // namespace brindlex
