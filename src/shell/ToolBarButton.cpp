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
    // After these the release may never come.
    if (event->type() == QEvent::Hide || event->type() == QEvent::WindowDeactivate) release();
    return QAbstractButton::event(event);
}

void ToolBarButton::mousePressEvent(QMouseEvent* event) {
    if (isDown()) return;
    heldBy_ = event->button();
    setDown(true);
    Q_EMIT pressed();
}

void ToolBarButton::mouseReleaseEvent(QMouseEvent* event) {
    if (!isDown() || event->button() != heldBy_) return;
    // Where the button stands when it is up: a press at its edge has moved it off the pointer.
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
        pictures_[*loaded_].pixmap(width(), devicePixelRatio(), isDark(palette()));
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
