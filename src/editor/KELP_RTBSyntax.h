#pragma once

#include <array>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "editor/LineColorizer.h"
#include "editor/RichTextHost.h"
#include "editor/WordLookup.h"
#include "system/PropertyBag.h"

namespace brindlex {

/// The commands of the main window behind Ctrl+Z, C, V and X. One that is not set does nothing.
struct EditorCommands {
    std::function<void()> undo;
    std::function<void()> copy;
    std::function<void()> paste;
    std::function<void()> cut;
};

/// The script editor: one rich text view over the whole control, word lists and colours, and the
/// colouring of the text after each change.
///
/// Positions are 0-based offsets into Text, in which a line break counts two. Texts are bytes of
/// the system's code page.
///
/// Every edit raises SelChange, then Change, and then the control colours the lines that the edit
/// touched. Colouring leaves selection and caret alone and raises no event. Handlers may edit the
/// text, assign Text and call ReColorize; a handler of Change that does so must guard against its
/// own recursion. When it edits further up and leaves the caret there, the lines of the first edit
/// keep their colours.
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
    /// SelStart before and after the last change of the selection. A colouring sets both to the
    /// present SelStart.
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
    const std::string& Syntax_ReservedWords() const { return syntax_.lists[ClassReserved]; }
    void SetSyntax_ReservedWords(std::string list) { setList(ClassReserved, std::move(list)); }
    const std::string& Syntax_ProceduresORFunctions() const {
        return syntax_.lists[ClassProcedure];
    }
    void SetSyntax_ProceduresORFunctions(std::string list) {
        setList(ClassProcedure, std::move(list));
    }
    const std::string& Syntax_Delimiter() const { return syntax_.delimiter; }
    void SetSyntax_Delimiter(std::string delimiter) {
        setSyntax(syntax_.delimiter, std::move(delimiter));
    }
    const std::string& Syntax_LogicalOperators() const { return syntax_.lists[ClassLogical]; }
    void SetSyntax_LogicalOperators(std::string list) { setList(ClassLogical, std::move(list)); }
    const std::string& Syntax_Operators() const { return syntax_.lists[ClassOperator]; }
    void SetSyntax_Operators(std::string list) { setList(ClassOperator, std::move(list)); }
    const std::string& Syntax_Objects() const { return syntax_.lists[ClassObject]; }
    void SetSyntax_Objects(std::string list) { setList(ClassObject, std::move(list)); }
    const std::string& Syntax_Constants() const { return syntax_.lists[ClassConstant]; }
    void SetSyntax_Constants(std::string list) { setList(ClassConstant, std::move(list)); }
    /// The mark that opens and closes a string, of any length.
    const std::string& Syntax_StringChar() const { return syntax_.stringMark; }
    void SetSyntax_StringChar(std::string mark) { setSyntax(syntax_.stringMark, std::move(mark)); }
    /// The mark that begins a comment, of any length. It is searched for words like a word list.
    const std::string& Syntax_CommentChar() const { return syntax_.commentMark(); }
    void SetSyntax_CommentChar(std::string mark) { setList(ClassComment, std::move(mark)); }

    /// The class of a word by its spelling alone.
    WordClass ClassifyWord(std::string_view word) const { return words().classOf(word); }

    // --- Values that are stored and nothing more -------------------------------------------------
    Long ForeColor() const { return foreColor_; }
    void SetForeColor(Long color) { foreColor_ = color; }
    Long hWnd() const { return hWnd_; }
    void SethWnd(Long value) { hWnd_ = value; }

    // --- Text and colouring ----------------------------------------------------------------------
    /// Replaces the text and colours it. Raises Change twice, for the text and for the colouring.
    void SetText(const Rope& text);
    void SetText(std::string_view text) { SetText(Rope(text)); }
    /// The same with rich text. False when it is damaged: then the text stays, but it is still
    /// coloured anew, and Change is raised once for that.
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
    // Each edit goes through the selection and raises its events. A handler may edit: lines are
    // looked up again after each edit, and an operation ends quietly at a line that is gone.
    // Nothing is painted in between. Cost: O(log n) for each line, and its edits.
    //
    // MultiTab and BackTab work on the lines of the selected characters: a selection that ends at
    // the start of a line leaves that line out. CommentBlock and UnCommentBlock take it in.

    /// On Enter (13), unless the caret is at 0: puts a line break and the indent of the caret's
    /// line in place of the selection. A caret at column 0 takes the indent of the line above;
    /// within an indent, the blank or tab behind the caret counts too. The key stays for the caller
    /// to consume.
    void AutoIndent(int intKeyCode);
    /// On "{" (123), unless the caret is at 0: puts braces in front of the selection, with an empty
    /// line between them that is one tab deeper than the tabs before the caret, and the caret at
    /// the end of it. The key stays for the caller to consume.
    void BlockIndent(int intKeyCode);
    /// Puts a tab at the start of each line and selects the whole lines; within one line, puts a
    /// tab in place of the selection.
    void MultiTab();
    /// Removes one tab or blank from the start of each line. Of several lines, whole lines are
    /// selected afterwards if the last line lost one; else the caret is at the start of the last
    /// line. A single line that lost one is selected up to and with the CR of its break, unless it
    /// has no break or the caret was at column 0. Does nothing with the caret at 0 and nothing
    /// selected.
    void BackTab();
    /// Puts "//" in front of each line. The selection keeps its start and grows by the marks.
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
        setSyntax(syntax_.lists[wordClass], std::move(list));
    }
    void setSyntax(std::string& part, std::string value) {
        part = std::move(value);
        words_.reset();
    }
    /// Made anew on the first use after a change of the syntax.
    const WordLookup& words() const;

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
    Syntax syntax_;
    mutable std::optional<WordLookup> words_;
    Long foreColor_ = 0;
    Long hWnd_ = 0;
    int commentCharLen_ = 0;
    int stringCharLen_ = 0;
};

}  // namespace brindlex
