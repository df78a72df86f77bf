#include "shell/StatusPanes.h"

#include <QHBoxLayout>
#include <QLabel>
#include <algorithm>

#include "system/Twips.h"

namespace brindlex {
namespace {

QLabel* makePane(QWidget& bar, const char* name) {
    auto* pane = new QLabel(&bar);
    pane->setObjectName(QString::fromLatin1(name));
    pane->setTextFormat(Qt::PlainText);
    pane->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    return pane;
}

/// Gives a pane its width, or as much as `sample` needs in its font.
void setPaneWidth(QLabel& pane, double twips, const char* sample) {
    const int text = pane.fontMetrics().horizontalAdvance(QString::fromLatin1(sample));
    pane.setFixedWidth(std::max(Twips::toPixels(twips), text + 2 * pane.frameWidth() + 4));
}

}  // namespace

StatusPanes::StatusPanes(QWidget* parent) : SB1_(new QWidget(parent)) {
    SB1_->setObjectName(QStringLiteral("SB1"));
    SB1_->setAccessibleName(QStringLiteral("Status bar"));
    SB1_->setAutoFillBackground(true);
    pane1_ = makePane(*SB1_, "SB1_Pane1");
    pane2_ = makePane(*SB1_, "SB1_Pane2");
    QSizePolicy keepsItsPlace = pane1_->sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    pane1_->setSizePolicy(keepsItsPlace);
    auto* row = new QHBoxLayout(SB1_);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    row->addWidget(pane1_);
    row->addWidget(pane2_);
    row->addStretch();
}

void StatusPanes::InitStatusPanes() {
    setPaneWidth(*pane1_, 1500, "Line: 0000000");
    pane1_->setText(QStringLiteral("Line: "));
    setPaneWidth(*pane2_, 2850, "Last AutoBackup saved at: 00:00:00");
    pane2_->clear();
    line_.reset();
}

void StatusPanes::showLine(Long line) {
    if (line_ == line) return;
    line_ = line;
    pane1_->setText("Line: " + QString::number(line));
}

void StatusPanes::showBackupTime(QTime time) {
    pane2_->setText("Last AutoBackup saved at: " + time.toString(QStringLiteral("hh:mm:ss")));
}

void StatusPanes::setLineVisible(bool visible) {
    pane1_->setVisible(visible);
}

}  // namespace brindlex
