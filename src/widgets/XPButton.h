#pragma once

#include <QKeySequence>
#include <QTimer>

#include "widgets/XPButtonEvents.h"
#include "widgets/XPButtonView.h"

namespace brindlex {

class PropertyBag;

/// A push button that paints itself: rectangular, slanted, oval or a picture, with its own colours,
/// caption styles and a look for the pointer. XPButtonModel holds its members, XPButtonView shows
/// them; this class makes events of pointer and keys.
class XPButton : public XPButtonView {
  public:
    /// `desktop` shows its boxes. A host gives it design mode and hears which members changed;
    /// without one the widgets around the button answer. Both outlive the button.
    explicit XPButton(Desktop& desktop, QWidget* parent = nullptr, XPButtonHost* host = nullptr);
    ~XPButton() override;

    XPButtonEvents events;

    /// Makes a new button of the host's: call it instead of ReadProperties.
    void InitProperties();
    /// A member that is absent, of a wrong type or outside its table gets its default; that of
    /// BackColor and Font is the container's. Ends delayed drawing.
    void ReadProperties(const PropertyBag& bag);
    /// Leaves out what equals its default.
    void WriteProperties(PropertyBag& bag) const;

    /// An ambient member of the host changed. Names are taken without regard to case.
    void UserControl_AmbientChanged(const QString& name);
    /// The access key, or Enter (13) and Escape (27) for the form's default and cancel button.
    void UserControl_AccessKeyPress(int KeyAscii);
    /// Empty without an access key.
    QKeySequence accessKeySequence() const;

  protected:
    bool event(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

  private:
    void captionChanged() override;

    void UserControl_MouseDown(int Button, int Shift, float X, float Y);
    void UserControl_MouseMove(int Button, int Shift, float X, float Y);
    void UserControl_MouseUp(int Button, int Shift, float X, float Y);
    void UserControl_Click();
    void UserControl_DblClick();
    void UserControl_KeyDown(int& KeyCode, int Shift, const QKeyEvent& key);
    void UserControl_KeyPress(int KeyAscii);
    void UserControl_KeyUp(int& KeyCode, int Shift);
    void UserControl_Terminate();
    void tmrHover_Timer();

    bool isUnderPointer() const;
    void followPointer();
    void setDown(bool down);
    void redrawAtOnce();
    void lift();
    void liftIfReleased();
    void pressSpace();
    void passToContainer(const QKeyEvent& key);

    QTimer tmrHover_{this};
    int accessKeyId_ = 0;
    int LastButton_ = 0;
    int firstPress_ = 0;        // the mouse button that a double click may follow
    bool leftHeld_ = false;     // the left mouse button was pressed here and its release is due
    bool pointerLeft_ = false;  // the toolkit said so last
};

}  // namespace brindlex
