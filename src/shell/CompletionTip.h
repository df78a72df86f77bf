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

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace brindlex
