#pragma once

#include <array>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "editor/RichTextHost.h"
#include "editor/SyntaxLists.h"
#include "editor/WordClass.h"
#include "platform/PropertyBag.h"

namespace brindlex {

/// The commands of the main window that the editor control runs for keys of its own. One that is
/// not set does nothing.
struct EditorCommands {
    std::function<void()> undo;
    std::function<void()> copy;
    std::function<void()> paste;
    std::function<void()> cut;
};

/// The script editor: one rich text view over the control's area within its margins, the lists and
/// colours of the syntax, and the colouring of the text after each change.
///
/// Positions are 0-based offsets into Text, in which a line break counts two. Texts are bytes of
/// the system's code page.
///
/// On every edit the host hears SelChange, then Change, and then the control colours the lines that
/// the edit touched. Colouring leaves selection and caret alone and raises no event. Handlers may
/// edit the text, assign Text and call ReColorize; a handler of Change that does so on every Change
/// has to keep itself from an endless descent.
class KELP_RTBSyntax : public RichTextHost {
  public:
    explicit KELP_RTBSyntax(QWidget* parent = nullptr);

    void setCommands(EditorCommands commands) { commands_ = std::move(commands); }

    // --- Events, in the order of declaration ---------------------------------------------------
    std::function<void()> onChange;
    std::function<void()> onClick;
    std::function<void()> onDblClick;
    /// Not raised for Ctrl+Z, C, V and X. A Tab (9) that the handler leaves becomes a tab character
    /// in place of the selection.
    std::function<void(int& KeyCode, int Shift)> onKeyDown;
    std::function<void(int& KeyCode, int Shift)> onKeyUp;
    std::function<void(int& KeyAscii)> onKeyPress;
    std::function<void(int Button, int Shift, double x, double y)> onMouseDown;
    std::function<void(int Button, int Shift, double x, double y)> onMouseMove;
    std::function<void(int Button, int Shift, double x, double y)> onMouseUp;
    std::function<void()> onSelChange;

    // --- State ---------------------------------------------------------------------------------
    /// True while the control colours and while Text or TextRTF are being assigned: no colouring
    /// begins then.
    bool Colorizing() const { return colorizing_; }
    /// SelStart before the last change of the selection, and at it. Both stand at the caret after a
    /// colouring.
    Long PrevSelStart() const { return prevSelStart_; }
    Long CurSelStart() const { return curSelStart_; }
    /// Lengths of the marks as of the last colouring.
    int CommentCharLen() const { return commentCharLen_; }
    int StringCharLen() const { return stringCharLen_; }

    // --- Colours: 0x00BBGGRR or a system colour; shown at the next colouring --------------------
    Long ColorOf_Comments() const { return colors_[ClassComment]; }
    void SetColorOf_Comments(Long color) { colors_[ClassComment] = color; }
    Long ColorOf_ReservedWords() const { return colors_[ClassReserved]; }
    void SetColorOf_ReservedWords(Long color) { colors_[ClassReserved] = color; }
    Long ColorOf_ProceduresORFunctions() const { return colors_[ClassProcedure]; }
    void SetColorOf_ProceduresORFunctions(Long color) { colors_[ClassProcedure] = color; }
    Long ColorOf_LogicalOperators() const { return colors_[ClassLogical]; }
    void SetColorOf_LogicalOperators(Long color) { colors_[ClassLogical] = color; }
    Long ColorOf_Operators() const { return colors_[ClassOperator]; }
    void SetColorOf_Operators(Long color) { colors_[ClassOperator] = color; }
    Long ColorOf_Objects() const { return colors_[ClassObject]; }
    void SetColorOf_Objects(Long color) { colors_[ClassObject] = color; }
    Long ColorOf_Constants() const { return colors_[ClassConstant]; }
    void SetColorOf_Constants(Long color) { colors_[ClassConstant] = color; }
    Long ColorOf_Strings() const { return colors_[ClassString]; }
    void SetColorOf_Strings(Long color) { colors_[ClassString] = color; }
    Long ColorOf_Normal() const { return colors_[ClassNormal]; }
    void SetColorOf_Normal(Long color) { colors_[ClassNormal] = color; }

    // --- Syntax. In a word list each entry stands between two delimiters ------------------------
    const std::string& Syntax_ReservedWords() const { return lists_.list(ClassReserved); }
    void SetSyntax_ReservedWords(std::string list) { setList(ClassReserved, std::move(list)); }
    const std::string& Syntax_ProceduresORFunctions() const { return lists_.list(ClassProcedure); }
    void SetSyntax_ProceduresORFunctions(std::string list) {
        setList(ClassProcedure, std::move(list));
    }
    const std::string& Syntax_Delimiter() const { return lists_.delimiter(); }
    void SetSyntax_Delimiter(std::string delimiter) { lists_.setDelimiter(std::move(delimiter)); }
    const std::string& Syntax_LogicalOperators() const { return lists_.list(ClassLogical); }
    void SetSyntax_LogicalOperators(std::string list) { setList(ClassLogical, std::move(list)); }
    const std::string& Syntax_Operators() const { return lists_.list(ClassOperator); }
    void SetSyntax_Operators(std::string list) { setList(ClassOperator, std::move(list)); }
    const std::string& Syntax_Objects() const { return lists_.list(ClassObject); }
    void SetSyntax_Objects(std::string list) { setList(ClassObject, std::move(list)); }
    const std::string& Syntax_Constants() const { return lists_.list(ClassConstant); }
    void SetSyntax_Constants(std::string list) { setList(ClassConstant, std::move(list)); }
    /// The mark that opens and closes a string, of any length.
    const std::string& Syntax_StringChar() const { return lists_.stringMark(); }
    void SetSyntax_StringChar(std::string mark) { lists_.setStringMark(std::move(mark)); }
    /// The mark that begins a comment, of any length. It is searched for words like a word list.
    const std::string& Syntax_CommentChar() const { return lists_.list(ClassComment); }
    void SetSyntax_CommentChar(std::string mark) { setList(ClassComment, std::move(mark)); }

    /// The class of a word by its spelling alone.
    WordClass ClassifyWord(std::string_view word) const {
        return lists_.classifier().classOf(word);
    }

    // --- Values that are stored and nothing more -------------------------------------------------
    Long ForeColor() const { return foreColor_; }
    void SetForeColor(Long color) { foreColor_ = color; }
    Long hWnd() const { return hWnd_; }
    void SethWnd(Long value) { hWnd_ = value; }

    // --- Text and colouring ----------------------------------------------------------------------
    /// Replaces the text and colours it. Raises Change twice, for the text and for the colouring.
    void SetText(std::string_view text);
    /// The same with rich text. False when it is damaged: the text stays then, is coloured anew all
    /// the same, and Change is raised for that.
    bool SetTextRTF(std::string_view rtf);
    /// Colours the whole text anew and raises Change before it does.
    void ReColorize();
    void SetFocus() { rtb().setFocus(); }

    // --- Lines -----------------------------------------------------------------------------------
    Long GetLineCount() const;
    /// Scrolls by whole lines relative to the first one that shows.
    void LineScroll(Long Lines);
    /// The caret's line, 1-based.
    Long GetCurrentLine() const;
    /// The text of the caret's line without its line break.
    std::string GetLineText() const;
    /// The caret's column in characters, 0-based.
    Long GetColumn() const;
    /// The signed 16-bit halves of a 32-bit number.
    static int LoWord(Long DWord);
    static int HiWord(Long DWord);
    /// The pixel position of a character in the view, x in the low word and y in the high word. A
    /// place beyond 16 bits is cut to the nearest that fits.
    Long GetPosFromChar(Long lSelStart);
    /// The offset of a 0-based line's first character, minus 1; -2 for a line that does not exist.
    Long GetCharNr(Long lngLineNumber) const;

    // --- Blocks ----------------------------------------------------------------------------------
    // Each edit goes through the selection and raises its events; lines are looked up again after
    // it, so that a handler may edit. An operation ends quietly at a line that a handler took away.
    // Nothing is painted in between. A cost of O(log n) for each line beside that of its edits.
    //
    // MultiTab and BackTab work on the lines of the selected characters: a selection that ends at
    // the start of a line leaves that line out. CommentBlock and UnCommentBlock take it in.

    /// On Enter (13), unless the caret is at 0: a line break and the indent of the caret's line in
    /// place of the selection. A caret at column 0 takes the indent of the line above; within an
    /// indent, the blank or tab behind the caret counts too. The key stays for the caller to
    /// consume.
    void AutoIndent(int intKeyCode);
    /// On "{" (123), unless the caret is at 0: braces, an empty line between them that is a tab
    /// deeper than the tabs in front of the selection, and the caret at its end. Nothing is
    /// replaced. The key stays for the caller to consume.
    void BlockIndent(int intKeyCode);
    /// A tab at the start of each line, and whole lines selected; within one line a tab in place of
    /// the selection.
    void MultiTab();
    /// Takes a tab or blank from the start of each line and leaves whole lines selected if the last
    /// one lost its own; else the caret is at the start of the last line. A single line comes back
    /// selected with the CR of its break, when there is one and the caret was not at column 0. Does
    /// nothing with the caret at 0 and nothing selected.
    void BackTab();
    /// "//" in front of each line. The selection keeps its start and grows by the marks.
    void CommentBlock();
    /// Takes "//" from each line that begins with it, blanks and tabs aside. The caret goes to
    /// where the selection began.
    void UnCommentBlock();

    // --- Stored properties ----------------------------------------------------------------------
    /// Gives the control's own fields, not the view's, their first values.
    void InitProperties();
    void ReadProperties(const PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

  protected:
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void connectView();
    void setList(WordClass wordClass, std::string list) {
        lists_.setList(wordClass, std::move(list));
    }

    template <typename... Parameters, typename... Arguments>
    static void notifyHost(const std::function<void(Parameters...)>& event,
                           Arguments&&... arguments) {
        if (event) event(std::forward<Arguments>(arguments)...);
    }

    void rtb_Change();
    void rtb_SelChange();
    void rtb_KeyDown(int& KeyCode, int Shift);
    void rtb_KeyPress(int& KeyAscii);

    Range changedLines() const;
    void colorize(Range lines);
    void ColorizeBlock(Range lines);
    ClassColors classColors() const;

    EditorCommands commands_;
    bool colorizing_ = false;
    Long prevSelStart_ = 0;
    Long curSelStart_ = 0;
    std::array<Long, kWordClassCount> colors_{};
    SyntaxLists lists_{rtb().codePage().characters()};
    Long foreColor_ = 0;
    Long hWnd_ = 0;
    int commentCharLen_ = 0;
    int stringCharLen_ = 0;
};

}  // namespace brindlex
