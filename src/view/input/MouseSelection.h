#pragma once

#include <QElapsedTimer>
#include <QPoint>

#include "text/Units.h"
#include "view/input/AutoScroll.h"

class QMouseEvent;

namespace brindlex {

class CaretActions;
class RichTextView;
class TextDragDrop;

/// The mouse of a RichTextView: raises its events and selects by characters, by words (double
/// click) or by lines (triple click). A press on the selection may become a drag.
class MouseSelection {
  public:
    /// All three outlive this object.
    MouseSelection(RichTextView& view, CaretActions& actions, TextDragDrop& dragDrop);

    void press(QMouseEvent& event);
    void move(QMouseEvent& event);
    void release(QMouseEvent& event);
    void doubleClick(QMouseEvent& event);

  private:
    enum class Unit { Character, Word, Line };
    enum class Held {
        Nothing,
        Selecting,
        OnSelection,  ///< pressed there: a drag, or a click that collapses the selection
    };

    void pressLeft(const QMouseEvent& event);
    bool isThirdClick(QPoint at);
    void letGo();
    void begin(Unit unit, QPoint at);
    void extendTo(QPoint at);
    void startDrag();
    void pastePrimary(QPoint at);
    Range unitAt(QPoint at) const;
    Offset characterUnder(QPoint at) const;

    RichTextView& view_;
    CaretActions& actions_;
    TextDragDrop& dragDrop_;
    AutoScroll scroll_;
    QElapsedTimer sinceDouble_;  // since the double click at pressedAt_; else invalid
    Held held_ = Held::Nothing;
    Unit unit_ = Unit::Character;
    Range first_;  // the unit where selecting began; it stays selected
    QPoint pressedAt_;
    bool clicking_ = false;  // the left button is down and its release makes a click
};

}  // namespace brindlex
