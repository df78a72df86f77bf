#pragma once

#include <QSize>
#include <QString>
#include <optional>

class QRect;
class QWidget;

namespace brindlex {

class SettingsStore;

/// Place, size and state of the main window. What is stored is in twips and counts the frame in.
class WindowPosition {
  public:
    WindowPosition(QWidget& window, SettingsStore& settings);

    /// Sets the size of the window without its frame, in pixels, or as much of it as the screen has
    /// room for.
    void setFirstSize(QSize size);
    /// Brings back the saved place, if there is one.
    void restore();
    /// To be called when the window system has given the window its frame: a size that was set
    /// before took the frame to be empty.
    void frameIsKnown();

    void funSavePos_Click();
    void funFull_Click();
    void funDefault_Click();

  private:
    void setFrame(const QRect& pixels);
    void restoreState(const QString& state);

    QWidget& window_;
    SettingsStore& settings_;
    std::optional<QSize> frameToCome_;
};

}  // namespace brindlex
