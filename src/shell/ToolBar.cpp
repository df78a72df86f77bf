#include "shell/ToolBar.h"

#include <QApplication>
#include <QCursor>

#include "platform/Twips.h"
#include "shell/ToolBarButton.h"

namespace brindlex {
namespace {

struct Button {
    const char* name;
    double left;  ///< twips
    std::function<void()> ToolBarCommands::*click;
    const char* picture;  ///< the name of its file less what both have in common
    const char* toolTip;
};

constexpr Button kTable[ToolBar::kButtons] = {
    {"tbNEW", 0, &ToolBarCommands::funNew_Click, "new", "New File"},
    {"tbOPEN", 360, &ToolBarCommands::funOpen_Click, "open", "Open File"},
    {"tbSAVE", 720, &ToolBarCommands::funSave_Click, "save", "Save File"},
    {"tbCUT", 1320, &ToolBarCommands::funCut_Click, "cut", "Cut"},
    {"tbCOPY", 1680, &ToolBarCommands::funCopy_Click, "copy", "Copy"},
    {"tbPASTE", 2040, &ToolBarCommands::funPaste_Click, "paste", "Paste"},
    {"tbFIND", 2640, &ToolBarCommands::funSearch_Click, "find", "Find"},
    {"tbCOM", 3600, &ToolBarCommands::funComBlock_Click, "comment", "Comment selected text"},
    {"tbUNCOM", 3960, &ToolBarCommands::funUnComBlock_Click, "uncomment",
     "Uncomment selected text"},
    {"tbCOUNT", 3240, &ToolBarCommands::funCount_Click, "count", "Count { and } difference"},
};
constexpr double kSide = 375;        // twips
constexpr double kPressOffset = 10;  // twips, to the right and down

/// Whether the pointer is on a control there; both edges count, on either axis.
bool isOn(const QPoint& pointer, const QPoint& topLeft, const QSize& size) {
    const QPoint inside = pointer - topLeft;
    return inside.x() >= 0 && inside.x() <= size.width() && inside.y() >= 0 &&
           inside.y() <= size.height();
}

}  // namespace

ToolBar::ToolBar(const QString& programFolder, const ToolBarCommands& commands, QWidget* parent)
    : QWidget(parent) {
    setObjectName(QStringLiteral("picToolBar"));
    setAccessibleName(QStringLiteral("Toolbar"));
    for (int i = 0; i < kButtons; ++i) makeButton(i, programFolder, commands);
    Timer1_.setObjectName(QStringLiteral("Timer1"));
    Timer1_.setInterval(10);
    Timer1_.callOnTimeout([this] { Timer1_Timer(); });
}

void ToolBar::makeButton(int index, const QString& programFolder, const ToolBarCommands& commands) {
    const Button& row = kTable[index];
    const QString picture = programFolder + "/Resources/tb_" + row.picture;
    auto* button = new ToolBarButton(row.toolTip, {picture + ".jpg", picture + "_S.jpg"}, this);
    button->setObjectName(QString::fromLatin1(row.name));
    connect(button, &QAbstractButton::pressed, this, [this, index] { pressChanged(index); });
    connect(button, &QAbstractButton::released, this, [this, index] { pressChanged(index); });
    if (const std::function<void()>& click = commands.*row.click)
        connect(button, &QAbstractButton::clicked, this, click);
    buttons_[index] = button;
    place(index);
}

void ToolBar::startTimer1() {
    Timer1_.start();
}

void ToolBar::Timer1_Timer() {
    if (!isVisible() || window()->isMinimized()) return;
    if (QApplication::activePopupWidget()) endPresses();
    const Seen now{QCursor::pos(), mapToGlobal(QPoint())};
    if (seen_ == now) return;
    seen_ = now;
    for (ToolBarButton* button : buttons_) {
        if (button->isDown()) continue;
        const bool hot = isOn(now.pointer, now.origin + button->pos(), button->size());
        button->load(hot ? ToolBarButton::Hot : ToolBarButton::Normal);
    }
}

/// Where a menu is open, the release goes to that and never comes here.
void ToolBar::endPresses() {
    for (ToolBarButton* button : buttons_) button->release();
}

bool ToolBar::ToolbarDown(int index) const {
    return buttons_.at(index)->isDown();
}

void ToolBar::pressChanged(int index) {
    place(index);
    seen_.reset();
}

void ToolBar::place(int index) {
    const int offset = ToolbarDown(index) ? Twips::toPixels(kPressOffset) : 0;
    const int side = Twips::toPixels(kSide);
    buttons_[index]->setGeometry(Twips::toPixels(kTable[index].left) + offset, offset, side, side);
}

// The logical resolution may be another one now.
void ToolBar::resizeEvent(QResizeEvent*) {
    for (int i = 0; i < kButtons; ++i) place(i);
    seen_.reset();
}

}  // namespace brindlex
