#pragma once

#include <QRegion>
#include <QSize>
#include <cstdint>
#include <vector>

#include "text/Units.h"
#include "view/layout/LineLayout.h"

namespace brindlex {

/// What stands on the screen: enough of it to tell which parts another state would change.
class ShownLines {
  public:
    /// What all lines have in common. Lengths are logical pixels of the viewport.
    struct Frame {
        QSize size;
        qreal textX = 0;  ///< where lines begin
        qreal rowHeight = 0;
        int highlight = 0;  ///< which colours a selection has
        bool operator==(const Frame&) const = default;
    };
    struct Line {
        std::uint64_t serial;  ///< of the layout
        LineSelection selection;
        bool operator==(const Line&) const = default;
    };

    ShownLines() = default;
    ShownLines(const Frame& frame, LineIndex first) : frame_(frame), first_(first) {}
    /// From the first line down.
    void append(const Line& line) { lines_.push_back(line); }
    LineIndex first() const { return first_; }
    std::size_t count() const { return lines_.size(); }
    bool shows(LineIndex line) const { return first_ <= line && line - first_ < lines_.size(); }
    /// The part of the viewport that looks different than it did in `before`.
    QRegion changedSince(const ShownLines& before) const;

  private:
    Frame frame_;
    LineIndex first_;
    std::vector<Line> lines_;
};

}  // namespace brindlex
