#pragma once

#include <QPoint>
#include <optional>
#include <string_view>

#include "text/TextUnits.h"
#include "text/Units.h"
#include "view/input/EditAction.h"

namespace brindlex {

class RichTextView;

/// What the user does to the caret and the text of a view, by keyboard, mouse or otherwise. Edits
/// and moves bring the caret into view, even a move to where it is already. No call puts the caret
/// between CR and LF or changes the text of a locked box. Handlers of the box may change caret and
/// text within each call.
class CaretActions {
  public:
    /// `view` outlives this object.
    explicit CaretActions(RichTextView& view) : view_(view) {}

    void perform(const EditAction& action);
    void select(Offset anchor, Offset caret);
    /// Selects all between the anchor and `caret`; without `extend` nothing.
    void moveTo(Offset caret, bool extend);
    /// Replaces the selection. False when that was refused.
    bool insert(std::string_view bytes);
    /// As `insert`; in overwrite mode, with nothing selected, the next character on the line is
    /// removed first: two edits.
    bool type(char byte);
    /// False when it was refused.
    bool replace(Range range, std::string_view bytes);
    /// The next motion up or down starts from the caret's own column.
    void forgetColumn() { column_.reset(); }
    /// Where the caret goes for a point of the viewport.
    Offset positionAt(QPoint point) const;
    /// The units of the view's text as it now is.
    TextUnits units() const;
    /// Offers the selected text as the system's primary selection, which a middle click pastes.
    /// Nothing happens where nothing is selected or the system has no such selection. Cost: none
    /// that grows with the text, which is converted when somebody asks for it.
    void offerPrimarySelection() const;

  private:
    void move(Motion motion, bool extend);
    void moveByLines(Long lines, bool extend);
    void remove(Motion motion);
    Offset target(Motion motion, Offset from) const;
    /// Where a motion without Select ends: a step to the side goes to that end of a selection.
    Offset collapsed(Motion motion) const;
    Offset snappedCaret() const;

    RichTextView& view_;
    std::optional<int> column_;  // pixels from the text's left edge
};

}  // namespace brindlex
