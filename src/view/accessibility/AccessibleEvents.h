#pragma once

#include <QString>
#include <cstddef>
#include <functional>

#include "text/RichTextBox.h"
#include "text/Rope.h"
#include "text/Units.h"

class QAccessibleEvent;

namespace brindlex {

class RichTextView;

/// Who receives the events of a text.
struct Audience {
    std::function<bool()> listens;
    std::function<void(QAccessibleEvent& event)> tell;

    /// The assistive technology of the system.
    static Audience system();
};

/// Tells assistive technology what happens to the text, the caret and the selection of a view,
/// while somebody listens. Then an event costs as much as it tells; otherwise it costs nothing.
class AccessibleEvents {
  public:
    /// Inserted and removed text is told up to this many characters; nobody listens to more.
    static constexpr std::size_t kTold = 10000;

    /// `view` outlives this object.
    explicit AccessibleEvents(RichTextView& view, Audience audience = Audience::system());

    void textChanged(const TextEdit& edit);
    void selectionChanged();

  private:
    QString told(const Rope& text, Offset begin, std::size_t length) const;
    void tellRemoved(const TextEdit& edit);
    void tellInserted(const TextEdit& edit);

    RichTextView& view_;
    Audience audience_;
    Rope known_;  // the text before the next edit, for what that removes
    Range selection_;
    Offset caret_;
};

}  // namespace brindlex
