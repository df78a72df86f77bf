#include "platform/RichTextView.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScrollBar>
#include <QScroller>
#include <QStyleHints>
#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/LineLayouts.h"
#include "platform/LineStyle.h"
#include "platform/ShownLines.h"
#include "platform/TextInput.h"
#include "platform/TextRows.h"

namespace brindlex {
namespace {

Preedit preeditOf(const QString& text, const QList<QInputMethodEvent::Attribute>& attributes) {
    Preedit preedit;
    preedit.text = text;
    preedit.cursor = static_cast<int>(text.size());
    for (const QInputMethodEvent::Attribute& attribute : attributes) {
        if (attribute.type == QInputMethodEvent::Cursor) {
            preedit.cursor = attribute.start;
            preedit.cursorVisible = attribute.length != 0;
        } else if (attribute.type == QInputMethodEvent::TextFormat) {
            QTextLayout::FormatRange range;
            range.start = attribute.start;
            range.length = attribute.length;
            range.format = attribute.value.value<QTextFormat>().toCharFormat();
            preedit.formats.append(range);
        }
    }
    if (!preedit.formats.isEmpty()) return preedit;
    QTextLayout::FormatRange whole;
    whole.start = 0;
    whole.length = static_cast<int>(text.size());
    whole.format.setFontUnderline(true);
    preedit.formats.append(whole);
    return preedit;
}

}  // namespace

RichTextView::RichTextView(QWidget* parent, const CodePage& codePage)
    : QAbstractScrollArea(parent),
      codePage_(codePage),
      box_(codePage.characters()),
      style_(std::make_unique<LineStyle>(codePage)),
      layouts_(std::make_unique<LineLayouts>(box_, *style_)),
      rows_(std::make_unique<TextRows>(box_, *style_, *layouts_)),
      input_(std::make_unique<TextInput>(*this)),
      shown_(std::make_unique<ShownLines>()) {
    setLayoutDirection(Qt::LeftToRight);  // a script is not mirrored on any desktop
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    QScroller::grabGesture(viewport(), QScroller::TouchGesture);
    SetBorderStyle(1);
    SetMousePointer(0);
    appearanceChanged();
    box_.setObserver(this);
}

RichTextView::~RichTextView() {
    box_.setObserver(nullptr);
}

// --- Notices of the box --------------------------------------------------------------------------

void RichTextView::textChanged(const TextEdit& edit) {
    const std::size_t lengthBefore = box_.length() + edit.removed.length() - edit.inserted;
    const bool isNewText = edit.removed.length() == lengthBefore && lengthBefore > 0;
    layouts_->textChanged(edit);
    rows_->textChanged(edit);
    if (dropCaret_) dropCaret_ = std::min(*dropCaret_, Offset(box_.length()));
    if (isNewText) {
        contentWidth_ = 0;
        rows_->setTop({});
    }
    changed();
    input_->textChanged(edit);
}

void RichTextView::formatChanged(Range range) {
    layouts_->formatChanged(range);
    changed();
}

void RichTextView::selectionChanged() {
    const bool moved = box_.caret() != lastCaret_;
    lastCaret_ = box_.caret();
    // colouring and other work with redraw off does not scroll
    if (moved && redraw_) showCaret_ = true;
    // who selects all stays where he reads
    const Range selection = box_.selection();
    if (!selection.empty() && selection.length() == box_.length()) showCaret_ = false;
    if (!layouts_->preedit().text.isEmpty())
        layouts_->setPreedit(layouts_->preedit(), box_.caret());
    restartBlinking();
    changed();
    input_->selectionChanged();
}

// --- What shows besides the text -----------------------------------------------------------------

void RichTextView::setPreedit(const QString& text,
                              const QList<QInputMethodEvent::Attribute>& attributes) {
    if (text.isEmpty() && layouts_->preedit().text.isEmpty()) return;
    layouts_->setPreedit(preeditOf(text, attributes), box_.caret());
    showCaret_ = true;
    restartBlinking();
    changed();
}

QString RichTextView::preedit() const {
    return layouts_->preedit().text;
}

void RichTextView::setDropCaret(std::optional<Offset> offset) {
    dropCaret_ = offset;
    if (dropCaret_) dropCaret_ = std::min(*dropCaret_, Offset(box_.length()));
    changed();
}

void RichTextView::setOverwriteMode(bool on) {
    overwrite_ = on;
    changed();
}

bool RichTextView::overwriteMode() const {
    return overwrite_;
}

std::size_t RichTextView::layoutsMade() const {
    return layouts_->made();
}

// --- Blinking ------------------------------------------------------------------------------------

void RichTextView::restartBlinking() {
    const int cycle = QGuiApplication::styleHints()->cursorFlashTime();
    const bool blinks = hasFocus() && cycle >= 2;
    if (blinks)
        blinking_.start(cycle / 2, this);
    else
        blinking_.stop();
    if (!std::exchange(blinkOn_, true)) viewport()->update(shownCaret_);
}

void RichTextView::timerEvent(QTimerEvent* event) {
    if (event->timerId() != blinking_.timerId()) {
        if (!input_->timer(event->timerId())) QAbstractScrollArea::timerEvent(event);
        return;
    }
    blinkOn_ = !blinkOn_;
    viewport()->update(shownCaret_);
}

// --- Events of the window system -----------------------------------------------------------------

bool RichTextView::event(QEvent* event) {
    if (event->type() == syncEvent()) {
        syncPosted_ = false;
        if (pending_) sync();
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride &&
        input_->overridesShortcut(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::ScreenChangeInternal) fitStyle();
    return QAbstractScrollArea::event(event);
}

void RichTextView::resizeEvent(QResizeEvent*) {
    const bool caretWasSeen = viewport()->rect().isValid() && !shownCaret_.isEmpty();
    fitStyle();
    if (caretWasSeen) showCaret_ = true;
    changed();
}

void RichTextView::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    fitStyle();
    changed();
}

void RichTextView::changeEvent(QEvent* event) {
    QAbstractScrollArea::changeEvent(event);
    switch (event->type()) {
        case QEvent::FontChange:
            if (font_) return;  // then the widget's does not show
            [[fallthrough]];
        case QEvent::StyleChange:
            contentWidth_ = 0;
            [[fallthrough]];
        case QEvent::PaletteChange:
        case QEvent::EnabledChange:
            return appearanceChanged();
        default:
            return;
    }
}

void RichTextView::focusInEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusInEvent(event);
    input_->focusIn();
    restartBlinking();
    viewport()->update(shownCaret_);
    changed();
}

void RichTextView::focusOutEvent(QFocusEvent* event) {
    QAbstractScrollArea::focusOutEvent(event);
    input_->focusOut();
    restartBlinking();
    viewport()->update(shownCaret_);
    changed();
}

void RichTextView::leave(bool forward) {
    QAbstractScrollArea::focusNextPrevChild(forward);
}

bool RichTextView::focusNextPrevChild(bool) {
    return false;
}

void RichTextView::keyPressEvent(QKeyEvent* event) {
    input_->keyPress(*event);
}
void RichTextView::keyReleaseEvent(QKeyEvent* event) {
    input_->keyRelease(*event);
}
void RichTextView::inputMethodEvent(QInputMethodEvent* event) {
    input_->inputMethod(*event);
}
void RichTextView::mousePressEvent(QMouseEvent* event) {
    input_->mousePress(*event);
}
void RichTextView::mouseMoveEvent(QMouseEvent* event) {
    input_->mouseMove(*event);
}
void RichTextView::mouseReleaseEvent(QMouseEvent* event) {
    input_->mouseRelease(*event);
}
void RichTextView::mouseDoubleClickEvent(QMouseEvent* event) {
    input_->mouseDoubleClick(*event);
}
void RichTextView::dragEnterEvent(QDragEnterEvent* event) {
    input_->dragEnter(*event);
}
void RichTextView::dragMoveEvent(QDragMoveEvent* event) {
    input_->dragMove(*event);
}
void RichTextView::dragLeaveEvent(QDragLeaveEvent* event) {
    input_->dragLeave(*event);
}
void RichTextView::dropEvent(QDropEvent* event) {
    input_->drop(*event);
}

QVariant RichTextView::inputMethodQuery(Qt::InputMethodQuery query) const {
    return input_->inputMethodQuery(query);
}

QSize RichTextView::sizeHint() const {
    constexpr int kColumns = 80;
    constexpr int kRows = 25;
    const int frame = 2 * frameWidth();
    const qreal width = kColumns * style_->averageAdvance() + 2 * textLeft() + caretWidth();
    return {static_cast<int>(std::ceil(width)) + verticalScrollBar()->sizeHint().width() + frame,
            static_cast<int>(std::ceil(kRows * style_->baseRowHeight())) + frame};
}

}  // namespace brindlex
