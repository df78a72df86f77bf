#include "view/accessibility/AccessibleEvents.h"

#include <QAccessible>
#include <algorithm>
#include <utility>

#include "view/RichTextView.h"
#include "view/ToolkitInt.h"

namespace brindlex {
Audience Audience::system() {
    return {&QAccessible::isActive,
            [](QAccessibleEvent& event) { QAccessible::updateAccessibility(&event); }};
}

AccessibleEvents::AccessibleEvents(RichTextView& view, Audience audience)
    : view_(view), audience_(std::move(audience)) {}

void AccessibleEvents::textChanged(const TextEdit& edit) {
    if (!audience_.listens()) {
        known_ = Rope();
        return;
    }
    tellRemoved(edit);
    tellInserted(edit);
    known_ = view_.box().rope();
}

void AccessibleEvents::tellRemoved(const TextEdit& edit) {
    // the removed text is unknown if nobody listened before
    const std::size_t before = view_.box().length() - edit.inserted + edit.removed.length();
    if (edit.removed.empty() || known_.size() != before) return;
    QAccessibleTextRemoveEvent event(&view_, toInt(edit.removed.begin()),
                                     told(known_, edit.removed.begin(), edit.removed.length()));
    audience_.tell(event);
}

void AccessibleEvents::tellInserted(const TextEdit& edit) {
    if (edit.inserted == 0) return;
    QAccessibleTextInsertEvent event(&view_, toInt(edit.removed.begin()),
                                     told(view_.box().rope(), edit.removed.begin(), edit.inserted));
    audience_.tell(event);
}

void AccessibleEvents::selectionChanged() {
    if (!audience_.listens()) return;
    const RichTextBox& box = view_.box();
    if (known_.empty()) known_ = box.rope();
    const Range before = std::exchange(selection_, box.selection());
    if (before != selection_ && !(before.empty() && selection_.empty())) {
        QAccessibleTextSelectionEvent event(&view_, toInt(selection_.begin()),
                                            toInt(selection_.end()));
        event.setCursorPosition(toInt(box.caret()));
        audience_.tell(event);
    }
    if (std::exchange(caret_, box.caret()) != box.caret()) {
        QAccessibleTextCursorEvent event(&view_, toInt(box.caret()));
        audience_.tell(event);
    }
}

QString AccessibleEvents::told(const Rope& text, Offset begin, std::size_t length) const {
    return view_.codePage().toUnicode(text.bytes(Range::at(begin, std::min(length, kTold))));
}

}  // namespace brindlex
