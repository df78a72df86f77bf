#pragma once

#include <QPointF>
#include <QRectF>
#include <functional>

#include "text/RichTextBox.h"
#include "view/layout/LineLayouts.h"

class QAbstractScrollArea;
class QEvent;
class QScrollEvent;
class QScrollPrepareEvent;
class QWheelEvent;

namespace brindlex {

/// Which part of a text a view shows: the line at the top, the scroll bars, the wheel and touch.
/// Places are in logical pixels of the viewport; all lines are equally high.
///
/// A caret that moved has to come into view, but it may move many times before anybody looks, and
/// to find its place takes a layout. So `bringCaret` only notes it, and the view *settles* later:
/// before it answers what stands where on the screen or scrolls on from there, and otherwise once,
/// from the event loop, before it paints (`update`).
class Scrolling {
  public:
    /// Pixels between the edges of the view and the text.
    static constexpr qreal kMargin = 2;

    /// `scrolled` is called when another part of the text is to show, but not from `settle` and
    /// `update`. The other four outlive this object.
    Scrolling(QAbstractScrollArea& area, const RichTextBox& box, const LayoutContext& context,
              LineLayouts& layouts, std::function<void()> scrolled);
    /// To be called once, when the whole view exists: the toolkit sends it events from here on.
    void start();
    /// See RichTextView::setCover. False when the cover is there already.
    bool setCover(int top, int end);

    // --- Geometry, as of when the view last settled ---------------------------------------------
    LineIndex topLine() const { return top_; }
    /// The top edge of a line, also of one outside of the viewport.
    qreal yOf(LineIndex line) const;
    /// The line that covers a height, cut to those of which something shows.
    LineIndex lineAt(qreal y) const;
    /// The line below the last one of which something shows.
    LineIndex endOfShown() const;
    /// Where lines begin; left of the viewport when scrolled to the right.
    qreal textX() const;
    /// The character at an offset, in a usual width where there is none; it may lie outside of the
    /// viewport. At the caret, while a text is being composed: the caret's place in that text.
    QRectF rectOf(Offset offset) const;
    /// The caret's bar, which the text leaves free at its right.
    int caretWidth() const;
    /// Whole lines that fit above the cover, at least 1.
    std::size_t linesPerPage() const;

    // --- Bringing the caret into view -----------------------------------------------------------
    /// The caret comes into view when the view settles next, by as little scrolling as it takes.
    void bringCaret() { caretWanted_ = true; }
    void dropPendingCaret() { caretWanted_ = false; }
    void settle();
    /// Settles, and brings the scroll bars in step with the text.
    void update();

    // --- Scrolling by the user or by code -------------------------------------------------------
    /// By whole lines from the present top line, cut at both ends.
    void byLines(Long lines);
    /// A scroll bar was moved, by `dy` the vertical one.
    void barsMoved(int dy);
    void wheel(QWheelEvent& event);
    /// True when the event was one of scrolling by touch.
    bool touch(QEvent& event);

    /// Keeps the same text at the top.
    void textChanged(const TextEdit& edit);
    /// No line is as wide as it was; their widths are seen anew.
    void forgetWidths() { contentWidth_ = 0; }

  private:
    std::size_t lineCount() const { return box_.rope().breakCount() + 1; }
    /// SelIndent in pixels: one value for the whole text.
    int indent() const;
    void setTop(std::size_t line);
    void scrollToColumn(qreal x, qreal width);
    void updateHorizontalBar();
    void updateVerticalBar();
    void prepareTouch(QScrollPrepareEvent& event) const;
    void touchTo(QScrollEvent& event);
    qreal height() const;
    qreal heightAboveCover() const;
    std::size_t linesIn(qreal height) const;
    bool isCovered(LineIndex line) const;

    QAbstractScrollArea& area_;
    const RichTextBox& box_;
    const LayoutContext& context_;
    LineLayouts& layouts_;
    std::function<void()> scrolled_;
    LineIndex top_;
    int coverTop_ = 0;
    int coverEnd_ = 0;
    bool caretWanted_ = false;
    bool updating_ = false;   // the bars follow the text, not the text the bars
    qreal contentWidth_ = 0;  // of the widest line seen, from where lines begin
    QPointF wheel_;           // turned, but less than a line or a pixel
};

}  // namespace brindlex
