#pragma once

#include <QTimer>
#include <QVariant>
#include <Qt>

#include "platform/text/Units.h"

class QInputMethodEvent;

namespace brindlex {

class CaretActions;
class KeyInput;
class RichTextView;

/// Where a RichTextView meets the system's input methods. Committed characters go in as if typed; a
/// text that is still being composed is only shown. All answers cost the same however long the text
/// is: what surrounds the caret is told for `kSurrounding` characters of its line.
class InputMethod {
  public:
    static constexpr std::size_t kSurrounding = 1000;

    /// All three outlive this object.
    InputMethod(RichTextView& view, CaretActions& actions, KeyInput& keys);

    void handle(QInputMethodEvent& event);
    QVariant answer(Qt::InputMethodQuery query);
    /// Puts the composed text in as it stands.
    void commit();
    /// Caret, selection or text are no longer what they were: the system's input method will hear
    /// of it, once for all changes until the event loop runs again.
    void changed();

  private:
    void replaceRelative(const QInputMethodEvent& event);
    void select(const QInputMethodEvent& event);
    /// The part of the caret's line that ImSurroundingText gives.
    Range surrounding() const;
    QString textOf(Range range) const;
    int relative(Offset offset) const;
    QString currentSelection() const;
    QString around(bool before) const;

    RichTextView& view_;
    CaretActions& actions_;
    KeyInput& keys_;
    QTimer pending_;
};

}  // namespace brindlex
