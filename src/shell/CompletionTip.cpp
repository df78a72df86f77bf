#include "shell/CompletionTip.h"

#include <QApplication>
#include <QMouseEvent>
#include <QToolTip>
#include <utility>

#include "system/Twips.h"

namespace brindlex {

namespace {

constexpr double kMargin = 75;  // twips

}  // namespace

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

QSize CompletionTip::sizeOfText() const {
    // the toolkit's own space beside the text, and the caret's
    constexpr int kPixelsBeside = 8;
    const int width = fontMetrics().horizontalAdvance(text()) + Twips::toPixels(kMargin);
    return {width + kPixelsBeside, sizeHint().height()};
}

void CompletionTip::showText() {
    setVisible(!heldAway_ && !text().isEmpty());
}

void CompletionTip::dismiss() {
    heldAway_ = false;
    hide();
}

void CompletionTip::mousePressEvent(QMouseEvent*) {
    heldAway_ = true;
    hide();
    // A hidden widget is not told of the release.
    qApp->installEventFilter(this);
}

bool CompletionTip::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::MouseButtonRelease) {
        qApp->removeEventFilter(this);
        if (std::exchange(heldAway_, false)) showText();
    }
    return QLineEdit::eventFilter(watched, event);
}

}  // namespace brindlex
