#include "view/accessibility/RichTextAccessible.h"

#include <QScrollBar>
#include <algorithm>

#include "view/RichTextView.h"
#include "view/ToolkitInt.h"

namespace brindlex {
namespace {

using Boundary = QAccessible::TextBoundaryType;

QAccessibleInterface* makeAccessible(const QString&, QObject* object) {
    auto* view = dynamic_cast<RichTextView*>(object);
    return view == nullptr ? nullptr : new RichTextAccessible(*view);
}

/// "name:value;", as an attribute list of IAccessible2 has it.
QString entry(const char* name, const QString& value) {
    return QStringLiteral("%1:%2;").arg(QLatin1String(name), value);
}

QString attributeList(ColorRef color, const QFont& font) {
    const QColor shown = ColorValue(color).resolve({});
    return entry("font-family", QStringLiteral("\"%1\"").arg(font.family())) +
           entry("font-size", QStringLiteral("%1pt").arg(font.pointSizeF())) +
           entry("color", QStringLiteral("rgb(%1,%2,%3)")
                              .arg(shown.red())
                              .arg(shown.green())
                              .arg(shown.blue()));
}

}  // namespace

void installRichTextAccessible() {
    QAccessible::installFactory(makeAccessible);
}

RichTextAccessible::RichTextAccessible(RichTextView& view)
    : QAccessibleWidget(&view, QAccessible::EditableText) {}

void* RichTextAccessible::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State RichTextAccessible::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.multiLine = true;
    state.focusable = true;
    state.selectableText = true;
    state.readOnly = box().Locked();
    state.editable = !box().Locked();
    return state;
}

QString RichTextAccessible::text(QAccessible::Text kind) const {
    if (kind != QAccessible::Value) return QAccessibleWidget::text(kind);
    return text(0, characterCount());
}

void RichTextAccessible::setText(QAccessible::Text kind, const QString& text) {
    if (kind == QAccessible::Value)
        replaceText(0, characterCount(), text);
    else
        QAccessibleWidget::setText(kind, text);
}

void RichTextAccessible::selection(int index, int* start, int* end) const {
    const Range range = index == 0 ? box().selection() : Range();
    *start = toInt(range.begin());
    *end = toInt(range.end());
}

int RichTextAccessible::selectionCount() const {
    return box().selection().empty() ? 0 : 1;
}

void RichTextAccessible::addSelection(int start, int end) {
    setSelection(0, start, end);
}

void RichTextAccessible::removeSelection(int index) {
    if (index == 0) box().select(box().caret(), box().caret());
}

void RichTextAccessible::setSelection(int index, int start, int end) {
    if (index != 0) return;
    box().select(units().snapped(clamped(start)), units().snapped(clamped(end)));
    view().ensureCaretVisible();  // the caret may be there already, out of sight
}

int RichTextAccessible::cursorPosition() const {
    return toInt(box().caret());
}

void RichTextAccessible::setCursorPosition(int position) {
    setSelection(0, position, position);
}

QString RichTextAccessible::text(int start, int end) const {
    return textOf(clamped(start, end));
}

int RichTextAccessible::characterCount() const {
    return toInt(box().length());
}

QString RichTextAccessible::textBeforeOffset(int offset, Boundary type, int* start,
                                             int* end) const {
    const auto at = resolved(offset);
    if (!at) return report({}, start, end);
    const Offset begin = unitAt(*at, type).begin();
    if (begin.value() == 0) return report({begin, begin}, start, end);
    return report(unitAt(units().previous(begin), type), start, end);
}

QString RichTextAccessible::textAtOffset(int offset, Boundary type, int* start, int* end) const {
    const auto at = resolved(offset);
    return report(at ? unitAt(*at, type) : Range(), start, end);
}

QString RichTextAccessible::textAfterOffset(int offset, Boundary type, int* start, int* end) const {
    const auto at = resolved(offset);
    if (!at) return report({}, start, end);
    const Offset next = unitAt(*at, type).end();
    return report(next.value() == box().length() ? Range(next, next) : unitAt(next, type), start,
                  end);
}

QString RichTextAccessible::attributes(int offset, int* start, int* end) const {
    const auto at = resolved(offset);
    if (!at) {
        report({}, start, end);
        return {};
    }
    const Range run = formatRunAt(*at);
    report({run.begin(), run.begin()}, start, end);
    *end = toInt(run.end());
    const ColorRef color = run.empty() ? 0 : box().formatAt(run.begin()).color;
    return attributeList(color, view().Font());
}

/// The characters of one format around an offset, within its line; at the end of the line the last
/// of them.
Range RichTextAccessible::formatRunAt(Offset offset) const {
    const Range line = box().lineContent(box().rope().lineOf(offset));
    if (line.empty()) return line;
    const Range run = box().formatRangeAt(std::min(offset, line.end() - 1));
    return {std::max(run.begin(), line.begin()), std::min(run.end(), line.end())};
}

QRect RichTextAccessible::characterRect(int offset) const {
    const auto at = resolved(offset);
    if (!at) return {};
    const QRect place = view().characterRect(*at);
    return {view().viewport()->mapToGlobal(place.topLeft()), place.size()};
}

int RichTextAccessible::offsetAtPoint(const QPoint& point) const {
    const QPoint inside = view().viewport()->mapFromGlobal(point);
    if (!view().viewport()->rect().contains(inside)) return -1;
    return toInt(view().positionAt(inside));
}

void RichTextAccessible::scrollToSubstring(int start, int end) {
    const Offset begin = clamped(start, end).begin();
    const QRect shown = view().viewport()->rect();
    QRect place = view().characterRect(begin);
    if (place.top() < shown.top() || place.bottom() > shown.bottom()) {
        const auto line = static_cast<Long>(box().rope().lineOf(begin).value());
        const auto first = static_cast<Long>(view().firstVisibleLine().value());
        view().lineScroll(line - first - view().linesPerPage() / 2);  // into the middle
        place = view().characterRect(begin);
    }
    QScrollBar* bar = view().horizontalScrollBar();
    const int right = shown.width() - place.width();
    bar->setValue(bar->value() + std::min(place.left(), 0) + std::max(place.left() - right, 0));
}

void RichTextAccessible::deleteText(int start, int end) {
    replaceText(start, end, {});
}

void RichTextAccessible::insertText(int offset, const QString& text) {
    replaceText(offset, offset, text);
}

void RichTextAccessible::replaceText(int start, int end, const QString& text) {
    box().userReplace(clamped(start, end), view().codePage().fromUnicode(text));
}

RichTextView& RichTextAccessible::view() const {
    return static_cast<RichTextView&>(*widget());
}

RichTextBox& RichTextAccessible::box() const {
    return view().box();
}

TextUnits RichTextAccessible::units() const {
    return {box().rope(), box().characters()};
}

Offset RichTextAccessible::clamped(int offset) const {
    return resolved(offset).value_or(Offset(offset < 0 ? 0 : box().length()));
}

Range RichTextAccessible::clamped(int start, int end) const {
    const auto ends = std::minmax({clamped(start), clamped(end)});
    return {ends.first, ends.second};
}

std::optional<Offset> RichTextAccessible::resolved(int offset) const {
    if (offset == -1) return Offset(box().length());
    if (offset == -2) return box().caret();
    if (offset < 0 || static_cast<std::size_t>(offset) > box().length()) return std::nullopt;
    return Offset(static_cast<std::size_t>(offset));
}

Range RichTextAccessible::unitAt(Offset offset, Boundary type) const {
    const TextUnits units = this->units();
    const Offset at = units.snapped(offset);
    switch (type) {
        case QAccessible::CharBoundary:
            return {at, units.next(at)};
        case QAccessible::WordBoundary: {
            const Range word = units.wordAt(at);
            return word.end() > at ? word : Range(at, units.next(at));
        }
        case QAccessible::NoBoundary:
            return {Offset(0), Offset(box().length())};
        default:
            return units.lineAt(at);
    }
}

QString RichTextAccessible::report(Range range, int* start, int* end) const {
    *start = toInt(range.begin());
    *end = toInt(range.end());
    return textOf(range);
}

QString RichTextAccessible::textOf(Range range) const {
    return view().codePage().toUnicode(box().rope().bytes(range));
}

}  // namespace brindlex
