#include "view/input/EditAction.h"

#include <QKeyEvent>
#include <QKeySequence>

#include "system/KeyCodes.h"

namespace brindlex {
namespace {

using Kind = EditAction::Kind;

struct StandardRow {
    QKeySequence::StandardKey key;
    EditAction action;
};

constexpr StandardRow kStandardKeys[] = {
    {QKeySequence::MoveToNextChar, {Kind::Move, Motion::NextCharacter}},
    {QKeySequence::MoveToPreviousChar, {Kind::Move, Motion::PreviousCharacter}},
    {QKeySequence::MoveToNextWord, {Kind::Move, Motion::NextWord}},
    {QKeySequence::MoveToPreviousWord, {Kind::Move, Motion::PreviousWord}},
    {QKeySequence::MoveToNextLine, {Kind::Move, Motion::LineDown}},
    {QKeySequence::MoveToPreviousLine, {Kind::Move, Motion::LineUp}},
    {QKeySequence::MoveToNextPage, {Kind::Move, Motion::PageDown}},
    {QKeySequence::MoveToPreviousPage, {Kind::Move, Motion::PageUp}},
    {QKeySequence::MoveToStartOfLine, {Kind::Move, Motion::LineStart}},
    {QKeySequence::MoveToEndOfLine, {Kind::Move, Motion::LineEnd}},
    {QKeySequence::MoveToStartOfBlock, {Kind::Move, Motion::LineStart}},
    {QKeySequence::MoveToEndOfBlock, {Kind::Move, Motion::LineEnd}},
    {QKeySequence::MoveToStartOfDocument, {Kind::Move, Motion::TextStart}},
    {QKeySequence::MoveToEndOfDocument, {Kind::Move, Motion::TextEnd}},
    {QKeySequence::SelectNextChar, {Kind::Select, Motion::NextCharacter}},
    {QKeySequence::SelectPreviousChar, {Kind::Select, Motion::PreviousCharacter}},
    {QKeySequence::SelectNextWord, {Kind::Select, Motion::NextWord}},
    {QKeySequence::SelectPreviousWord, {Kind::Select, Motion::PreviousWord}},
    {QKeySequence::SelectNextLine, {Kind::Select, Motion::LineDown}},
    {QKeySequence::SelectPreviousLine, {Kind::Select, Motion::LineUp}},
    {QKeySequence::SelectNextPage, {Kind::Select, Motion::PageDown}},
    {QKeySequence::SelectPreviousPage, {Kind::Select, Motion::PageUp}},
    {QKeySequence::SelectStartOfLine, {Kind::Select, Motion::LineStart}},
    {QKeySequence::SelectEndOfLine, {Kind::Select, Motion::LineEnd}},
    {QKeySequence::SelectStartOfBlock, {Kind::Select, Motion::LineStart}},
    {QKeySequence::SelectEndOfBlock, {Kind::Select, Motion::LineEnd}},
    {QKeySequence::SelectStartOfDocument, {Kind::Select, Motion::TextStart}},
    {QKeySequence::SelectEndOfDocument, {Kind::Select, Motion::TextEnd}},
    {QKeySequence::SelectAll, {Kind::SelectAll}},
    {QKeySequence::Deselect, {Kind::Deselect}},
    {QKeySequence::Delete, {Kind::Delete, Motion::NextCharacter}},
    {QKeySequence::DeleteStartOfWord, {Kind::Delete, Motion::PreviousWord}},
    {QKeySequence::DeleteEndOfWord, {Kind::Delete, Motion::NextWord}},
    {QKeySequence::DeleteEndOfLine, {Kind::Delete, Motion::LineEnd}},
    {QKeySequence::DeleteCompleteLine, {Kind::DeleteLine}},
};

struct ChordRow {
    int key;
    Qt::KeyboardModifiers modifiers;
    EditAction action;
};

constexpr ChordRow kChords[] = {
    {Qt::Key_Backspace, Qt::NoModifier, {Kind::Delete, Motion::PreviousCharacter}},
    {Qt::Key_Backspace, Qt::ShiftModifier, {Kind::Delete, Motion::PreviousCharacter}},
    {Qt::Key_Up, Qt::ControlModifier, {Kind::ScrollUp}},
    {Qt::Key_Down, Qt::ControlModifier, {Kind::ScrollDown}},
    {Qt::Key_Insert, Qt::NoModifier, {Kind::ToggleOverwrite}},
};

std::optional<EditAction> boundAction(const QKeyEvent& event) {
    for (const StandardRow& row : kStandardKeys)
        if (event.matches(row.key)) return row.action;
    const auto modifiers = chordOf(event);
    for (const ChordRow& row : kChords)
        if (event.key() == row.key && modifiers == row.modifiers) return row.action;
    return std::nullopt;
}

bool deletes(const EditAction& action) {
    return action.kind == Kind::Delete || action.kind == Kind::DeleteLine;
}

}  // namespace

std::optional<EditAction> editActionOf(const QKeyEvent& event) {
    const auto action = boundAction(event);
    if (action && deletes(*action) && isCtrlLetter(event)) return std::nullopt;
    return action;
}

}  // namespace brindlex
