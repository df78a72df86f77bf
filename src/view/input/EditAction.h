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
    LineUp,
    LineDown,
    PageUp,
    PageDown,
    LineStart,
    LineEnd,
    TextStart,
    TextEnd,
};

/// What a key that makes no character does to caret and text.
struct EditAction {
    enum class Kind {
        Move,    ///< moves the caret
        Select,  ///< moves the caret and keeps the other end of the selection
        Delete,  ///< removes the selection, or else what the motion passes
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
/// letter never deletes, whatever the bindings say: the shortcut of a disabled menu entry comes
/// here, and must not delete.
std::optional<EditAction> editActionOf(const QKeyEvent& event);

}  // namespace brindlex
