#pragma once

#include <QLabel>

namespace brindlex {

/// A label of plain text whose tool tip follows its caption.
class CaptionLabel : public QLabel {
  public:
    explicit CaptionLabel(QWidget* parent = nullptr);

    QString Caption() const { return text(); }
    void SetCaption(const QString& caption);
};

}  // namespace brindlex
