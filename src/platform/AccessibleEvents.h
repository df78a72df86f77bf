#pragma once

#include <QString>
#include <cstddef>

#include "platform/text/RichTextBox.h"
#include "platform/text/Rope.h"
#include "platform/text/Units.h"

namespace brindlex {

class RichTextView;

/// Tells assistive technology what happens to the text, the caret and the selection of a view,
/// while there is somebody who listens. A change costs what it changed, and nothing otherwise.
class AccessibleEvents {
  public:
    /// Inserted and removed text is told up to this many characters; a reader does not speak more.
    static constexpr std::size_t kTold = 10000;

    /// `view` outlives this object.
    explicit AccessibleEvents(RichTextView& view);

    /// The text changed; `edit` is what changed.
    void textChanged(const TextEdit& edit);
    /// Caret or selection changed.
    void selectionChanged();

  private:
    QString told(const Rope& text, Offset begin, std::size_t length) const;
    void tellRemoved(const TextEdit& edit);
    void tellInserted(const TextEdit& edit);

    RichTextView& view_;
    Rope known_;  // the text as it was told last, for what an edit removes
    Range selection_;
    Offset caret_;
};

}  // namespace brindlex
