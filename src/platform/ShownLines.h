#pragma once

#include <QRegion>
#include <cstdint>
#include <vector>

#include "platform/LineLayout.h"

namespace brindlex {

/// What stands on the screen: enough of it to tell which parts another state would change. Heights
/// are logical pixels of the viewport.
class ShownLines {
  public:
    struct Line {
        LineIndex line;
        std::uint64_t serial;  ///< of the layout
        qreal top;
        qreal bottom;
        LineSelection selection;
    };
    /// What all lines have in common.
    struct Frame {
        QSize size;
        int scrolledRight = 0;
        int highlight = 0;  ///< which colours a selection has
        bool operator==(const Frame&) const = default;
    };

    ShownLines() = default;
    explicit ShownLines(const Frame& frame) : frame_(frame) {}
    /// From the top down; each line begins where the one before ends.
    void append(const Line& line) { lines_.push_back(line); }
    const std::vector<Line>& lines() const { return lines_; }
    bool shows(LineIndex line) const;
    qreal bottom() const { return lines_.empty() ? 0 : lines_.back().bottom; }
    /// The part of the viewport that looks different than it did in `before`.
    QRegion changedSince(const ShownLines& before) const;

  private:
    /// Whether a line stood at the same place and looked the same.
    bool holds(const Line& line) const;
    QRect strip(qreal top, qreal bottom) const;

    Frame frame_;
    std::vector<Line> lines_;
};

}  // namespace brindlex
