#pragma once

#include <QTimer>
#include <QVariant>
#include <Qt>

#include "text/Units.h"

class QInputMethodEvent;

namespace brindlex {

class CaretActions;
class KeyInput;
class RichTextView;

/// Connects a RichTextView to the system's input methods. Committed text is typed; a text that is
/// still being composed is only shown. No answer costs more in a longer text: at most
/// `kSurrounding` characters are given, and around the caret only those of its line.
class InputMethod {
  public:
    static constexpr std::size_t kSurrounding = 1000;

    /// All three outlive this object.
    InputMethod(RichTextView& view, CaretActions& actions, KeyInput& keys);

    void handle(QInputMethodEvent& event);
    QVariant answer(Qt::InputMethodQuery query);
    /// Types the composed text as it stands.
    void commit();
    /// A text is being composed, also while the part of it that is done is typed.
    bool isComposing() const { return isComposing_; }
    /// Caret, selection or text changed. The system's input method is told once, from the event
    /// loop, for all changes so far.
    void changed();

  private:
    void replaceRelative(const QInputMethodEvent& event);
    void select(const QInputMethodEvent& event);
    /// The part of the caret's line that ImSurroundingText gives.
    Range surrounding() const;
    QString textOf(Range range) const;
    int relative(Offset offset) const;
    QString currentSelection() const;

    RichTextView& view_;
    CaretActions& actions_;
    KeyInput& keys_;
    QTimer pending_;
    bool isComposing_ = false;
};

}  // namespace brindlex
