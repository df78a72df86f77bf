#include "view/RichTextView.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QBuffer>
#include <QPdfWriter>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <functional>
#include <utility>

#include "support/Paintings.h"
#include "text/Random.h"
#include "view/layout/Preedit.h"

namespace brindlex {
namespace {

using test::Random;

class RichTextViewTest : public testing::Test {
  protected:
    RichTextViewTest() {
        QApplication::setCursorFlashTime(0);
        QFont font("Courier New");
        font.setPointSizeF(9.75);
        view.SetFont(font);
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
    /// What stands on the screen, as it was painted bit by bit, without the scroll bars: the width
    /// of a long line is an estimate until all of it has been seen.
    QImage screen() {
        settle();
        const QRect place = view.viewport()->geometry();
        return view.screen()
            ->grabWindow(view.winId(), place.x(), place.y(), place.width(), place.height())
            .toImage();
    }
    bool screenIsAsPaintedAnew() {
        const QImage partly = screen();
        view.SetBackColor(view.BackColor());
        return !partly.isNull() && partly == screen();
    }
    std::size_t topLine() {
        settle();
        return view.firstVisibleLine().value();
    }
    static std::string lines(int count) {
        std::string text;
        for (int line = 0; line < count; ++line) text += "line " + std::to_string(line) + "\r\n";
        return text;
    }

    RichTextView view;
};

// --- Partial repaints ----------------------------------------------------------------------------

void changeSomething(RichTextView& view, Random& random) {
    RichTextBox& box = view.box();
    const Offset begin(random.below(box.length() + 1));
    const Offset end(std::min(box.length(), begin.value() + random.below(60)));
    const ColorRun run{static_cast<std::uint32_t>(random.below(200)),
                       static_cast<ColorRef>(random.below(0x1000000))};
    const bool on = random.oneIn(2);
    const auto edit = [&] {
        box.userReplace({begin, end}, random.text(random.below(50), "ab cd\te\n"));
    };
    const std::function<void()> changes[] = {
        edit,
        edit,
        [&] { box.select(begin, end); },
        [&] { box.select(end, begin); },
        [&] {
            box.colorRuns(begin, {&run, 1});
        },
        [&] { box.SetSelIndent(static_cast<Long>(random.below(3)) * 300); },
        [&] { view.lineScroll(static_cast<Long>(random.below(9)) - 4); },
        [&] { view.horizontalScrollBar()->setValue(static_cast<int>(random.below(300))); },
        [&] { view.ensureCaretVisible(); },
        [&] { view.setRedraw(random.oneIn(3)); },
        [&] { view.setOverwriteMode(on); },
        [&] { view.setDropCaret(on ? std::optional(begin) : std::nullopt); },
        [&] {
            view.setPreedit({on ? "preedit" : "", {}});
        },
        [&] { view.resize(on ? 460 : 540, view.height()); },
        [&] { view.SetHideSelection(on); },
    };
    changes[random.below(std::size(changes))]();
}

TEST_F(RichTextViewTest, PartialRepaintsGiveTheWholePicture) {
    for (const std::uint64_t seed : test::seeds(6)) {
        SCOPED_TRACE(seed);
        Random random(seed);
        // lines of all lengths
        view.box().SetText(random.text(1500, "abcdefgh\tij k\n") + random.text(4000, "iM\t \x01"));
        for (int step = 0; step < 250; ++step) {
            changeSomething(view, random);
            // the window system may ask for a paint in the middle of it all
            if (random.oneIn(8)) view.viewport()->repaint(20, 40, 100, 33);
            // several changes often share one repaint
            if (!random.oneIn(3)) continue;
            view.setRedraw(true);
            ASSERT_TRUE(screenIsAsPaintedAnew()) << "step " << step;
        }
    }
}

TEST_F(RichTextViewTest, AKeystrokePaintsItsLineOnce) {
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
    QTest::keyClicks(&view, "x");
    settle();
    EXPECT_EQ(paintings.count, 1);
    EXPECT_LE(paintings.region.boundingRect().height(), view.caretRect().height() + 4);
    EXPECT_TRUE(paintings.region.contains(view.caretRect()));
    settle();
    EXPECT_EQ(paintings.count, 1) << "nothing changed, nothing is painted";
}

TEST_F(RichTextViewTest, RedrawOffPaintsNothingAndThenWhatIsDue) {
    const QImage before = screen();
    view.setRedraw(false);
    view.box().SetSelText("changed");
    view.viewport()->repaint();
    EXPECT_EQ(screen(), before);
    view.setRedraw(true);
    EXPECT_NE(screen(), before);
}

// --- Scrolling -----------------------------------------------------------------------------------

TEST_F(RichTextViewTest, ScrollsByLinesCutAtBothEnds) {
    view.box().SetText(lines(500));
    const std::size_t last = 501 - static_cast<std::size_t>(view.linesPerPage());
    for (const auto& [by, first] : {std::pair<Long, std::size_t>{-3, 0}, {7, 7}, {9999, last}}) {
        view.lineScroll(by);
        EXPECT_EQ(topLine(), first);
        EXPECT_EQ(view.verticalScrollBar()->value(), first);
    }
    view.box().SetText("short");
    settle();
    EXPECT_EQ(view.verticalScrollBar()->maximum(), 0);
}

TEST_F(RichTextViewTest, TheCaretComesIntoViewWhenItMovesAndRedrawIsOn) {
    view.box().SetText(lines(1000));
    settle();
    view.setRedraw(false);
    view.box().SetSelStart(5000);
    view.setRedraw(true);
    EXPECT_EQ(topLine(), 0U) << "work with redraw off does not scroll";
    view.box().SetSelStart(6000);
    EXPECT_GT(view.firstVisibleLine().value(), 100U);
    view.box().select(Offset(0), Offset(view.box().length()));
    EXPECT_GT(view.firstVisibleLine().value(), 100U) << "selecting all does not scroll";
    view.box().select(Offset(6001), Offset(6000));
    view.verticalScrollBar()->setValue(3);
    EXPECT_EQ(topLine(), 3U) << "the user has scrolled away from the caret";
    view.box().SetSelText("");
    EXPECT_GT(view.firstVisibleLine().value(), 100U) << "an edit that leaves the caret in place";
}

TEST_F(RichTextViewTest, EditsAboveLeaveTheShownTextInPlace) {
    view.box().SetText(lines(1000));
    view.lineScroll(500);
    settle();
    view.setRedraw(false);  // so that the caret does not bring the view along
    view.box().userReplace({Offset(0), Offset(0)}, "one\r\ntwo\r\n");
    view.box().userReplace({Offset(0), Offset(100)}, "");
    const Offset start = view.box().rope().lineStart(view.firstVisibleLine());
    EXPECT_EQ(view.box().rope().bytes(Range::at(start, 8)), "line 500");
    view.box().userReplace({Offset(0), Offset(view.box().length())}, "");
    view.setRedraw(true);
    EXPECT_EQ(topLine(), 0U);
}

TEST_F(RichTextViewTest, SmallPixelStepsOfATouchpadAddUp) {
    view.box().SetText(lines(300));
    settle();
    const QPointF place(5, 5);
    const int row = view.characterRect(Offset(0)).height();
    for (int i = 0; i < 10 * (row + 1); ++i) {
        QWheelEvent wheel(place, view.mapToGlobal(place), {0, -1}, {0, -8}, Qt::NoButton,
                          Qt::NoModifier, Qt::ScrollUpdate, false);
        QApplication::sendEvent(view.viewport(), &wheel);
    }
    EXPECT_EQ(topLine(), 10U);
}

TEST_F(RichTextViewTest, ALongLineScrollsToItsCaret) {
    view.box().SetText("\r\n" + std::string(1'000'000, 'w'));
    view.box().SetSelIndent(300);
    view.box().SetSelStart(1'000'002);
    QTest::keyClicks(&view, "x");
    settle();
    EXPECT_TRUE(view.viewport()->rect().contains(view.caretRect()));
    EXPECT_EQ(view.positionAt(view.caretRect().center()), Offset(1'000'003));
    EXPECT_EQ(view.posFromChar(1'000'003), view.caretRect().topLeft());
    EXPECT_TRUE(screenIsAsPaintedAnew());
    EXPECT_GT(view.horizontalScrollBar()->maximum(), 5'000'000);
    view.box().SetText("short");
    settle();
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
}

// --- Looks ---------------------------------------------------------------------------------------

TEST_F(RichTextViewTest, TheSelectionAndItsLineBreakAreHighlighted) {
    QPalette colors(Qt::lightGray, Qt::white);
    colors.setColor(QPalette::Base, Qt::white);
    colors.setColor(QPalette::Active, QPalette::Highlight, Qt::blue);
    colors.setColor(QPalette::Inactive, QPalette::Highlight, Qt::green);
    view.setPalette(colors);
    view.SetBorderStyle(0);
    view.box().SetText("one\r\n\r\nthree");
    view.box().select(Offset(0), Offset(8));
    for (const auto& [focus, highlight] : {std::pair(true, Qt::blue), {false, Qt::green}}) {
        focus ? view.setFocus() : view.clearFocus();
        const QImage image = screen();
        const auto colorAt = [&](std::size_t offset) {
            const QPointF place = view.characterRect(Offset(offset)).topLeft() + QPoint(3, 0);
            return image.pixelColor((place * image.devicePixelRatio()).toPoint());
        };
        for (const std::size_t offset : {0U, 3U, 5U, 7U}) EXPECT_EQ(colorAt(offset), highlight);
        EXPECT_EQ(colorAt(8), QColor(Qt::white));
    }
    view.SetBackColor(ColorValue{0xFF});
    EXPECT_EQ(screen().pixelColor(200, 200), QColor(Qt::red)) << "below the text too";
}

TEST_F(RichTextViewTest, PrintsTheSelectionOrElseAllOnAsManyPagesAsItTakes) {
    const auto pages = [&] {
        QBuffer pdf;
        pdf.open(QIODevice::WriteOnly);
        QPdfWriter writer(&pdf);
        view.SelPrint(writer);
        return pdf.data().count("/Type /Page\n");
    };
    view.box().SetText(lines(500));
    EXPECT_GE(pages(), 5);
    EXPECT_LE(pages(), 15);
    view.box().SetSelLength(40);
    EXPECT_EQ(pages(), 1);
}

}  // namespace
}  // namespace brindlex
