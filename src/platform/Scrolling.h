#pragma once

#include <QPointF>
#include <functional>

#include "platform/TextRows.h"

class QAbstractScrollArea;
class QEvent;
class QScrollEvent;
class QScrollPrepareEvent;
class QWheelEvent;

namespace brindlex {

/// Which part of a text a view shows: the row at the top, the scroll bars, the wheel and touch.
/// Places are in pixels of the viewport.
///
/// A caret that moved is to come into view, but it may move many times before anybody looks, and to
/// find its place costs layouts. So `bringCaret` only notes it, and the view *settles* later:
/// before it answers what stands where on the screen or scrolls on from there, and otherwise once,
/// from the event loop, before it paints (`update`).
class Scrolling {
  public:
    /// Pixels between the edges of the view and the text.
    static constexpr qreal kMargin = 2;

    /// `scrolled` is called when another part of the text is to show, except by `settle` and
    /// `update`. All but that outlive this object.
    Scrolling(QAbstractScrollArea& area, const RichTextBox& box, const LineStyle& style,
              LineLayouts& layouts, std::function<void()> scrolled);

    /// The rows from the top of the view, as of when it last settled.
    const TextRows& rows() const { return rows_; }
    /// Where the text's left edge stands; negative when scrolled to the right.
    qreal textX() const;
    /// The width that is left for text.
    qreal textWidth() const;
    /// The caret's bar, which the text leaves free at its right.
    int caretWidth() const;
    /// Whole rows that fit, at least 1.
    int rowsPerPage() const;

    /// The caret comes into view when the view settles next, by as little scrolling as it takes.
    void bringCaret() { caretWanted_ = true; }
    /// It need not, after all.
    void leaveCaret() { caretWanted_ = false; }
    void settle();
    /// Settles, and brings the scroll bars in step with the text.
    void update();

    /// By whole lines from the first visible one, cut at both ends.
    void byLines(Long lines);
    /// The same by display rows.
    void byRows(Long rows);
    /// The user, or code, moved a scroll bar: by `dy` the vertical one.
    void barsMoved(int dy);
    void wheel(QWheelEvent& event);
    /// True when the event was one of scrolling by touch.
    bool touch(QEvent& event);

    void textChanged(const TextEdit& edit);
    /// Lines have other rows than before.
    void rowsChanged() { rows_.setTop(rows_.top()); }
    /// No line is as wide as it was; their widths are seen anew.
    void forgetWidths() { contentWidth_ = 0; }

  private:
    void setTop(RowPlace top);
    void clampTop();
    void scrollToColumn(qreal x, qreal width);
    void updateHorizontalBar();
    void updateVerticalBar(bool endShows);
    void prepareTouch(QScrollPrepareEvent& event) const;
    void touchTo(QScrollEvent& event);
    qreal height() const;

    QAbstractScrollArea& area_;
    const RichTextBox& box_;
    const LineStyle& style_;
    TextRows rows_;
    std::function<void()> scrolled_;
    bool caretWanted_ = false;
    bool updating_ = false;   // the bars follow the text, not the text the bars
    qreal contentWidth_ = 0;  // of the widest line seen
    QPointF wheel_;           // turned, but less than a row or a pixel
};

}  // namespace brindlex
