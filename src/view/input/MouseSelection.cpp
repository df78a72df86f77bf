#include "view/input/MouseSelection.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QStyleHints>
#include <algorithm>
#include <functional>
#include <utility>

#include "system/KeyCodes.h"
#include "system/Twips.h"
#include "view/RichTextView.h"
#include "view/input/CaretActions.h"
#include "view/input/TextDragDrop.h"

namespace brindlex {
namespace {

using MouseHandler = std::function<void(int button, int shift, double x, double y)>;

QPoint placeOf(const QMouseEvent& event) {
    return event.position().toPoint();
}

void raise(const MouseHandler& handler, int button, const QMouseEvent& event) {
    if (!handler) return;
    handler(button, shiftOf(event.modifiers()), Twips::fromPixels(event.position().x()),
            Twips::fromPixels(event.position().y()));
}

}  // namespace

MouseSelection::MouseSelection(RichTextView& view, CaretActions& actions, TextDragDrop& dragDrop)
    : view_(view),
      actions_(actions),
      dragDrop_(dragDrop),
      scroll_(view, 0, [this] { extendTo(scroll_.pointer()); }) {}

void MouseSelection::press(QMouseEvent& event) {
    event.accept();
    letGo();
    clicking_ = event.button() == Qt::LeftButton;
    raise(view_.onMouseDown, mouseButtonsOf(event.button()), event);
    if (event.button() == Qt::LeftButton)
        pressLeft(event);
    else if (event.button() == Qt::RightButton && !view_.isOnSelection(placeOf(event)))
        actions_.moveTo(actions_.positionAt(placeOf(event)), false);
}

void MouseSelection::pressLeft(const QMouseEvent& event) {
    const QPoint at = placeOf(event);
    const bool extend = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool isThird = isThirdClick(at);
    pressedAt_ = at;
    if (isThird) {
        begin(Unit::Line, at);
    } else if (extend) {
        const Offset anchor = view_.box().anchor();
        unit_ = Unit::Character;
        first_ = {anchor, anchor};
        held_ = Held::Selecting;
        extendTo(at);
    } else if (view_.isOnSelection(at)) {
        held_ = Held::OnSelection;
    } else {
        begin(Unit::Character, at);
    }
}

/// The toolkit counts up to two: a press close upon a double click is a third.
bool MouseSelection::isThirdClick(QPoint at) {
    const QStyleHints* hints = QGuiApplication::styleHints();
    const bool isThird = sinceDouble_.isValid() &&
                         sinceDouble_.elapsed() < hints->mouseDoubleClickInterval() &&
                         (at - pressedAt_).manhattanLength() <= hints->mouseDoubleClickDistance();
    sinceDouble_.invalidate();
    return isThird;
}

void MouseSelection::begin(Unit unit, QPoint at) {
    unit_ = unit;
    first_ = unitAt(at);
    held_ = Held::Selecting;
    actions_.select(first_.begin(), first_.end());
}

void MouseSelection::move(QMouseEvent& event) {
    event.accept();
    raise(view_.onMouseMove, mouseButtonsOf(event.buttons()), event);
    if (!event.buttons().testFlag(Qt::LeftButton)) {
        letGo();  // the release went to another window, which a handler had opened
    } else if (held_ == Held::Selecting) {
        scroll_.follow(placeOf(event));
        extendTo(scroll_.pointer());
    } else if (held_ == Held::OnSelection) {
        const int moved = (placeOf(event) - pressedAt_).manhattanLength();
        if (moved >= QGuiApplication::styleHints()->startDragDistance()) startDrag();
    }
}

void MouseSelection::release(QMouseEvent& event) {
    event.accept();
    const QPoint at = placeOf(event);
    const bool left = event.button() == Qt::LeftButton;
    if (left) {
        scroll_.stop();
        const Held held = std::exchange(held_, Held::Nothing);
        if (held == Held::OnSelection) actions_.moveTo(actions_.positionAt(at), false);
        if (held == Held::Selecting) actions_.offerPrimarySelection();
    }
    const bool click =
        left && std::exchange(clicking_, false) && view_.viewport()->rect().contains(at);
    raise(view_.onMouseUp, mouseButtonsOf(event.button()), event);
    if (event.button() == Qt::MiddleButton) pastePrimary(at);
    if (click && view_.onClick) view_.onClick();
}

void MouseSelection::doubleClick(QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) return press(event);
    event.accept();
    const QPoint at = placeOf(event);
    sinceDouble_.start();
    pressedAt_ = at;
    begin(Unit::Word, at);
    if (view_.onDblClick) view_.onDblClick();
}

void MouseSelection::letGo() {
    held_ = Held::Nothing;
    scroll_.stop();
}

void MouseSelection::extendTo(QPoint at) {
    const Range here = unitAt(at);
    const std::size_t length = view_.box().length();
    const Offset begin = std::min(first_.begin(), Offset(length));
    const Offset end = std::min(first_.end(), Offset(length));
    if (here.begin() < begin)
        actions_.select(end, here.begin());
    else
        actions_.select(begin, std::max(end, here.end()));
}

void MouseSelection::startDrag() {
    held_ = Held::Nothing;
    clicking_ = false;
    dragDrop_.start();
}

void MouseSelection::pastePrimary(QPoint at) {
    const QClipboard* clipboard = QGuiApplication::clipboard();
    if (!clipboard->supportsSelection() || view_.box().Locked()) return;
    const QString text = clipboard->text(QClipboard::Selection);
    const Offset place = actions_.positionAt(at);
    actions_.replace({place, place}, view_.codePage().fromUnicode(text));
}

Range MouseSelection::unitAt(QPoint at) const {
    const TextUnits units = actions_.units();
    const Offset position = actions_.positionAt(at);
    switch (unit_) {
        case Unit::Word:
            return units.wordAt(characterUnder(at));
        case Unit::Line:
            return units.lineAt(position);
        default:
            return {position, position};
    }
}

Offset MouseSelection::characterUnder(QPoint at) const {
    const Offset nearest = actions_.positionAt(at);
    const TextUnits units = actions_.units();
    const bool behindIt =
        nearest > units.lineStart(nearest) && at.x() < view_.characterRect(nearest).left();
    return behindIt ? units.previous(nearest) : nearest;
}

}  // namespace brindlex
