#pragma once

#include <optional>

class QKeyEvent;

namespace brindlex {

/// A step of the caret.
enum class Motion {
    None,
    NextCharacter,
    PreviousCharacter,
    NextWord,
    PreviousWord,
    RowUp,
    RowDown,
    PageUp,
    PageDown,
    LineStart,
    LineEnd,
    TextStart,
    TextEnd,
};

/// What a key without a character does to caret and text.
struct EditAction {
    enum class Kind {
        Move,    ///< the caret makes the motion
        Select,  ///< the same, and the other end of the selection stays
        Delete,  ///< the selection goes, or what lies between the caret and the motion's end
        DeleteLine,
        SelectAll,
        Deselect,
        ScrollUp,  ///< by one line, the caret stays
        ScrollDown,
        ToggleOverwrite,
    };
    Kind kind = Kind::Move;
    Motion motion = Motion::None;

    bool operator==(const EditAction&) const = default;
};

/// The action that the system's key bindings give to a key; unset for all others. Ctrl with a
/// letter never deletes, whatever the system says: a menu entry that is disabled at the moment must
/// not leave its shortcut to a deletion.
std::optional<EditAction> editActionOf(const QKeyEvent& event);

}  // namespace brindlex
