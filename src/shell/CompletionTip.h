#pragma once

#include <QLineEdit>

namespace brindlex {

/// The tip that floats below the completion list: a locked line in the colours of a tool tip. A
/// mouse press in it hides it until the button is released, so that the text below can be read.
class CompletionTip : public QLineEdit {
  public:
    explicit CompletionTip(QWidget* parent = nullptr);

    /// As wide as its text and a margin, as high as a line.
    QSize sizeOfText() const;
    /// Shows the text, if there is one, unless the mouse holds the tip away.
    void showText();
    /// Hides the tip, also when the mouse that holds it away is released.
    void dismiss();

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool heldAway_ = false;
};

}  // namespace brindlex
