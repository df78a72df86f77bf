#pragma once

#include <QAbstractButton>
#include <array>
#include <optional>

#include "shell/ToolBarPicture.h"

namespace brindlex {

/// A picture button of the toolbar. It is down from a press of any mouse button to the release,
/// wherever that comes, and emits `pressed` and `released` then; it is clicked, afterwards, by a
/// release of the left one over it. It takes no focus.
class ToolBarButton : public QAbstractButton {
  public:
    enum Picture { Normal, Hot };

    /// The files of the two pictures, in the order of `Picture`.
    ToolBarButton(const QString& toolTip, const std::array<QString, 2>& pictures, QWidget* parent);

    /// Shows that picture, or its tool tip's first letter where there is none to show. Before the
    /// first call the button is empty.
    void load(Picture picture);

  protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void release();
    void paintLetter(QPainter& painter) const;

    std::array<ToolBarPicture, 2> pictures_;
    std::optional<Picture> loaded_;
};

}  // namespace brindlex
