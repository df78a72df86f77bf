#pragma once

#include <QKeyCombination>
#include <QPoint>
#include <QString>

namespace brindlex {

/// What model and input of a button ask of its window.
class XPButtonWindow {
  public:
    /// Shows a frame of the present state, unless drawing is delayed.
    virtual void Redraw() = 0;
    /// The same, and it is on the screen at once: what is raised next may take its time.
    virtual void redrawAtOnce() = 0;
    /// Sets the flag. Off, it does what has waited and shows that; where nothing has, it draws
    /// nothing.
    virtual void setDelayDrawing(bool on) = 0;
    /// Places caption and picture anew. While drawing is delayed this waits.
    virtual void ComputeLayout() = 0;
    /// Region, layout and a frame for the present size and shape. While drawing is delayed this
    /// waits.
    virtual void UserControl_Resize() = 0;
    /// A box with an information icon and the program's title.
    virtual void showBox(const QString& text) = 0;

    /// The pointer is over this window: over no other above it, and inside the region.
    virtual bool isUnderPointer() const = 0;
    /// The pointer in the window's own coordinates.
    virtual QPoint pointerPosition() const = 0;
    /// The mouse buttons that are held, wherever they were pressed, summed up.
    virtual int heldButtons() const = 0;
    /// Starts or stops the calls of tmrHover_Timer.
    virtual void setHoverTimer(bool on) = 0;
    /// Hands a key to the container, after the present handler has returned.
    virtual void postToContainer(QKeyCombination key) = 0;

  protected:
    ~XPButtonWindow() = default;
};

}  // namespace brindlex
