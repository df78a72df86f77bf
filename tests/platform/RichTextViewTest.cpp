#include "platform/RichTextView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPaintEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>

#include "support/TempFolder.h"
#include "text/Random.h"

namespace brindlex {
namespace {

using test::Random;

/// Notes what of a widget is painted.
class Paintings : public QObject {
  public:
    explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            ++count;
            region += static_cast<QPaintEvent*>(event)->region();
        }
        return false;
    }
    void forget() {
        count = 0;
        region = QRegion();
    }
    int count = 0;
    QRegion region;
};

class RichTextViewTest : public testing::Test {
  protected:
    RichTextViewTest() {
        QApplication::setCursorFlashTime(0);
        QFont font("Courier New");
        font.setPointSizeF(9.75);
        view.SetFont(font);
        view.SetRightMargin(RichTextView::kNoWrap);
        view.SetHideSelection(false);
        view.resize(500, 300);
        view.show();
        view.setFocus();
        settle();
    }

    void settle() {
        // a scroll bar that comes or goes makes a further round due
        for (int round = 0; round < 4; ++round) {
            view.Refresh();
            QApplication::processEvents();
        }
    }
    /// What stands on the screen, as it was painted bit by bit.
    QImage screen() {
        settle();
        return view.screen()->grabWindow(view.winId()).toImage();
    }
    /// The same, painted anew from the box.
    QImage screenPaintedAnew() {
        view.SetBackColor(view.BackColor());
        return screen();
    }
    void type(const char* text) { QTest::keyClicks(&view, text); }
    static std::string lines(int count) {
        std::string text;
        for (int line = 0; line < count; ++line) text += "line " + std::to_string(line) + "\r\n";
        return text;
    }
    Long lineCount() const { return view.box().GetLineCount(); }

    RichTextView view;
};

// --- Partial repaints ----------------------------------------------------------------------------

void changeFormat(RichTextBox& box, Random& random) {
    switch (random.below(9)) {
        case 0:
            return box.SetSelBold(random.oneIn(2));
        case 1:
            return box.SetSelUnderline(random.oneIn(2));
        case 2:
            return box.SetSelCharOffset(static_cast<Long>(random.below(3)) * 80);
        case 3:
            return box.SetSelBullet(random.oneIn(2));
        case 4:
            return box.SetSelIndent(static_cast<Long>(random.below(3)) * 300);
        case 5:
            return box.SetSelAlignment(static_cast<Alignment>(random.below(3)));
        case 6:
            return box.SetSelTabCount(static_cast<Long>(random.below(4)));
        default:
            return box.SetSelColor(static_cast<ColorRef>(random.below(0x1000000)));
    }
}

void changeView(RichTextView& view, Random& random) {
    switch (random.below(8)) {
        case 0:
            return view.SetRightMargin(random.oneIn(2) ? 0 : RichTextView::kNoWrap);
        case 1:
            return view.setOverwriteMode(random.oneIn(2));
        case 2:
            return view.setDropCaret(Offset(random.below(view.box().length() + 1)));
        case 3:
            return view.setDropCaret(std::nullopt);
        case 4:
            return view.setPreedit(random.oneIn(2) ? "preedit" : "", {});
        case 5:
            return view.resize(view.width() + (random.oneIn(2) ? 40 : -40), view.height());
        case 6:
            return view.horizontalScrollBar()->setValue(static_cast<int>(random.below(300)));
        default:
            return view.SetHideSelection(random.oneIn(2));
    }
}

void changeSomething(RichTextView& view, Random& random) {
    RichTextBox& box = view.box();
    const Offset begin(random.below(box.length() + 1));
    const Offset end(std::min(box.length(), begin.value() + random.below(60)));
    switch (random.below(10)) {
        case 0:
        case 1:
        case 2:
            box.userReplace({begin, end}, random.text(random.below(50), "ab cd\te\n"));
            return;
        case 3:
            return box.select(begin, end);
        case 4:
            return box.select(end, begin);
        case 5:
            box.select(begin, end);
            return changeFormat(box, random);
        case 6:
            return view.lineScroll(static_cast<Long>(random.below(9)) - 4);
        case 7:
            return view.ensureCaretVisible();
        case 8:
            return view.setRedraw(random.oneIn(3));
        default:
            return changeView(view, random);
    }
}

TEST_F(RichTextViewTest, PartialRepaintsGiveTheWholePicture) {
    for (const std::uint64_t seed : test::seeds(6)) {
        SCOPED_TRACE(seed);
        Random random(seed);
        view.box().SetText(random.text(3000, "abcdefgh\tij k\n"));
        for (int step = 0; step < 250; ++step) {
            changeSomething(view, random);
            // several changes often share one repaint
            if (!random.oneIn(3)) continue;
            if (random.oneIn(4)) view.viewport()->repaint(20, 40, 100, 33);
            view.setRedraw(true);
            const QImage partly = screen();
            const QImage anew = screenPaintedAnew();
            ASSERT_FALSE(partly.isNull());
            ASSERT_TRUE(partly == anew) << "step " << step;
        }
    }
}

TEST_F(RichTextViewTest, AKeystrokeLaysOutOneLineAndPaintsItsRow) {
    view.box().SetText(lines(200));
    view.box().SetSelStart(44);
    settle();
    Paintings paintings(*view.viewport());
    view.box().onChange = [&] {
        // what the owner does at every change
        const ColorRun run{4, 0xFF};
        view.setRedraw(false);
        view.box().colorRuns(view.box().lineContent(LineIndex(5)).begin(), std::span(&run, 1));
        view.setRedraw(true);
        view.Refresh();
    };
    const std::size_t made = view.layoutsMade();
    type("x");
    settle();
    EXPECT_LE(view.layoutsMade() - made, 2U) << "one more for the caret that comes into view";
    EXPECT_EQ(paintings.count, 1);
    EXPECT_LE(paintings.region.boundingRect().height(), view.caretRect().height() + 4);
    EXPECT_TRUE(paintings.region.contains(view.caretRect()));
    paintings.forget();
    settle();
    EXPECT_EQ(paintings.count, 0) << "nothing changed, nothing is painted";
}

TEST_F(RichTextViewTest, RedrawOffPaintsNothingAndThenWhatChanged) {
    view.box().SetText(lines(200));
    settle();
    Paintings paintings(*view.viewport());
    const QImage before = screen();
    view.setRedraw(false);
    view.box().SetSelStart(3);
    view.box().SetSelText("changed");
    view.viewport()->repaint();
    view.Refresh();
    QApplication::processEvents();
    EXPECT_EQ(view.screen()->grabWindow(view.winId()).toImage(), before);
    paintings.forget();
    view.setRedraw(true);
    QApplication::processEvents();
    EXPECT_NE(screen(), before);
    EXPECT_EQ(screen(), screenPaintedAnew());
}

// --- Places --------------------------------------------------------------------------------------

TEST_F(RichTextViewTest, PlacesAndPositionsAreEachOthersReverse) {
    for (const std::uint64_t seed : test::seeds(6)) {
        SCOPED_TRACE(seed);
        Random random(seed);
        view.SetRightMargin(random.oneIn(2) ? 0 : RichTextView::kNoWrap);
        std::string text = random.text(400, "abc\tde f\n\x01");
        text.insert(100, random.text(random.below(4) * 4000, "long\tline "));
        view.box().SetText(text);
        for (int i = 0; i < 20; ++i) {
            view.box().SetSelStart(static_cast<Long>(random.below(view.box().length() + 1)));
            view.box().SetSelLength(static_cast<Long>(random.below(20)));
            changeFormat(view.box(), random);
        }
        for (int i = 0; i < 200; ++i) {
            const Offset offset(random.below(view.box().length() + 1));
            const LineIndex line = view.box().rope().lineOf(offset);
            if (offset > view.box().lineContent(line).end()) continue;  // in a line break
            view.box().select(offset, offset);
            const QRect caret = view.caretRect();
            ASSERT_TRUE(view.viewport()->rect().contains(caret.center())) << "offset " << offset;
            const QPoint place = view.posFromChar(static_cast<Long>(offset.value()));
            ASSERT_EQ(place, caret.topLeft());
            // a tab may be narrower than a pixel
            const auto isThere = [&](Offset found) {
                const Long position = static_cast<Long>(found.value());
                return (view.posFromChar(position) - place).manhattanLength() <= 1;
            };
            ASSERT_TRUE(isThere(view.positionAt(caret.center()))) << "offset " << offset;
            ASSERT_TRUE(isThere(view.positionRowsAway(offset, 0, place.x())))
                << "offset " << offset;
        }
    }
}

TEST_F(RichTextViewTest, MovesByRowsAreCutAtBothEnds) {
    struct Case {
        double rightMargin;
        Offset from;
        int rows;
        int x;
        Offset there;
    };
    // 30 columns wrap at 100 pixels to three rows of 12, 12 and 6
    view.box().SetText("aaaaaaaaaaaabbbbbbbbbbbbcccccc\r\nsecond");
    const Case cases[] = {
        {RichTextView::kNoWrap, Offset(3), 1, 26, Offset(35)},
        {RichTextView::kNoWrap, Offset(35), -1, 26, Offset(3)},
        {RichTextView::kNoWrap, Offset(35), -100, 26, Offset(3)},
        {RichTextView::kNoWrap, Offset(3), 2'000'000'000, 400, Offset(38)},
        {1500, Offset(3), 1, 26, Offset(15)},
        {1500, Offset(3), 2, 400, Offset(30)},
        {1500, Offset(3), 3, 26, Offset(35)},
        {1500, Offset(35), -2, 26, Offset(15)},
        {1500, Offset(3), 1, 400, Offset(23)},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(testing::Message() << row.from << " by " << row.rows << " at " << row.x);
        view.SetRightMargin(row.rightMargin);
        EXPECT_EQ(view.positionRowsAway(row.from, row.rows, row.x), row.there);
    }
}

// --- Scrolling -----------------------------------------------------------------------------------

TEST_F(RichTextViewTest, ScrollsByLinesCutAtBothEnds) {
    view.box().SetText(lines(500));
    const auto scrolled = [&](Long by) {
        view.lineScroll(by);
        return static_cast<Long>(view.firstVisibleLine().value());
    };
    const Long last = lineCount() - view.rowsPerPage();
    EXPECT_EQ(scrolled(-3), 0);
    EXPECT_EQ(scrolled(7), 7);
    EXPECT_EQ(scrolled(-2), 5);
    EXPECT_EQ(scrolled(1'000'000), last);
    EXPECT_EQ(scrolled(-1), last - 1);
    settle();
    EXPECT_EQ(view.verticalScrollBar()->value(), last - 1);
    view.verticalScrollBar()->setValue(view.verticalScrollBar()->maximum());
    EXPECT_EQ(static_cast<Long>(view.firstVisibleLine().value()), last);
    view.box().SetText("short");
    EXPECT_EQ(scrolled(0), 0);
    settle();
    EXPECT_EQ(view.verticalScrollBar()->maximum(), 0);
}

TEST_F(RichTextViewTest, TheCaretComesIntoViewWhenItMovesAndRedrawIsOn) {
    view.box().SetText(lines(1000));
    view.box().SetSelStart(5000);
    EXPECT_GT(view.firstVisibleLine().value(), 100U);
    view.box().SetSelStart(0);
    EXPECT_EQ(view.firstVisibleLine().value(), 0U);
    view.setRedraw(false);
    view.box().SetSelStart(5000);
    view.setRedraw(true);
    settle();
    EXPECT_EQ(view.firstVisibleLine().value(), 0U) << "work with redraw off does not scroll";
    view.ensureCaretVisible();
    EXPECT_GT(view.firstVisibleLine().value(), 100U);
    const LineIndex there = view.firstVisibleLine();
    view.box().select(Offset(0), Offset(view.box().length()));
    EXPECT_EQ(view.firstVisibleLine(), there) << "who selects all stays where he reads";
    view.box().SetSelStart(6000);
    view.verticalScrollBar()->setValue(3);
    settle();
    EXPECT_EQ(view.firstVisibleLine().value(), 3U) << "who scrolls is not brought back";
}

TEST_F(RichTextViewTest, EditsAboveLeaveTheShownTextInPlace) {
    view.box().SetText(lines(1000));
    view.lineScroll(500);
    settle();
    view.setRedraw(false);  // so that the caret does not bring the view along
    view.box().userReplace({Offset(0), Offset(0)}, "one\r\ntwo\r\n");
    EXPECT_EQ(view.firstVisibleLine().value(), 502U);
    view.box().userReplace({Offset(0), Offset(100)}, "");
    const std::string top = "line 500";
    const Offset start = view.box().rope().lineStart(view.firstVisibleLine());
    EXPECT_EQ(view.box().rope().bytes(Range::at(start, top.size())), top);
    view.box().userReplace({Offset(0), Offset(view.box().length())}, "");
    view.setRedraw(true);
    settle();
    EXPECT_EQ(view.firstVisibleLine().value(), 0U);
}

TEST_F(RichTextViewTest, AWrappedLineHigherThanTheViewScrollsByRows) {
    view.SetRightMargin(0);
    std::string text;
    while (text.size() < 9000) text += "word ";
    view.box().SetText(text);
    settle();
    const int row = view.characterRect(Offset(0)).height();
    QWheelEvent wheel({5, 5}, view.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &wheel);
    settle();
    EXPECT_NEAR(view.posFromChar(0).y(), -3 * row, 4);
    view.box().SetSelStart(9000);
    settle();
    EXPECT_TRUE(view.viewport()->rect().contains(view.caretRect()));
    EXPECT_EQ(screen(), screenPaintedAnew());
}

TEST_F(RichTextViewTest, SmallPixelStepsOfATouchpadAddUp) {
    view.box().SetText(lines(300));
    settle();
    const int row = view.characterRect(Offset(0)).height();
    for (int i = 0; i < 10 * (row + 1); ++i) {
        QWheelEvent wheel({5, 5}, view.mapToGlobal(QPointF(5, 5)), {0, -1}, {0, -8}, Qt::NoButton,
                          Qt::NoModifier, Qt::ScrollUpdate, false);
        QApplication::sendEvent(view.viewport(), &wheel);
    }
    EXPECT_EQ(view.firstVisibleLine().value(), 10U);
}

TEST_F(RichTextViewTest, ARangeToTheRightGrowsWithTheWidestLineSeen) {
    view.box().SetText("short");
    settle();
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
    view.box().SetText("\r\n" + std::string(1'000'000, 'w'));
    settle();
    EXPECT_GT(view.horizontalScrollBar()->maximum(), 5'000'000);
    view.box().SetSelStart(1'000'002);
    settle();
    EXPECT_TRUE(view.viewport()->rect().contains(view.caretRect()));
    type("x");
    settle();
    EXPECT_TRUE(view.viewport()->rect().contains(view.caretRect()));
    EXPECT_EQ(screen(), screenPaintedAnew());
    view.box().SetText("short");
    settle();
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
}

// --- Looks ---------------------------------------------------------------------------------------

QColor pixelAt(const QImage& image, QPointF place) {
    return image.pixelColor((place * image.devicePixelRatio()).toPoint());
}

TEST_F(RichTextViewTest, TheSelectionAndItsLineBreakAreHighlighted) {
    struct Case {
        const char* name;
        bool focus;
        bool hide;
        std::optional<QPalette::ColorGroup> group;
    };
    const Case cases[] = {{"focus", true, true, QPalette::Active},
                          {"no focus, kept", false, false, QPalette::Inactive},
                          {"no focus, hidden", false, true, std::nullopt}};
    QPalette colors = view.palette();
    colors.setColor(QPalette::Active, QPalette::Highlight, Qt::blue);
    colors.setColor(QPalette::Inactive, QPalette::Highlight, Qt::green);
    view.setPalette(colors);
    view.SetBorderStyle(0);
    view.box().SetText("one\r\n\r\nthree");
    view.box().select(Offset(0), Offset(8));
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        row.focus ? view.setFocus() : view.clearFocus();
        view.SetHideSelection(row.hide);
        const QImage image = screen();
        const QColor wanted = row.group ? colors.color(*row.group, QPalette::Highlight)
                                        : colors.color(QPalette::Base);
        for (const std::size_t offset : {0U, 3U, 5U, 7U}) {
            const QRect place = view.characterRect(Offset(offset));
            EXPECT_EQ(pixelAt(image, place.topLeft() + QPoint(2, 0)), wanted) << offset;
        }
        const QRect behind = view.characterRect(Offset(8));
        EXPECT_EQ(pixelAt(image, behind.topLeft() + QPoint(3, 0)), colors.color(QPalette::Base));
    }
}

TEST_F(RichTextViewTest, TheCaretStandsInThePreeditText) {
    view.box().SetText("before after");
    view.box().SetSelStart(6);
    const int before = view.caretRect().left();
    const int after = view.posFromChar(12).x();
    view.setPreedit("abc", {{QInputMethodEvent::Cursor, 2, 1, QVariant()}});
    const int advance = view.characterRect(Offset(0)).width();
    EXPECT_NEAR(view.caretRect().left(), before + 2 * advance, 2);
    EXPECT_NEAR(view.posFromChar(12).x(), after + 3 * advance, 2);
    view.setPreedit({}, {});
    EXPECT_EQ(view.caretRect().left(), before);
    EXPECT_EQ(view.box().Text(), "before after");
}

TEST_F(RichTextViewTest, ARightToLeftDesktopDoesNotMirrorTheScript) {
    view.box().SetText("left\r\n" + std::string(300, 'w'));
    const QImage before = screen();
    QApplication::setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(screenPaintedAnew(), before);
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST_F(RichTextViewTest, FilesAreLoadedAndSavedByType) {
    const TempFolder folder;
    const QString path = folder.path("text.rtf");
    view.box().SetText("bold\r\nplain");
    view.box().select(Offset(0), Offset(4));
    view.box().SetSelBold(true);
    EXPECT_TRUE(view.SaveFile(path, 0));
    EXPECT_FALSE(view.LoadFile(folder.path("none"), 0));
    EXPECT_EQ(view.box().Text(), "bold\r\nplain");
    EXPECT_TRUE(view.LoadFile(path, 1));
    EXPECT_EQ(view.box().Text().substr(0, 5), "{\\rtf");
    EXPECT_TRUE(view.LoadFile(path, 0));
    EXPECT_EQ(view.box().Text(), "bold\r\nplain");
    EXPECT_TRUE(view.box().formatAt(Offset(0)).bold);
    EXPECT_EQ(view.FileName(), path);
}

}  // namespace
}  // namespace brindlex
