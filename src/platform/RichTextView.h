#pragma once

#include <QAbstractScrollArea>
#include <QEvent>
#include <QPixmap>
#include <QRegion>
#include <functional>
#include <memory>
#include <optional>

#include "platform/CodePage.h"
#include "platform/ColorValue.h"
#include "platform/text/RichTextBox.h"

class QPagedPaintDevice;
class QPainter;

namespace brindlex {

class AccessibleEvents;
class CaretActions;
class CaretBlink;
class InputMethod;
class KeyInput;
class LineLayouts;
class LineStyle;
class MouseSelection;
class Scrolling;
class ShownLines;
class TextDragDrop;
struct LineSelection;
struct Preedit;

/// A RichTextBox on the screen. It lays out only the lines that show, keeps the layouts of lines
/// that did not change and repaints only the lines that did.
///
/// Keys and the mouse come out as the events on... below, then act on the box. Their handlers may
/// do anything but destroy the view. KeyCode is a virtual key code (13 Enter, 65 A ...), Shift a
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
    /// A file was dropped; it is opened by whoever listens, never inserted. Raised when the drop is
    /// over, so that nobody waits for what the handler does.
    std::function<void(const QString& path)> onFileDropped;

    // --- Properties of the product's interface -------------------------------------------------
    /// Kept; the view has no menu of its own.
    bool AutoVerbMenu() const;
    void SetAutoVerbMenu(bool on);
    ColorValue BackColor() const;
    void SetBackColor(ColorValue color);
    /// 0 none, 1 a single border.
    Long BorderStyle() const;
    void SetBorderStyle(Long style);
    /// Twips between a bullet and its text.
    double BulletIndent() const;
    void SetBulletIndent(double twips);
    /// The path of the file last given; setting it to a path that can be read loads that file.
    QString FileName() const;
    void SetFileName(const QString& path);
    /// The font of all text that has none of its own. One that is not installed is replaced by a
    /// fixed-pitch one on the screen; Font() still gives what was set.
    QFont Font() const;
    void SetFont(const QFont& font);
    /// True: the selection shows only while the view has the focus.
    bool HideSelection() const;
    void SetHideSelection(bool hide);
    QPixmap MouseIcon() const;
    void SetMouseIcon(const QPixmap& icon);
    /// 0 default (the I-beam), 1 arrow, 2 cross, 3 I-beam, 11 hourglass, 99 MouseIcon ...
    Long MousePointer() const;
    void SetMousePointer(Long pointer);
    /// Twips at which lines wrap; 0 wraps at the right edge of the view, and kNoWrap or more never
    /// wraps. A line of more than 10,000 bytes never does. Lines in the sense of GetLineFromChar
    /// and its kin are those of the text, however they wrap.
    static constexpr double kNoWrap = 100'000;
    double RightMargin() const;
    void SetRightMargin(double twips);

    // --- The window messages -------------------------------------------------------------------
    /// Stops every repaint (false), or allows them again and schedules those that were held back.
    void setRedraw(bool on);
    bool redraw() const;
    /// Repaints at once what changed since the last painting, unless redraw is off.
    void Refresh();
    /// Scrolls by whole lines relative to the present first visible line, cut at both ends.
    void lineScroll(Long lines);
    /// The same by display rows, of which a wrapped line has several.
    void rowScroll(Long rows);
    /// The top left pixel of a character in the viewport; it may lie outside what shows. An offset
    /// past the end means the end. Settles.
    QPoint posFromChar(Long offset);

    /// Loads a file: type 0 rich text (plain text if it is none), 1 plain text. False, and nothing
    /// changed, when it cannot be read.
    bool LoadFile(const QString& path, int type);
    /// Saves the text: 0 rich text, 1 plain text. False when it could not be written whole.
    bool SaveFile(const QString& path, int type) const;
    /// Prints the selection (the whole text when nothing is selected) onto a paged device, with a
    /// margin of an inch, as many pages as it takes.
    void SelPrint(QPagedPaintDevice& device) const;

    // --- Geometry for input and accessibility; pixels of the viewport ----------------------------
    // What tells places settles: a caret that moved comes into view first (Scrolling).
    /// The position nearest to a point.
    Offset positionAt(QPoint point);
    /// Whether a point lies on a selected character.
    bool isOnSelection(QPoint point);
    /// The caret's bar.
    QRect caretRect();
    QRect characterRect(Offset offset);
    /// The position one display row (`rows` of them, negative: up) away at the horizontal place
    /// `x`; the first or last row when there are not so many.
    Offset positionRowsAway(Offset from, int rows, int x);
    /// Whole rows that fit in the viewport, at least 1.
    int rowsPerPage() const;
    LineIndex firstVisibleLine();
    /// Scrolls as little as it takes to show the caret, when the view settles next. An edit does,
    /// and a move of the caret, unless redraw is off or all becomes selected.
    void ensureCaretVisible();
    /// The same as after an edit or a move: who selects all stays where he reads.
    void followCaret();
    /// Overwrite mode shows a block caret.
    void setOverwriteMode(bool on);
    bool overwriteMode() const;
    /// Shows a text at the caret that is not in the box yet; an empty one takes it away.
    void setPreedit(Preedit preedit);
    QString preedit() const;
    /// Hands the focus on to the next widget of the window, or the one before. Tab does not: it
    /// belongs to the text.
    void moveFocus(bool forward);
    /// Puts a text that is being composed into the box, as a loss of the focus does.
    void commitComposition();
    /// Shows where a drag would drop; unset hides it.
    void setDropCaret(std::optional<Offset> offset);

    /// How many lines were laid out so far; for tests and benchmarks.
    std::size_t layoutsMade() const;

    /// Settles, though the toolkit has it const.
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
    bool focusNextPrevChild(bool next) override;

  private:
    void textChanged(const TextEdit& edit) override;
    void formatChanged(Range range) override;
    void selectionChanged() override;

    // --- Keeping the screen in step -------------------------------------------------------------
    static QEvent::Type syncEvent();
    /// Something that shows changed: a sync becomes due.
    void changed();
    /// Brings scroll bars and screen in step with the box; repaints what differs.
    void sync();
    /// Takes over widths and resolution from the widget.
    void fitStyle();
    void appearanceChanged();
    void focusChanged();
    bool allSelected() const;
    /// Makes a selection of all the primary one. What code selects is not the user's choice, but
    /// for Select All of the menu; not at each step of an operation with redraw off.
    void offerSelectAll();
    ShownLines linesToShow() const;
    void updateCarets(const ShownLines& lines);

    // --- Painting and places --------------------------------------------------------------------
    void paintLines(QPainter& painter, const QRegion& region) const;
    void paintCarets(QPainter& painter) const;
    LineSelection selectionIn(LineIndex line, Range content) const;
    bool highlights() const;
    QPalette::ColorGroup highlightGroup() const;
    bool caretShows() const;
    bool hasBlockCaret() const;
    QRectF placeRect(Offset offset) const;
    QRect caretRectAt(Offset offset) const;
    qreal viewHeight() const;

    const CodePage& codePage_;
    RichTextBox box_;
    std::unique_ptr<LineStyle> style_;
    std::unique_ptr<LineLayouts> layouts_;
    std::unique_ptr<Scrolling> scrolling_;
    std::unique_ptr<ShownLines> shown_;  ///< what was last given to the screen
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
    QRegion stale_;            ///< may look otherwise on the screen than shown_ has it
    Offset lastCaret_;
    QRect shownCaret_;
    QRect shownDropCaret_;
    std::optional<Offset> dropCaret_;
    bool overwrite_ = false;

    bool autoVerbMenu_ = false;
    ColorValue backColor_{0x80000005};
    double bulletIndent_ = 0;
    QString fileName_;
    std::optional<QFont> font_;
    bool hideSelection_ = true;
    QPixmap mouseIcon_;
    Long mousePointer_ = 0;
    double rightMargin_ = 0;
};

}  // namespace brindlex
