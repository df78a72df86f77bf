#include "view/input/InputMethod.h"

#include <QGuiApplication>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QRect>
#include <algorithm>

#include "view/RichTextView.h"
#include "view/ToolkitInt.h"
#include "view/input/CaretActions.h"
#include "view/input/KeyInput.h"
#include "view/layout/Preedit.h"

namespace brindlex {
namespace {

Offset clamped(Long offset, std::size_t end) {
    return Offset(static_cast<std::size_t>(std::clamp<Long>(offset, 0, static_cast<Long>(end))));
}

Long number(Offset offset) {
    return static_cast<Long>(offset.value());
}

/// What is being composed, with the attributes that the input method gives it; underlined where it
/// gives none.
Preedit preeditOf(const QInputMethodEvent& event) {
    Preedit preedit;
    preedit.text = event.preeditString();
    preedit.cursor = static_cast<int>(preedit.text.size());
    for (const QInputMethodEvent::Attribute& attribute : event.attributes()) {
        if (attribute.type == QInputMethodEvent::Cursor) {
            preedit.cursor = attribute.start;
            preedit.cursorVisible = attribute.length != 0;
        } else if (attribute.type == QInputMethodEvent::TextFormat) {
            const auto format = attribute.value.value<QTextFormat>().toCharFormat();
            preedit.formats.append({attribute.start, attribute.length, format});
        }
    }
    if (preedit.formats.isEmpty()) {
        QTextCharFormat underlined;
        underlined.setFontUnderline(true);
        preedit.formats.append({0, static_cast<int>(preedit.text.size()), underlined});
    }
    return preedit;
}

}  // namespace

InputMethod::InputMethod(RichTextView& view, CaretActions& actions, KeyInput& keys)
    : view_(view), actions_(actions), keys_(keys) {
    pending_.setSingleShot(true);
    QObject::connect(&pending_, &QTimer::timeout, [this] {
        if (view_.hasFocus()) QGuiApplication::inputMethod()->update(Qt::ImQueryInput);
    });
}

void InputMethod::handle(QInputMethodEvent& event) {
    if (view_.box().Locked()) {
        event.ignore();
        return;
    }
    isComposing_ = !event.preeditString().isEmpty();
    view_.setPreedit({});
    if (event.replacementLength() > 0) replaceRelative(event);
    keys_.typeText(event.commitString());
    select(event);
    view_.setPreedit(preeditOf(event));
    event.accept();
}

void InputMethod::replaceRelative(const QInputMethodEvent& event) {
    if (!view_.box().selection().empty()) actions_.insert({});
    const std::size_t length = view_.box().length();
    const Offset caret = actions_.units().snapped(view_.box().caret());
    const Offset begin = clamped(number(caret) + event.replacementStart(), length);
    const Offset end = clamped(number(begin) + event.replacementLength(), length);
    // the first character of the new text replaces what is selected: one edit instead of two
    if (view_.codePage().fromUnicode(event.commitString()).empty())
        actions_.replace({begin, end}, {});
    else
        actions_.select(begin, end);
}

void InputMethod::select(const QInputMethodEvent& event) {
    for (const auto& attribute : event.attributes()) {
        if (attribute.type != QInputMethodEvent::Selection) continue;
        const std::size_t end = view_.box().length();
        const Long anchor = number(surrounding().begin()) + attribute.start;
        actions_.select(clamped(anchor, end), clamped(anchor + attribute.length, end));
    }
}

void InputMethod::commit() {
    isComposing_ = false;
    if (view_.preedit().isEmpty()) return;
    QInputMethod* method = QGuiApplication::inputMethod();
    if (QGuiApplication::focusObject() == &view_) method->commit();
    const QString left = view_.preedit();
    if (left.isEmpty()) return;
    // the input method did not commit: do it here, and keep it from doing so later
    view_.setPreedit({});
    keys_.typeText(left);
    method->reset();
}

void InputMethod::changed() {
    if (view_.hasFocus() && !pending_.isActive()) pending_.start(0);
}

QVariant InputMethod::answer(Qt::InputMethodQuery query) {
    const RichTextBox& box = view_.box();
    const QPoint viewport = view_.viewport()->pos();
    switch (query) {
        case Qt::ImEnabled:
            return view_.isEnabled() && !box.Locked();
        case Qt::ImReadOnly:
            return box.Locked();
        case Qt::ImHints:
            return static_cast<int>(view_.inputMethodHints());
        case Qt::ImFont:
            return view_.Font();
        case Qt::ImCursorRectangle:
            return view_.caretRect().translated(viewport);
        case Qt::ImAnchorRectangle:
            return view_.characterRect(box.anchor()).translated(viewport);
        case Qt::ImInputItemClipRectangle:
            return view_.viewport()->geometry();
        case Qt::ImCursorPosition:
            return relative(box.caret());
        case Qt::ImAnchorPosition:
            return relative(box.anchor());
        case Qt::ImAbsolutePosition:
            return toInt(box.caret());
        case Qt::ImSurroundingText:
            return textOf(surrounding());
        case Qt::ImCurrentSelection:
            return currentSelection();
        default:
            return {};
    }
}

Range InputMethod::surrounding() const {
    const TextUnits units = actions_.units();
    const Offset caret = units.snapped(view_.box().caret());
    const Offset start = units.lineStart(caret);
    const std::size_t half = kSurrounding / 2;
    return {caret - std::min(half, caret - start), std::min(units.lineEnd(caret), caret + half)};
}

QString InputMethod::textOf(Range range) const {
    return view_.codePage().toUnicode(view_.box().rope().bytes(range));
}

int InputMethod::relative(Offset offset) const {
    const Range range = surrounding();
    return toInt(std::clamp(offset, range.begin(), range.end()) - range.begin());
}

QString InputMethod::currentSelection() const {
    const Range selection = view_.box().selection();
    // asked for at every step of the caret; no input method works on more
    return selection.length() <= kSurrounding ? textOf(selection) : QString();
}

}  // namespace brindlex
