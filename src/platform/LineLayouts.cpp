#include "platform/LineLayouts.h"

#include <algorithm>
#include <utility>

#include "platform/LongLine.h"
#include "platform/ShortLine.h"

namespace brindlex {

const LineLayout& LineLayouts::at(LineIndex line) {
    Iterator found = lowerBound(line.value());
    if (found == entries_.end() || found->line != line.value()) {
        constexpr std::size_t kMost = 2048;  // far more than show; nothing asks for all again
        if (entries_.size() >= kMost) {
            entries_.clear();
            found = entries_.end();
        }
        ++made_;
        found = entries_.insert(found, {line.value(), make(line)});
    }
    found->layout->moved(box_.lineContent(line).begin());
    return *found->layout;
}

std::unique_ptr<LineLayout> LineLayouts::make(LineIndex line) const {
    LineText text{box_, box_.lineContent(line), box_.paragraphAt(line), nullptr, 0};
    if (holdsPreedit(line)) {
        text.preedit = &preedit_;
        text.preeditColumn = std::min(preeditOffset_ - text.content.begin(), text.content.length());
    }
    if (text.content.length() > style_.longLine()) return std::make_unique<LongLine>(text, style_);
    return std::make_unique<ShortLine>(text, style_);
}

bool LineLayouts::holdsPreedit(LineIndex line) const {
    return !preedit_.text.isEmpty() && box_.rope().lineOf(preeditOffset_) == line;
}

void LineLayouts::textChanged(const TextEdit& edit) {
    if (preeditOffset_ >= edit.removed.end())
        preeditOffset_ = preeditOffset_ - edit.removed.length() + edit.inserted;
    else
        preeditOffset_ = std::min(preeditOffset_, edit.removed.begin());
    if (edit.removedBreaks == 0 && edit.insertedBreaks == 0 && amend(edit)) return;
    const std::size_t line = edit.line.value();
    drop(line, line + edit.removedBreaks);
    if (edit.removedBreaks == edit.insertedBreaks) return;
    for (Iterator entry = lowerBound(line + 1); entry != entries_.end(); ++entry)
        entry->line = entry->line - edit.removedBreaks + edit.insertedBreaks;
}

bool LineLayouts::amend(const TextEdit& edit) {
    const Iterator entry = lowerBound(edit.line.value());
    if (entry == entries_.end() || entry->line != edit.line.value()) return true;
    const Range content = box_.lineContent(edit.line);
    return entry->layout->edited(content, edit.removed.begin() - content.begin(),
                                 edit.removed.length(), edit.inserted);
}

void LineLayouts::formatChanged(Range range) {
    const Rope& rope = box_.rope();
    const Offset lastOffset = range.empty() ? range.end() : range.end() - 1;
    const std::size_t last = rope.lineOf(lastOffset).value();
    std::erase_if(entries_, [&, first = rope.lineOf(range.begin()).value()](Entry& entry) {
        if (entry.line < first || entry.line > last) return false;
        const LineIndex line(entry.line);
        const Range content = box_.lineContent(line);
        const auto column = [&](Offset offset) {
            return std::clamp(offset, content.begin(), content.end()) - content.begin();
        };
        entry.layout->moved(content.begin());
        return !entry.layout->formatChanged(column(range.begin()), column(range.end()),
                                            box_.paragraphAt(line));
    });
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

void LineLayouts::keep(LineIndex first, LineIndex last) {
    std::erase_if(entries_, [&](const Entry& entry) {
        return entry.line < first.value() || entry.line > last.value();
    });
}

void LineLayouts::widthChanged() {
    std::erase_if(entries_, [&](const Entry& entry) {
        return !entry.layout->formatChanged(0, 0, box_.paragraphAt(LineIndex(entry.line)));
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
