#include "shell/CompletionPopup.h"

#include <QAccessible>
#include <QEvent>
#include <QListView>
#include <QScrollBar>
#include <QStringListModel>
#include <algorithm>
#include <utility>

#include "editor/KELP_RTBSyntax.h"
#include "shell/CompletionTip.h"
#include "system/Twips.h"

namespace brindlex {
namespace {

constexpr int kMostRows = 8;        // of the list; more scroll
constexpr double kBelowLine = 100;  // twips between the caret's line and the list

QListView* makeList(QWidget* parent) {
    auto* list = new QListView(parent);
    list->setModel(new QStringListModel(list));
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setObjectName(QStringLiteral("List4"));
    list->setAccessibleName(QStringLiteral("Words that fit"));
    list->setFocusPolicy(Qt::NoFocus);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setUniformItemSizes(true);
    list->setAutoFillBackground(true);
    list->hide();
    return list;
}

/// The first of `size` pixels that stand in a window of `room` pixels, at `wanted` if they can.
int inside(int wanted, int size, int room) {
    return std::max(0, std::min(wanted, room - size));
}

}  // namespace

CompletionPopup::CompletionPopup(KELP_RTBSyntax& editor,
                                 std::function<QString(const std::string&)> usage, QWidget* parent)
    : editor_(editor),
      usage_(std::move(usage)),
      List4_(makeList(parent)),
      Picture2_(new CompletionTip(parent)) {
    editor_.rtb().installEventFilter(this);
    for (QScrollBar* bar : {editor_.rtb().verticalScrollBar(), editor_.rtb().horizontalScrollBar()})
        connect(bar, &QScrollBar::valueChanged, this, [this] { changed(); });
    connect(List4_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& word) {
                if (word.isValid() && word.row() != row_) select(word.row());
            });
    connect(List4_, &QListView::doubleClicked, this, [this] {
        if (onTake) onTake();
    });
}

void CompletionPopup::setWords(std::vector<std::string> words) {
    listIsOld_ = listIsOld_ || words != words_;
    words_ = std::move(words);
    row_ = words_.empty() ? -1 : 0;
    placeIsOld_ = true;
    changed();
}

void CompletionPopup::show() {
    shown_ = true;
    placeIsOld_ = true;
    changed();
}

void CompletionPopup::hide() {
    shown_ = false;
    List4_->hide();
    Picture2_->dismiss();
}

std::string CompletionPopup::word() const {
    return row_ < 0 ? std::string() : words_[static_cast<std::size_t>(row_)];
}

void CompletionPopup::selectPrevious() {
    if (row_ >= 0) select(std::max(row_ - 1, 0));
}

void CompletionPopup::selectNext() {
    if (row_ >= 0) select(std::min(row_ + 1, static_cast<int>(words_.size()) - 1));
}

void CompletionPopup::select(int row) {
    row_ = row;
    placeIsOld_ = true;
    changed();
}

bool CompletionPopup::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusOut || event->type() == QEvent::Resize) hide();
    return QObject::eventFilter(watched, event);
}

// --- The widgets ---------------------------------------------------------------------------------

void CompletionPopup::changed() {
    if (!shown_ || std::exchange(updatePosted_, true)) return;
    QMetaObject::invokeMethod(this, &CompletionPopup::update, Qt::QueuedConnection);
}

void CompletionPopup::update() {
    updatePosted_ = false;
    if (!shown_) return;
    // the last of a composition is typed when the focus has gone
    if (editor_.window()->focusWidget() != &editor_.rtb()) return hide();
    if (std::exchange(listIsOld_, false)) fillList();
    if (std::exchange(placeIsOld_, false)) {
        List4_->setCurrentIndex(List4_->model()->index(row_, 0));
        UpdateCompletionTip();
        caret_ = editor_.rtb().posFromChar(editor_.SelStart());
        place();
        tellAssistiveTechnology();
    } else if (editor_.rtb().posFromChar(editor_.SelStart()) != caret_) {
        hide();  // the text has scrolled away below the list
    }
}

void CompletionPopup::fillList() {
    QStringList words;
    for (const std::string& word : words_) words += QString::fromLatin1(word);
    static_cast<QStringListModel*>(List4_->model())->setStringList(words);
    listSize_ = sizeOfList(words);
}

/// As wide as its longest word, and as high as its words up to kMostRows.
QSize CompletionPopup::sizeOfList(const QStringList& words) const {
    constexpr int kBesideWord = 8;  // pixels, what the style leaves free
    const QFontMetrics metrics = List4_->fontMetrics();
    int width = metrics.height();
    for (const QString& word : words) width = std::max(width, metrics.horizontalAdvance(word));
    const auto count = static_cast<int>(words.size());
    const int bar = count > kMostRows ? List4_->verticalScrollBar()->sizeHint().width() : 0;
    const int rowHeight = count > 0 ? List4_->sizeHintForRow(0) : metrics.height();
    const int frame = 2 * List4_->frameWidth();
    return {width + kBesideWord + bar + frame, std::clamp(count, 1, kMostRows) * rowHeight + frame};
}

void CompletionPopup::UpdateCompletionTip() {
    const QString usage = row_ < 0 ? QString() : usage_(word());
    Picture2_->setText(usage);
    Picture2_->setCursorPosition(0);
    List4_->setAccessibleDescription(usage);
}

/// Below the caret's line, the tip under the list; where more room is above it and the two need
/// that, above the line, the tip on top of the list. Both stay inside the window.
void CompletionPopup::place() {
    const QSize room = List4_->parentWidget()->size();
    const QSize tip = Picture2_->sizeOfText().boundedTo(room);
    const QRect caret = editor_.rtb().caretRect();
    const QPoint line = editor_.pos() + caret_;
    const int gap = Twips::toPixels(kBelowLine);
    const int letters = std::max(List4_->parentWidget()->fontMetrics().height(), caret.height());
    const int below = line.y() + letters + gap;
    const int roomBelow = room.height() - below;
    const int roomAbove = line.y() - gap;
    const bool isBelow = listSize_.height() + tip.height() <= roomBelow || roomBelow >= roomAbove;
    const int most = (isBelow ? roomBelow : roomAbove) - tip.height();
    const QSize list(listSize_.width(), std::clamp(most, letters, listSize_.height()));
    const int both = list.height() + tip.height();
    const int top = inside(isBelow ? below : roomAbove - both, both, room.height());
    const QPoint listAt(inside(line.x(), list.width(), room.width()),
                        isBelow ? top : top + tip.height());
    const QPoint tipAt(inside(line.x(), tip.width(), room.width()),
                       isBelow ? top + list.height() : top);
    List4_->setGeometry({listAt, list});
    Picture2_->setGeometry({tipAt, tip});
    for (QWidget* widget : {static_cast<QWidget*>(List4_), static_cast<QWidget*>(Picture2_)})
        widget->raise();
    List4_->show();
    Picture2_->showText();
}

/// A screen reader follows the focus, which stays in the editor: so it is told of the selection.
void CompletionPopup::tellAssistiveTechnology() {
    if (row_ < 0 || !QAccessible::isActive()) return;
    QAccessibleEvent event(List4_, QAccessible::Selection);
    event.setChild(row_);
    QAccessible::updateAccessibility(&event);
}

}  // namespace brindlex
