#pragma once

#include <cstddef>
#include <memory>
#include <vector>

#include "text/RichTextBox.h"
#include "view/layout/LayoutContext.h"
#include "view/layout/LineLayout.h"

namespace brindlex {

/// The layouts of the lines that were looked at of late. A change of one line is followed by the
/// layout of that line; lines that come or go move those below.
class LineLayouts {
  public:
    /// Both must outlive this object.
    LineLayouts(const RichTextBox& box, const LayoutContext& context)
        : box_(box), context_(context) {}

    /// The layout of a line of the text; valid until the next call of this object.
    const LineLayout& at(LineIndex line);
    void textChanged(const TextEdit& edit);
    void formatChanged(Range range);
    /// Text of an input method at an offset; an empty text for none.
    void setPreedit(Preedit preedit, Offset offset);
    const Preedit& preedit() const { return preedit_; }
    /// Drops the layouts of all lines but [first, last].
    void evictOutside(LineIndex first, LineIndex last);
    void clear() { entries_.clear(); }

  private:
    struct Entry {
        std::size_t line;
        std::unique_ptr<LineLayout> layout;
    };
    using Iterator = std::vector<Entry>::iterator;

    Iterator lowerBound(std::size_t line);
    void drop(std::size_t firstLine, std::size_t lastLine);
    bool tryUpdateInPlace(const TextEdit& edit);
    bool holdsPreedit(LineIndex line) const;
    std::unique_ptr<LineLayout> make(LineIndex line) const;

    const RichTextBox& box_;
    const LayoutContext& context_;
    std::vector<Entry> entries_;  // by rising line
    Preedit preedit_;
    Offset preeditOffset_;
};

}  // namespace brindlex
