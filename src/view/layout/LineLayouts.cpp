#include "view/layout/LineLayouts.h"

#include <algorithm>
#include <utility>

namespace brindlex {

const LineLayout& LineLayouts::at(LineIndex line) {
    Iterator found = lowerBound(line.value());
    if (found == entries_.end() || found->line != line.value()) {
        constexpr std::size_t kMost = 2048;  // far more than show; nothing asks for all again
        if (entries_.size() >= kMost) {
            entries_.clear();
            found = entries_.end();
        }
        found = entries_.insert(found, {line.value(), make(line)});
    }
    found->layout->moved(box_.lineContent(line));
    return *found->layout;
}

std::unique_ptr<LineLayout> LineLayouts::make(LineIndex line) const {
    LineText text{box_, box_.lineContent(line)};
    if (holdsPreedit(line)) {
        text.preedit = &preedit_;
        text.preeditColumn = std::min(preeditOffset_ - text.content.begin(), text.content.length());
    }
    return std::make_unique<LineLayout>(text, context_);
}

bool LineLayouts::holdsPreedit(LineIndex line) const {
    return !preedit_.text.isEmpty() && box_.rope().lineOf(preeditOffset_) == line;
}

void LineLayouts::textChanged(const TextEdit& edit) {
    if (preeditOffset_ >= edit.removed.end())
        preeditOffset_ = preeditOffset_ - edit.removed.length() + edit.inserted;
    else
        preeditOffset_ = std::min(preeditOffset_, edit.removed.begin());
    if (tryUpdateInPlace(edit)) return;
    const std::size_t line = edit.line.value();
    drop(line, line + edit.removedBreaks);
    if (edit.removedBreaks == edit.insertedBreaks) return;
    for (Iterator entry = lowerBound(line + 1); entry != entries_.end(); ++entry)
        entry->line = entry->line - edit.removedBreaks + edit.insertedBreaks;
}

/// False for an edit of several lines or of a line with a preedit: then layouts must go.
bool LineLayouts::tryUpdateInPlace(const TextEdit& edit) {
    if (edit.removedBreaks > 0 || edit.insertedBreaks > 0 || holdsPreedit(edit.line)) return false;
    const Iterator entry = lowerBound(edit.line.value());
    if (entry == entries_.end() || entry->line != edit.line.value()) return true;
    const Range content = box_.lineContent(edit.line);
    entry->layout->edited(content, edit.removed.begin() - content.begin(), edit.removed.length(),
                          edit.inserted);
    return true;
}

void LineLayouts::formatChanged(Range range) {
    const Rope& rope = box_.rope();
    const std::size_t last = rope.lineOf(range.end()).value();
    Iterator entry = lowerBound(rope.lineOf(range.begin()).value());
    for (; entry != entries_.end() && entry->line <= last; ++entry) entry->layout->recolored();
}

void LineLayouts::setPreedit(Preedit preedit, Offset offset) {
    const auto dropLine = [this] {
        if (preedit_.text.isEmpty()) return;
        const std::size_t line = box_.rope().lineOf(preeditOffset_).value();
        drop(line, line);
    };
    dropLine();
    preedit_ = std::move(preedit);
    preeditOffset_ = offset;
    dropLine();
}

void LineLayouts::evictOutside(LineIndex first, LineIndex last) {
    std::erase_if(entries_, [&](const Entry& entry) {
        return entry.line < first.value() || entry.line > last.value();
    });
}

LineLayouts::Iterator LineLayouts::lowerBound(std::size_t line) {
    return std::lower_bound(
        entries_.begin(), entries_.end(), line,
        [](const Entry& entry, std::size_t wanted) { return entry.line < wanted; });
}

void LineLayouts::drop(std::size_t firstLine, std::size_t lastLine) {
    entries_.erase(lowerBound(firstLine), lowerBound(lastLine + 1));
}

}  // namespace brindlex
