#include "view/RichTextView.h"

#include <QEvent>
#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>
#include <utility>

#include "view/CaretBlink.h"
#include "view/Scrolling.h"
#include "view/accessibility/AccessibleEvents.h"
#include "view/accessibility/RichTextAccessible.h"
#include "view/input/CaretActions.h"
#include "view/input/InputMethod.h"
#include "view/input/KeyInput.h"
#include "view/input/MouseSelection.h"
#include "view/input/TextDragDrop.h"
#include "view/layout/LayoutContext.h"
#include "view/layout/LineLayouts.h"
#include "view/layout/Preedit.h"
#include "view/layout/ShownLines.h"

namespace brindlex {

RichTextView::RichTextView(QWidget* parent, const CodePage& codePage)
    : QAbstractScrollArea(parent),
      codePage_(codePage),
      box_(codePage.characters()),
      context_(std::make_unique<LayoutContext>(codePage)),
      layouts_(std::make_unique<LineLayouts>(box_, *context_)),
      scrolling_(
          std::make_unique<Scrolling>(*this, box_, *context_, *layouts_, [this] { changed(); })),
      shown_(std::make_unique<ShownLines>()),
      blink_(std::make_unique<CaretBlink>(*this, [this] { viewport()->update(shownCaret_); })),
      actions_(std::make_unique<CaretActions>(*this)),
      keys_(std::make_unique<KeyInput>(*this, *actions_)),
      inputMethod_(std::make_unique<InputMethod>(*this, *actions_, *keys_)),
      dragDrop_(std::make_unique<TextDragDrop>(*this, *actions_)),
      mouse_(std::make_unique<MouseSelection>(*this, *actions_, *dragDrop_)),
      accessible_(std::make_unique<AccessibleEvents>(*this)) {
    // what sends events to the view comes here, when all of its parts exist
    installRichTextAccessible();
    setLayoutDirection(Qt::LeftToRight);  // a script is not mirrored on any desktop
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_InputMethodEnabled);
    setInputMethodHints(Qt::ImhMultiLine | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText);
    setAcceptDrops(true);
    viewport()->setMouseTracking(true);  // onMouseMove tells moves without a button, too
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    SetBorderStyle(1);
    SetMousePointer(0);
    appearanceChanged();
    box_.setObserver(this);
    scrolling_->start();
}

RichTextView::~RichTextView() {
    box_.setObserver(nullptr);
}

// --- Notices of the box --------------------------------------------------------------------------

void RichTextView::textChanged(const TextEdit& edit) {
    layouts_->textChanged(edit);
    scrolling_->textChanged(edit);
    if (dropCaret_) dropCaret_ = std::min(*dropCaret_, Offset(box_.length()));
    changed();
    actions_->forgetColumn();
    inputMethod_->changed();
    accessible_->textChanged(edit);
    if (redraw_) followCaret();
}

void RichTextView::formatChanged(Range range) {
    layouts_->formatChanged(range);
    changed();
}

void RichTextView::selectionChanged() {
    const bool moved = box_.caret() != lastCaret_;
    lastCaret_ = box_.caret();
    // colouring and other work with redraw off does not scroll, nor is its selection told
    if (moved && redraw_) followCaret();
    if (!layouts_->preedit().text.isEmpty())
        layouts_->setPreedit(layouts_->preedit(), box_.caret());
    blink_->restart();
    changed();
    actions_->forgetColumn();
    inputMethod_->changed();
    if (redraw_) accessible_->selectionChanged();
    offerSelectAll();
}

bool RichTextView::allSelected() const {
    const Range selection = box_.selection();
    return !selection.empty() && selection.length() == box_.length();
}

void RichTextView::offerSelectAll() {
    if (redraw_ && allSelected() && hasFocus()) actions_->offerPrimarySelection();
}

// --- What shows besides the text -----------------------------------------------------------------

void RichTextView::setPreedit(Preedit preedit) {
    if (preedit.text.isEmpty() && layouts_->preedit().text.isEmpty()) return;
    layouts_->setPreedit(std::move(preedit), box_.caret());
    scrolling_->bringCaret();
    blink_->restart();
    changed();
}

QString RichTextView::preedit() const {
    return layouts_->preedit().text;
}

bool RichTextView::isComposing() const {
    return inputMethod_->isComposing();
}

void RichTextView::setDropCaret(std::optional<Offset> offset) {
    dropCaret_ = offset;
    if (dropCaret_) dropCaret_ = std::min(*dropCaret_, Offset(box_.length()));
    changed();
}

void RichTextView::setOverwriteMode(bool on) {
    overwrite_ = on;
    stale_ += shownCaret_;  // the block is paler, also where it is as wide as the bar
    changed();
}

// --- Events of the window system -----------------------------------------------------------------

bool RichTextView::event(QEvent* event) {
    if (event->type() == syncEvent()) {
        syncPosted_ = false;
        if (pending_) sync();
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride &&
        keys_->overridesShortcut(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::ScreenChangeInternal) changed();
    return QAbstractScrollArea::event(event);
}

void RichTextView::resizeEvent(QResizeEvent* event) {
    const QRect before(QPoint(), event->oldSize());
    if (before.intersects(shownCaret_)) scrolling_->bringCaret();
    changed();
}

void RichTextView::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    changed();
}

void RichTextView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    switch (event->type()) {
        case QEvent::FontChange:
            if (font_) return;  // the widget's own does not show
            [[fallthrough]];
        case QEvent::StyleChange:
            scrolling_->forgetWidths();
            [[fallthrough]];
        case QEvent::PaletteChange:
        case QEvent::EnabledChange:
            return appearanceChanged();
        default:
            return;
    }
}

QSize RichTextView::sizeHint() const {
    constexpr int kColumns = 80;
    constexpr int kRows = 25;
    const int frame = 2 * frameWidth();
    const qreal width =
        kColumns * context_->averageAdvance() + 2 * Scrolling::kMargin + scrolling_->caretWidth();
    return {static_cast<int>(std::ceil(width)) + verticalScrollBar()->sizeHint().width() + frame,
            static_cast<int>(std::ceil(kRows * context_->rowHeight())) + frame};
}

}  // namespace brindlex
