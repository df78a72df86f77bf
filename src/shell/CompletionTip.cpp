#include "shell/CompletionTip.h"

#include <QApplication>
#include <QMouseEvent>
#include <QToolTip>

namespace brindlex {

CompletionTip::CompletionTip(QWidget* parent) : QLineEdit(parent) {
    setObjectName(QStringLiteral("Picture2"));
    setAccessibleName(QStringLiteral("Usage of the offered word"));
    setReadOnly(true);
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::NoContextMenu);
    QPalette colors = QToolTip::palette();
    colors.setColor(QPalette::Base, colors.color(QPalette::ToolTipBase));
    colors.setColor(QPalette::Text, colors.color(QPalette::ToolTipText));
    setPalette(colors);
    hide();
}

void CompletionTip::mousePressEvent(QMouseEvent*) {
    hide();
    // A hidden widget is not told of the release.
    qApp->installEventFilter(this);
}

bool CompletionTip::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease) {
        qApp->removeEventFilter(this);
        show();
    }
    return QLineEdit::eventFilter(watched, event);
}

}  // namespace brindlex
