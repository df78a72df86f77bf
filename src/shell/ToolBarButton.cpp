#include "shell/ToolBarButton.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

namespace brindlex {
namespace {

bool isDark(const QPalette& palette) {
    return palette.color(QPalette::Window).lightness() <
           palette.color(QPalette::WindowText).lightness();
}

}  // namespace

ToolBarButton::ToolBarButton(const QString& toolTip, const std::array<QString, 2>& pictures,
                             QWidget* parent)
    : QAbstractButton(parent),
      pictures_{ToolBarPicture(pictures[Normal]), ToolBarPicture(pictures[Hot])} {
    setToolTip(toolTip);
    setAccessibleName(toolTip);
    setFocusPolicy(Qt::NoFocus);
}

void ToolBarButton::load(Picture picture) {
    if (loaded_ == picture) return;
    loaded_ = picture;
    update();
}

bool ToolBarButton::event(QEvent* event) {
    // Behind these the release may never come.
    if (event->type() == QEvent::Hide || event->type() == QEvent::WindowDeactivate) release();
    return QAbstractButton::event(event);
}

void ToolBarButton::mousePressEvent(QMouseEvent*) {
    if (isDown()) return;
    setDown(true);
    Q_EMIT pressed();
}

void ToolBarButton::mouseReleaseEvent(QMouseEvent* event) {
    if (!isDown()) return;
    // A press at the edge is no longer over the button once that has moved away under it.
    const QPoint pointer = mapToParent(event->position().toPoint());
    release();
    if (event->button() == Qt::LeftButton && geometry().contains(pointer)) Q_EMIT clicked();
}

void ToolBarButton::release() {
    if (!isDown()) return;
    setDown(false);
    Q_EMIT released();
}

void ToolBarButton::paintEvent(QPaintEvent*) {
    if (!loaded_) return;
    QPainter painter(this);
    const QPixmap& picture =
        pictures_[*loaded_].shown(width(), devicePixelRatio(), isDark(palette()));
    if (picture.isNull())
        paintLetter(painter);
    else
        painter.drawPixmap(0, 0, picture);
}

void ToolBarButton::paintLetter(QPainter& painter) const {
    const int seen = std::min(height(), parentWidget()->height() - y());
    QFont letter = font();
    letter.setPixelSize(height() * 3 / 5);
    letter.setBold(loaded_ == Hot);
    painter.setFont(letter);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(QRect(0, 0, width(), seen), Qt::AlignCenter, toolTip().left(1));
}

}  // namespace brindlex
