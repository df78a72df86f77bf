#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "platform/LineLayout.h"
#include "platform/LineStyle.h"
#include "platform/text/RichTextBox.h"

namespace brindlex {

/// The layouts of the lines that were asked for and did not change since. A change of one line
/// drops or amends the layout of that line alone; lines that come or go shift those below.
class LineLayouts {
  public:
    /// Both must outlive this object.
    LineLayouts(const RichTextBox& box, const LineStyle& style) : box_(box), style_(style) {}

    /// The layout of a line of the text; valid until the next call of this object.
    const LineLayout& at(LineIndex line);
    void textChanged(const TextEdit& edit);
    void formatChanged(Range range);
    /// Text of an input method at an offset; an empty text for none.
    void setPreedit(Preedit preedit, Offset offset);
    const Preedit& preedit() const { return preedit_; }
    /// Drops the layouts of all lines but [first, last].
    void keep(LineIndex first, LineIndex last);
    /// The width to align text in changed, but not whether lines wrap.
    void widthChanged();
    void clear() { entries_.clear(); }
    /// How many layouts were made so far.
    std::size_t made() const { return made_; }

  private:
    struct Entry {
        std::size_t line;
        std::unique_ptr<LineLayout> layout;
    };
    using Iterator = std::vector<Entry>::iterator;

    Iterator lowerBound(std::size_t line);
    void drop(std::size_t firstLine, std::size_t lastLine);
    bool amend(const TextEdit& edit);
    bool holdsPreedit(LineIndex line) const;
    std::unique_ptr<LineLayout> make(LineIndex line) const;

    const RichTextBox& box_;
    const LineStyle& style_;
    std::vector<Entry> entries_;  // by rising line
    Preedit preedit_;
    Offset preeditOffset_;
    std::size_t made_ = 0;
};

}  // namespace brindlex
