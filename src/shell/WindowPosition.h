#pragma once

#include <QSize>
#include <QString>
#include <optional>

class QRect;
class QWidget;

namespace brindlex {

class SettingsStore;

/// Place, size and state of the main window. In the store and in the product's words they are in
/// twips and are those of the window with its frame.
class WindowPosition {
  public:
    WindowPosition(QWidget& window, SettingsStore& settings);

    /// Gives the window its first size (pixels, without frame), or as much of it as the screen has
    /// room for.
    void setFirstSize(QSize size);
    /// Brings back the place that was saved, if one ever was.
    void restore();
    /// To be called once the window system has given the window its frame: a size set before was
    /// one without it.
    void frameIsKnown();

    void funSavePos_Click();
    void funFull_Click();
    void funDefault_Click();

  private:
    void setFrame(const QRect& pixels);
    QSize frameSize() const;
    void restoreState(const QString& state);

    QWidget& window_;
    SettingsStore& settings_;
    std::optional<QSize> frameToCome_;
};

}  // namespace brindlex
