#include "shell/ErrorLine.h"

#include <QKeyEvent>
#include <QListWidget>
#include <functional>
#include <utility>

#include "document/CommandLock.h"
#include "shell/ToolTipText.h"
#include "system/Desktop.h"

namespace brindlex {
namespace {

/// Calls back on Enter and on a double click anywhere in it, also where there is no entry.
class ErrorList : public QListWidget {
  public:
    ErrorList(QWidget* parent, std::function<void()> onDblClick)
        : QListWidget(parent), onDblClick_(std::move(onDblClick)) {}

  protected:
    void mouseDoubleClickEvent(QMouseEvent*) override { onDblClick_(); }
    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            onDblClick_();
        else
            QListWidget::keyPressEvent(event);
    }

  private:
    std::function<void()> onDblClick_;
};

}  // namespace

ErrorLine::ErrorLine(Desktop& desktop, CommandLock& lock, QWidget& owner, QWidget* parent)
    : desktop_(desktop), owner_(owner), SB2_(new QWidget(parent)) {
    SB2_->setObjectName(QStringLiteral("SB2"));
    SB2_->setAccessibleName(QStringLiteral("Error strip"));
    SB2_->setAutoFillBackground(true);
    txtError_ = new ErrorList(SB2_, [this, &lock] { lock.run([this] { txtError_DblClick(); }); });
    txtError_->setObjectName(QStringLiteral("txtError"));
    txtError_->setAccessibleName(QStringLiteral("Errors"));
    txtError_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

void ErrorLine::clear() {
    txtError_->clear();
}

void ErrorLine::UpdateError(const QString& ErrorMessage) {
    const QString time = desktop_.now().toString(QStringLiteral("hh:mm:ss"));
    auto* line = new QListWidgetItem('(' + time + ") - Error: " + ErrorMessage, txtError_);
    line->setToolTip(toolTipText(line->text()));
    txtError_->setCurrentItem(line);
    if (txtError_->count() > kMostLines) delete txtError_->takeItem(0);
    txtError_->scrollToBottom();
}

void ErrorLine::txtError_DblClick() {
    const QListWidgetItem* line = txtError_->selectedItems().value(0);
    desktop_.showBox(&owner_, {.text = line ? line->text() : QString(),
                               .title = QStringLiteral("Error"),
                               .icon = BoxIcon::Information,
                               .buttons = BoxButtons::Ok});
}

}  // namespace brindlex
