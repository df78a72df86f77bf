#pragma once

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPixmap>
#include <QRegion>
#include <functional>
#include <memory>
#include <optional>

#include "system/CodePage.h"
#include "system/ColorValue.h"
#include "text/RichTextBox.h"

class QPagedPaintDevice;
class QPainter;

namespace brindlex {

class AccessibleEvents;
class CaretActions;
class CaretBlink;
class InputMethod;
class KeyInput;
class LayoutContext;
class LineLayouts;
class MouseSelection;
class Scrolling;
class ShownLines;
class TextDragDrop;
struct LineSelection;
struct Preedit;

/// A RichTextBox on the screen. It lays out only the lines that show, keeps the layouts of lines
/// that did not change and repaints only the lines that did.
///
/// Keys and the mouse raise the events on... below, then act on the box. The handlers may do
/// anything but destroy the view. KeyCode is a virtual key code (13 Enter, 65 A ...), Shift a
/// sum of 1 Shift, 2 Ctrl, 4 Alt, KeyAscii a byte of the code page (or a control code, 26 for
/// Ctrl+Z), Button 1 left, 2 right, 4 middle; x and y are in twips from the top left corner. A
/// handler that sets KeyCode or KeyAscii to 0 keeps the view from acting on the key; another
/// KeyAscii is inserted in its place.
class RichTextView : public QAbstractScrollArea, private RichTextObserver {
  public:
    explicit RichTextView(QWidget* parent = nullptr, const CodePage& codePage = CodePage::system());
    ~RichTextView() override;

    RichTextBox& box() { return box_; }
    const RichTextBox& box() const { return box_; }
    const CodePage& codePage() const { return codePage_; }

    // --- Events --------------------------------------------------------------------------------
    std::function<void()> onClick;
    std::function<void()> onDblClick;
    std::function<void(int& keyCode, int shift)> onKeyDown;
    std::function<void(int& keyCode, int shift)> onKeyUp;
    std::function<void(int& keyAscii)> onKeyPress;
    std::function<void(int button, int shift, double x, double y)> onMouseDown;
    std::function<void(int button, int shift, double x, double y)> onMouseMove;
    std::function<void(int button, int shift, double x, double y)> onMouseUp;

    // --- Properties of the product's interface -------------------------------------------------
    ColorValue BackColor() const { return backColor_; }
    void SetBackColor(ColorValue color);
    /// 0 none, 1 a single border.
    Long BorderStyle() const;
    void SetBorderStyle(Long style);
    /// The path of the file last given; setting it to a path that can be read loads that file.
    QString FileName() const { return fileName_; }
    void SetFileName(const QString& path);
    /// The font of all text. One that is not installed is replaced by a fixed-pitch one on the
    /// screen; Font() still gives what was set.
    QFont Font() const { return font_.value_or(font()); }
    void SetFont(const QFont& font);
    /// True: the selection shows only while the view has the focus.
    bool HideSelection() const { return hideSelection_; }
    void SetHideSelection(bool hide);
    QPixmap MouseIcon() const { return mouseIcon_; }
    void SetMouseIcon(const QPixmap& icon);
    /// 0 default (the I-beam), 1 arrow, 2 cross, 3 I-beam, 11 hourglass, 99 MouseIcon ...
    Long MousePointer() const { return mousePointer_; }
    void SetMousePointer(Long pointer);

    // --- The window messages -------------------------------------------------------------------
    /// Stops all repainting (false), or allows it again and schedules what is due.
    void setRedraw(bool on);
    bool redraw() const { return redraw_; }
    /// Repaints at once what changed since the last painting, unless redraw is off.
    void Refresh();
    /// Scrolls by whole lines relative to the present first visible line, cut at both ends.
    void lineScroll(Long lines);
    /// The top left pixel of a character, from that of the viewport; it may lie outside. An offset
    /// past the end means the end. Settles (Scrolling).
    QPoint posFromChar(Long offset);

    /// Loads a file: type 0 rich text (plain text if it is none), 1 plain text. False, and nothing
    /// changed, when it cannot be read.
    bool LoadFile(const QString& path, int type);
    /// Saves the text: 0 rich text, 1 plain text. False when it could not be written whole.
    bool SaveFile(const QString& path, int type) const;
    /// Prints the selection (the whole text when nothing is selected) in its colours, on as many
    /// pages as it takes.
    void SelPrint(QPagedPaintDevice& device) const;

    // --- Geometry for input and accessibility; pixels of the viewport ----------------------------
    // Whatever tells a place settles first: a caret that moved comes into view (Scrolling).
    /// The position nearest to a point.
    Offset positionAt(QPoint point);
    /// Whether a point lies on a selected character.
    bool isOnSelection(QPoint point);
    /// The caret's bar.
    QRect caretRect();
    QRect characterRect(Offset offset);
    /// The position nearest to `x` in the line that is `lines` below (negative: above) that of
    /// `from`; in the first or last line when there are not so many.
    Offset positionLinesAway(Offset from, Long lines, int x);
    /// Whole lines that fit in the viewport, at least 1.
    Long linesPerPage() const;
    LineIndex firstVisibleLine();
    /// Scrolls as little as it takes to show the caret, when the view settles next.
    void ensureCaretVisible();
    /// The same, unless all is selected: Select All does not scroll. Edits and moves of the caret
    /// do it by themselves unless redraw is off.
    void followCaret();
    /// Overwrite mode shows a block caret.
    void setOverwriteMode(bool on);
    bool overwriteMode() const { return overwrite_; }
    /// Shows a text at the caret that is not in the box yet; an empty one takes it away.
    void setPreedit(Preedit preedit);
    QString preedit() const;
    /// An input method composes a text, also while the part of it that is done is typed.
    bool isComposing() const;
    /// Inserts a text that is being composed as it stands, as a loss of the focus does.
    void commitComposition();
    /// Another widget covers the heights [top, end) of the viewport; none when they are equal. The
    /// caret is kept clear of it, and the end of the text can be scrolled up to its top.
    void setCover(int top, int end);
    /// Shows where a drag would drop; unset hides it.
    void setDropCaret(std::optional<Offset> offset);

    /// Settles, too: the toolkit's const notwithstanding.
    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;
    QSize sizeHint() const override;

  protected:
    bool event(QEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    /// Tab belongs to the text.
    bool focusNextPrevChild(bool) override { return false; }

  private:
    void textChanged(const TextEdit& edit) override;
    void formatChanged(Range range) override;
    void selectionChanged() override;

    // --- Keeping the screen in step -------------------------------------------------------------
    static QEvent::Type syncEvent();
    /// Something that shows changed: posts a sync.
    void changed();
    /// Brings scroll bars and screen in step with the box: schedules a repaint of what differs.
    void sync();
    void appearanceChanged();
    void focusChanged();
    bool allSelected() const;
    /// Offers the whole text as primary selection when all is selected, also by code: the menu's
    /// Select All is code. Otherwise what code selects is not offered.
    void offerSelectAll();
    ShownLines linesToShow() const;
    void updateCarets();

    // --- Painting and places --------------------------------------------------------------------
    void paintLines(QPainter& painter, const QRegion& region) const;
    void paintCarets(QPainter& painter) const;
    LineSelection selectionIn(LineIndex line, Range content) const;
    bool highlights() const;
    QPalette::ColorGroup highlightGroup() const;
    bool caretShows() const;
    bool hasBlockCaret() const;
    QRect caretRectAt(Offset offset) const;
    Offset positionIn(LineIndex line, int x);

    const CodePage& codePage_;
    RichTextBox box_;
    std::unique_ptr<LayoutContext> context_;
    std::unique_ptr<LineLayouts> layouts_;
    std::unique_ptr<Scrolling> scrolling_;
    std::unique_ptr<ShownLines> shown_;  ///< what the last sync gave to the screen
    std::unique_ptr<CaretBlink> blink_;
    std::unique_ptr<CaretActions> actions_;
    std::unique_ptr<KeyInput> keys_;
    std::unique_ptr<InputMethod> inputMethod_;
    std::unique_ptr<TextDragDrop> dragDrop_;
    std::unique_ptr<MouseSelection> mouse_;
    std::unique_ptr<AccessibleEvents> accessible_;

    bool redraw_ = true;
    bool pending_ = false;     ///< something changed since the last sync
    bool syncPosted_ = false;  ///< and an event for it is on its way
    QRegion stale_;            ///< where the screen may differ from shown_
    Offset lastCaret_;
    QRect shownCaret_;
    QRect shownDropCaret_;
    std::optional<Offset> dropCaret_;
    bool overwrite_ = false;

    ColorValue backColor_{0x80000005};
    QString fileName_;
    std::optional<QFont> font_;
    bool hideSelection_ = true;
    QPixmap mouseIcon_;
    Long mousePointer_ = 0;
};

}  // namespace brindlex
