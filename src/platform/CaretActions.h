#pragma once

#include <QPoint>
#include <optional>
#include <string_view>

#include "platform/CaretMotion.h"
#include "platform/EditAction.h"
#include "platform/text/Units.h"

namespace brindlex {

class RichTextView;

/// What the user does to the caret and the text of a view, by whatever device. An edit brings the
/// caret into view, and so does putting it somewhere, be it where it stands. It is left outside of
/// a CR LF pair; a locked box keeps its text. Handlers of the box may change caret and text within
/// each call.
class CaretActions {
  public:
    /// `view` outlives this object.
    explicit CaretActions(RichTextView& view) : view_(view) {}

    void perform(const EditAction& action);
    void select(Offset anchor, Offset caret);
    /// Selects all between the anchor and `caret`; without `extend` nothing.
    void moveTo(Offset caret, bool extend);
    /// Puts the bytes in the place of the selection. False when that was refused.
    bool insert(std::string_view bytes);
    /// As `insert`; in overwrite mode with nothing selected a character takes the place of the next
    /// one on the line.
    bool type(char byte);
    /// False when it was refused.
    bool replace(Range range, std::string_view bytes);
    /// The next step up or down starts a new column.
    void forgetColumn() { column_.reset(); }
    /// Where the caret goes for a point of the viewport.
    Offset positionAt(QPoint point) const;
    /// The units of the view's text as it now is.
    CaretMotion motion() const;

  private:
    void move(Motion motion, bool extend);
    void moveByRows(int rows, bool extend);
    void remove(Motion motion);
    Offset target(Motion motion, Offset from) const;
    /// Where a motion without Select ends: a step to the side only leaves a selection.
    Offset collapsed(Motion motion) const;
    Offset shownCaret() const;
    int columnOfCaret() const;

    RichTextView& view_;
    std::optional<int> column_;  // pixels from the text's left edge
};

}  // namespace brindlex
