#include "shell/SidePanels.h"

#include <QAction>
#include <QFrame>
#include <QKeyEvent>
#include <QScrollArea>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "shell/ToolTipText.h"

namespace brindlex {
namespace {

QTreeWidget* makeTree(QWidget* parent, const char* name, const char* accessibleName) {
    auto* tree = new QTreeWidget(parent);
    tree->setObjectName(QString::fromLatin1(name));
    tree->setAccessibleName(QString::fromLatin1(accessibleName));
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    return tree;
}

}  // namespace

CaptionLabel::CaptionLabel(const char* name, const char* accessibleName, QWidget* parent)
    : QLabel(parent) {
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(QString::fromLatin1(accessibleName));
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignTop | Qt::AlignLeading);
    setTextInteractionFlags(Qt::TextSelectableByMouse);
}

void CaptionLabel::SetCaption(const QString& caption) {
    setText(caption);
    setToolTip(toolTipText(caption));
    setAccessibleDescription(caption);
}

bool CaptionLabel::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && hasSelectedText() &&
        static_cast<QKeyEvent*>(event)->matches(QKeySequence::Copy)) {
        event->accept();
        return true;
    }
    return QLabel::event(event);
}

SidePanels::SidePanels(QAction& funShowCmd, QAction& funScriptTar, QWidget* parent)
    : funShowCmd_(funShowCmd), funScriptTar_(funScriptTar) {
    TreeView1_ = makeTree(parent, "TreeView1", "Script reference");
    entityPane_ = new QWidget(parent);
    TreeView2_ = makeTree(entityPane_, "TreeView2", "Scriptnames and targetnames of the map");
    auto* fill = new QVBoxLayout(entityPane_);
    fill->setContentsMargins(0, 0, 0, 0);
    fill->addWidget(TreeView2_);
    auto* pane = new QFrame(parent);
    pane->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    pane->setObjectName(QStringLiteral("Picture1"));
    pane->setAccessibleName(QStringLiteral("Description of the command"));
    pane->setAutoFillBackground(true);
    Picture1_ = pane;
    fillDescription();
    show(SidePanel::None);
}

/// The texts wrap, and scroll where the pane is too low for them.
void SidePanels::fillDescription() {
    auto* texts = new QWidget;
    Label3_ = new CaptionLabel("Label3", "Usage", texts);
    QFont bold = Label3_->font();
    bold.setBold(true);
    Label3_->setFont(bold);
    Label4_ = new CaptionLabel("Label4", "Description", texts);
    auto* column = new QVBoxLayout(texts);
    column->setContentsMargins(4, 4, 4, 4);
    column->addWidget(Label3_);
    column->addWidget(Label4_, 1);
    auto* scroll = new QScrollArea(Picture1_);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setAccessibleName(Picture1_->accessibleName());
    scroll->setWidgetResizable(true);
    scroll->setWidget(texts);  // takes it over
    auto* fill = new QVBoxLayout(Picture1_);
    fill->setContentsMargins(0, 0, 0, 0);
    fill->addWidget(scroll);
}

void SidePanels::describe(const QString& usage, const QString& description) {
    Label3_->SetCaption(usage);
    Label4_->SetCaption(description);
}

void SidePanels::show(SidePanel panel) {
    shown_ = panel;
    const bool commands = panel == SidePanel::Commands;
    const bool entities = panel == SidePanel::Entities;
    TreeView1_->setVisible(commands);
    Picture1_->setVisible(commands);
    entityPane_->setVisible(entities);
    funShowCmd_.setChecked(commands);
    funScriptTar_.setChecked(entities);
}

void SidePanels::toggle(SidePanel panel) {
    show(shown_ == panel ? SidePanel::None : panel);
}

bool SidePanels::haveFocus() const {
    const QWidget* focus = TreeView1_->window()->focusWidget();
    return focus && (focus == TreeView1_ || focus == TreeView2_);
}

}  // namespace brindlex
