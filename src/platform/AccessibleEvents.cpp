#include "platform/AccessibleEvents.h"

#include <QAccessible>
#include <algorithm>
#include <utility>

#include "platform/RichTextAccessible.h"
#include "platform/RichTextView.h"

namespace brindlex {
namespace {

int number(Offset offset) {
    return static_cast<int>(offset.value());
}

}  // namespace

AccessibleEvents::AccessibleEvents(RichTextView& view) : view_(view) {
    installRichTextAccessible();
}

void AccessibleEvents::textChanged(const TextEdit& edit) {
    if (!QAccessible::isActive()) {
        known_ = Rope();
        return;
    }
    tellRemoved(edit);
    tellInserted(edit);
    known_ = view_.box().rope();
}

void AccessibleEvents::tellRemoved(const TextEdit& edit) {
    // nobody may have listened when the removed text was put in
    const std::size_t before = view_.box().length() - edit.inserted + edit.removed.length();
    if (edit.removed.empty() || known_.size() != before) return;
    QAccessibleTextRemoveEvent event(&view_, number(edit.removed.begin()),
                                     told(known_, edit.removed.begin(), edit.removed.length()));
    QAccessible::updateAccessibility(&event);
}

void AccessibleEvents::tellInserted(const TextEdit& edit) {
    if (edit.inserted == 0) return;
    QAccessibleTextInsertEvent event(&view_, number(edit.removed.begin()),
                                     told(view_.box().rope(), edit.removed.begin(), edit.inserted));
    QAccessible::updateAccessibility(&event);
}

void AccessibleEvents::selectionChanged() {
    if (!QAccessible::isActive()) return;
    const RichTextBox& box = view_.box();
    if (known_.empty()) known_ = box.rope();
    const Range before = std::exchange(selection_, box.selection());
    if (before != selection_ && !(before.empty() && selection_.empty())) {
        QAccessibleTextSelectionEvent event(&view_, number(selection_.begin()),
                                            number(selection_.end()));
        event.setCursorPosition(number(box.caret()));
        QAccessible::updateAccessibility(&event);
    }
    if (std::exchange(caret_, box.caret()) != box.caret()) {
        QAccessibleTextCursorEvent event(&view_, number(box.caret()));
        QAccessible::updateAccessibility(&event);
    }
}

QString AccessibleEvents::told(const Rope& text, Offset begin, std::size_t length) const {
    return view_.codePage().toUnicode(text.bytes(Range::at(begin, std::min(length, kTold))));
}

}  // namespace brindlex
