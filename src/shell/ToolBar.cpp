#include "shell/ToolBar.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "shell/ToolBarButton.h"
#include "system/Twips.h"

namespace brindlex {
namespace {

struct Button {
    const char* name;
    const char* entry;    ///< the menu entry whose command it runs
    double left;          ///< twips
    const char* picture;  ///< its files are tb_<picture>.jpg and tb_<picture>_S.jpg
    const char* toolTip;
};

constexpr Button kTable[ToolBar::kButtons] = {
    {"tbNEW", "funNew", 0, "new", "New File"},
    {"tbOPEN", "funOpen", 360, "open", "Open File"},
    {"tbSAVE", "funSave", 720, "save", "Save File"},
    {"tbCUT", "funCut", 1320, "cut", "Cut"},
    {"tbCOPY", "funCopy", 1680, "copy", "Copy"},
    {"tbPASTE", "funPaste", 2040, "paste", "Paste"},
    {"tbFIND", "funSearch", 2640, "find", "Find"},
    {"tbCOM", "funComBlock", 3600, "comment", "Comment selected text"},
    {"tbUNCOM", "funUnComBlock", 3960, "uncomment", "Uncomment selected text"},
    {"tbCOUNT", "funCount", 3240, "count", "Count { and } difference"},
};
constexpr double kSide = 375;        // twips
constexpr double kPressOffset = 10;  // twips, to the right and down

// Milliseconds between ticks.
constexpr int kTick = 10;
constexpr int kSlowTick = 1000;

/// Whether the pointer may be on another button after this event.
bool mayMovePointer(const QEvent& event) {
    switch (event.type()) {
        case QEvent::MouseMove:
        case QEvent::DragMove:
        case QEvent::Enter:
        case QEvent::Leave:
        case QEvent::Show:
        case QEvent::Move:
        case QEvent::Resize:
        case QEvent::WindowStateChange:
        case QEvent::WindowActivate:
        case QEvent::WindowDeactivate:
            return true;
        default:
            return false;
    }
}

/// Whether the pointer is on a rectangle of the screen; the edges count.
bool isOn(const QPoint& pointer, const QPoint& topLeft, const QSize& size) {
    const QPoint inside = pointer - topLeft;
    return inside.x() >= 0 && inside.x() <= size.width() && inside.y() >= 0 &&
           inside.y() <= size.height();
}

}  // namespace

ToolBar::ToolBar(const QString& programFolder, Run run, QWidget* parent)
    : QWidget(parent), run_(std::move(run)), Timer1_(new QTimer(this)) {
    setObjectName(QStringLiteral("picToolBar"));
    setAccessibleName(QStringLiteral("Toolbar"));
    for (int i = 0; i < kButtons; ++i) {
        buttons_[i] = makeButton(i, programFolder);
        place(i);
    }
    Timer1_->setObjectName(QStringLiteral("Timer1"));
    Timer1_->callOnTimeout([this] { Timer1_Timer(); });
}

ToolBarButton* ToolBar::makeButton(int index, const QString& programFolder) {
    const Button& row = kTable[index];
    const QString picture = programFolder + "/Resources/tb_" + row.picture;
    auto* button = new ToolBarButton(row.toolTip, {picture + ".jpg", picture + "_S.jpg"}, this);
    button->setObjectName(QString::fromLatin1(row.name));
    connect(button, &QAbstractButton::pressed, this, [this, index] { pressChanged(index); });
    connect(button, &QAbstractButton::released, this, [this, index] { pressChanged(index); });
    connect(button, &QAbstractButton::clicked, this,
            [this, &row] { run_(QString::fromLatin1(row.entry)); });
    return button;
}

void ToolBar::startTimer1() {
    // All of the program's windows: one of them may lie over the strip.
    QCoreApplication::instance()->installEventFilter(this);
    Timer1_->start(kTick);
}

bool ToolBar::eventFilter(QObject* watched, QEvent* event) {
    const auto ticks = [this] { return Timer1_->isActive() && Timer1_->interval() == kTick; };
    if (mayMovePointer(*event) && !ticks()) Timer1_->start(kTick);
    return QWidget::eventFilter(watched, event);
}

void ToolBar::Timer1_Timer() {
    if (!isVisible() || window()->isMinimized()) return Timer1_->stop();
    if (QApplication::activePopupWidget()) endPresses();
    const Seen now{QCursor::pos(), mapToGlobal(QPoint())};
    if (std::exchange(seen_, now) != now) loadPictures(now);
    const auto isWatched = [](const ToolBarButton* button) {
        return button->isHot() || button->isDown();
    };
    if (std::ranges::none_of(buttons_, isWatched)) rest();
}

/// No event tells of a pointer that another program's window receives over the strip.
void ToolBar::rest() {
    if (isActiveWindow())
        Timer1_->stop();
    else
        Timer1_->start(kSlowTick);
}

void ToolBar::loadPictures(const Seen& now) {
    for (ToolBarButton* button : buttons_) {
        if (button->isDown()) continue;
        const bool hot = isOn(now.pointer, now.origin + button->pos(), button->size());
        button->load(hot ? ToolBarButton::Hot : ToolBarButton::Normal);
    }
}

/// For when a menu has opened since the press: the release goes to the menu alone.
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

// The logical resolution may have changed.
void ToolBar::resizeEvent(QResizeEvent*) {
    for (int i = 0; i < kButtons; ++i) place(i);
    seen_.reset();
}

}  // namespace brindlex
