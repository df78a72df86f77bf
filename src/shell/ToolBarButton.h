#pragma once

#include <QAbstractButton>
#include <array>
#include <optional>

#include "shell/ToolBarPicture.h"

namespace brindlex {

/// A picture button of the toolbar. Any mouse button presses it, and the release of that button,
/// wherever it comes, releases it; a release of the left one over it clicks it, too. It never takes
/// the focus.
class ToolBarButton : public QAbstractButton {
  public:
    enum Picture { Normal, Hot };

    /// `pictures` are the paths of the two pictures, in the order of `Picture`.
    ToolBarButton(const QString& toolTip, const std::array<QString, 2>& pictures, QWidget* parent);

    /// Shows that picture, or the tool tip's first letter if the picture cannot be read. Before the
    /// first call the button is empty.
    void load(Picture picture);
    bool isHot() const { return loaded_ == Hot; }
    /// Ends a press, if there is one, without a click.
    void release();

  protected:
    bool event(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    void paintLetter(QPainter& painter) const;

    std::array<ToolBarPicture, 2> pictures_;
    std::optional<Picture> loaded_;
    Qt::MouseButton heldBy_ = Qt::NoButton;
};

}  // namespace brindlex
