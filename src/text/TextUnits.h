#pragma once

#include "text/CharacterTable.h"
#include "text/Rope.h"
#include "text/Units.h"

namespace brindlex {

/// Where the units of a text begin and end: characters (a CR LF is one), words and lines. A word is
/// a run of letters, digits and underscores, a run of blanks and tabs, or a run of other characters
/// on one line. The text has whole breaks alone. Costs O(log n) plus the bytes that lie between an
/// offset and its answer.
///
/// Keeps references to the text and the table: to be used at once and thrown away.
class TextUnits {
  public:
    TextUnits(const Rope& text, const CharacterTable& characters)
        : text_(text), characters_(characters) {}

    /// The same offset, or the one before the pair if it lies between CR and LF. Cut at the end.
    Offset snapped(Offset offset) const;
    /// One character on or back, at most to the end or the start of the text.
    Offset next(Offset offset) const;
    Offset previous(Offset offset) const;
    /// The start of the next word or the end of the line, whichever comes first; from the end of a
    /// line, behind its break.
    Offset nextWord(Offset offset) const;
    /// The start of the last word in front of `offset`, or the start of the line; from the start of
    /// a line, in front of the break above.
    Offset previousWord(Offset offset) const;
    /// The word that holds the character behind `offset`; at the end of a line the last word, which
    /// is empty in an empty line.
    Range wordAt(Offset offset) const;
    Offset lineStart(Offset offset) const;
    /// In front of the line's break.
    Offset lineEnd(Offset offset) const;
    /// The line of `offset` with its break.
    Range lineAt(Offset offset) const;

  private:
    enum class Kind { Word, Blank, Other, Break };
    Kind kindOf(char byte) const;
    Kind kindBehind(Offset offset) const;
    Kind kindBefore(Offset offset) const { return kindOf(text_.at(offset - 1)); }
    Offset endOfRun(Offset from, Kind kind) const;
    Offset startOfRun(Offset from, Kind kind) const;

    const Rope& text_;
    const CharacterTable& characters_;
};

}  // namespace brindlex
