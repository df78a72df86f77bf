#pragma once

#include <QString>
#include <cstddef>
#include <functional>

#include "platform/text/RichTextBox.h"
#include "platform/text/Rope.h"
#include "platform/text/Units.h"

class QAccessibleEvent;

namespace brindlex {

class RichTextView;

/// Who hears of what happens to a text.
struct Audience {
    std::function<bool()> listens;
    std::function<void(QAccessibleEvent& event)> tell;

    /// The assistive technology of the system.
    static Audience system();
};

/// Tells assistive technology what happens to the text, the caret and the selection of a view,
/// while there is somebody who listens. A change costs what it changed, and nothing otherwise.
class AccessibleEvents {
  public:
    /// Inserted and removed text is told up to this many characters; a reader does not speak more.
    static constexpr std::size_t kTold = 10000;

    /// `view` outlives this object.
    explicit AccessibleEvents(RichTextView& view, Audience audience = Audience::system());

    /// The text changed; `edit` is what changed.
    void textChanged(const TextEdit& edit);
    /// Caret or selection changed.
    void selectionChanged();

  private:
    QString told(const Rope& text, Offset begin, std::size_t length) const;
    void tellRemoved(const TextEdit& edit);
    void tellInserted(const TextEdit& edit);

    RichTextView& view_;
    Audience audience_;
    Rope known_;  // the text as it was told last, for what an edit removes
    Range selection_;
    Offset caret_;
};

}  // namespace brindlex
