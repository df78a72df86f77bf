#include "platform/LineLayouts.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <algorithm>

#include "platform/LongLine.h"
#include "platform/ReadableColor.h"
#include "platform/ScreenFont.h"
#include "platform/ShortLine.h"
#include "text/Random.h"

namespace brindlex {
namespace {

using test::Random;

/// A box and what lays out its lines; the layouts hear of every change.
class LaidOutBox : public RichTextObserver {
  public:
    LaidOutBox() {
        QFont font("Courier New");
        font.setPointSizeF(9.75);
        style.setFont(font);
        box.setObserver(this);
    }

    LineText line(LineIndex index) const {
        return {box, box.lineContent(index), box.paragraphAt(index), nullptr, 0};
    }

    const CodePage codePage = CodePage::windows(1252);
    RichTextBox box{codePage.characters()};
    LineStyle style{codePage};
    LineLayouts layouts{box, style};

  private:
    void textChanged(const TextEdit& edit) override { layouts.textChanged(edit); }
    void formatChanged(Range range) override { layouts.formatChanged(range); }
    void selectionChanged() override {}
};

/// Breaks are rare, so that there are lines of all lengths, and so are tabs, which even widths out.
const std::string kLetters = QByteArray("abc def").repeated(30).toStdString() + "\t\n";

void colorSome(RichTextBox& box, Random& random) {
    const std::size_t begin = random.below(box.length() + 1);
    const ColorRun run{static_cast<std::uint32_t>(random.below(box.length() - begin + 1)),
                       static_cast<ColorRef>(random.below(3) * 0x8000)};
    box.colorRuns(Offset(begin), std::span(&run, 1));
}

void formatSome(RichTextBox& box, Random& random) {
    box.SetSelStart(static_cast<Long>(random.below(box.length() + 1)));
    box.SetSelLength(static_cast<Long>(random.below(40)));
    if (random.oneIn(2))
        box.SetSelBold(random.oneIn(2));
    else
        box.SetSelCharOffset(static_cast<Long>(random.below(3)) * 60 - 60);
}

void editSome(RichTextBox& box, Random& random) {
    const std::size_t begin = random.below(box.length() + 1);
    const std::size_t end = std::min(box.length(), begin + random.below(30));
    box.userReplace({Offset(begin), Offset(end)}, random.text(random.below(30), kLetters));
}

/// That an amended layout places every column as one made from nothing does.
void expectSame(const LineLayout& amended, const LineLayout& fresh, std::size_t columns,
                Random& random) {
    ASSERT_EQ(amended.rowCount(), fresh.rowCount());
    ASSERT_EQ(amended.row(0).end, fresh.row(0).end);
    for (std::size_t column = 0; column <= columns; column += 1 + random.below(40)) {
        const qreal x = fresh.xOf(column);
        ASSERT_NEAR(amended.xOf(column), x, 0.05) << "column " << column;
        ASSERT_EQ(amended.columnAt(0, x + 0.1), fresh.columnAt(0, x + 0.1)) << "x " << x;
    }
}

TEST(LineLayouts, FollowRandomChangesAsIfMadeAnew) {
    for (const std::uint64_t seed : test::seeds(6)) {
        SCOPED_TRACE(seed);
        Random random(seed);
        LaidOutBox laidOut;
        LaidOutBox other;
        for (LineStyle* style : {&laidOut.style, &other.style}) {
            style->setFont(QFontInfo(QGuiApplication::font()).family());  // bold ones are wider
            style->setLongLine(60);
        }
        laidOut.box.SetText(random.text(4000, kLetters) + random.text(12000, "ab c"));
        for (int step = 0; step < 300; ++step) {
            const std::size_t kind = random.below(8);
            if (kind == 0) colorSome(laidOut.box, random);
            if (kind == 1) formatSome(laidOut.box, random);
            if (kind > 1) editSome(laidOut.box, random);
            const LineIndex line(random.below(laidOut.box.rope().breakCount() + 1));
            LineLayouts fresh(laidOut.box, other.style);
            expectSame(laidOut.layouts.at(line), fresh.at(line),
                       laidOut.box.lineContent(line).length(), random);
            if (testing::Test::HasFatalFailure()) return;
        }
    }
}

TEST(LineLayouts, PiecesStandWhereTheWholeLineHasThem) {
    for (const std::uint64_t seed : test::seeds(4)) {
        SCOPED_TRACE(seed);
        Random random(seed);
        LaidOutBox laidOut;
        laidOut.box.SetText(random.text(9000, "iM. \t\x01\xE4(_"));
        for (int i = 0; i < 10; ++i) formatSome(laidOut.box, random);
        laidOut.box.SetSelStart(0);
        laidOut.box.SetSelTabCount(random.oneIn(2) ? 5 : 0);
        const LineText text = laidOut.line(LineIndex(0));
        const ShortLine whole(text, laidOut.style);
        const LongLine pieces(text, laidOut.style);
        EXPECT_NEAR(pieces.xOf(9000), whole.width(), 0.5);
        EXPECT_NEAR(pieces.width(), whole.width(), 0.5);
        for (std::size_t column = 0; column <= 9000; column += 1 + random.below(50)) {
            ASSERT_NEAR(pieces.xOf(column), whole.xOf(column), 0.5) << "column " << column;
            const qreal x = whole.xOf(column) + 2;
            ASSERT_EQ(pieces.columnAt(0, x), whole.columnAt(0, x));
            ASSERT_EQ(pieces.characterAt(0, x), whole.characterAt(0, x));
        }
    }
}

TEST(LineLayouts, ALineOfMegabytesIsMeasuredWhereItIsAskedFor) {
    LaidOutBox laidOut;
    laidOut.box.SetText(std::string(4'000'000, 'a'));
    const qreal advance = laidOut.style.averageAdvance();
    const LineLayout& line = laidOut.layouts.at(LineIndex(0));
    EXPECT_NEAR(line.width(), 4e6 * advance, 1);
    laidOut.box.userReplace({Offset(5), Offset(5)}, "\t");
    laidOut.box.userReplace({Offset(10), Offset(3'900'000)}, "");
    EXPECT_NEAR(laidOut.layouts.at(LineIndex(0)).xOf(100'011),
                100'005 * advance + laidOut.style.tabDistance(), 1);
    EXPECT_EQ(laidOut.layouts.made(), 1U) << "the layout follows edits";
}

TEST(LineLayouts, EveryByteIsSeenAndKeepsTheRowsHeight) {
    LaidOutBox laidOut;
    laidOut.box.SetText("a");
    const qreal height = ShortLine(laidOut.line(LineIndex(0)), laidOut.style).height();
    for (int byte = 0; byte < 256; ++byte) {
        if (byte == '\r' || byte == '\n') continue;
        SCOPED_TRACE(byte);
        std::string text = "a?b";
        text[1] = static_cast<char>(byte);
        laidOut.box.SetText(text);
        const ShortLine line(laidOut.line(LineIndex(0)), laidOut.style);
        EXPECT_GT(line.xOf(2), line.xOf(1) + 1);
        EXPECT_EQ(line.height(), height);
        EXPECT_EQ(line.rowCount(), 1U);
    }
}

TEST(LineStyle, AFontThatIsNotInstalledGivesWayToAFixedPitchOne) {
    for (const char* family : {"Courier New", "No Such Font At All"})
        EXPECT_TRUE(QFontInfo(screenFont(QFont(family))).fixedPitch()) << family;
}

// --- Colours -------------------------------------------------------------------------------------

TEST(ReadableColor, OnADarkPageEveryColourCanBeReadInItsHue) {
    Random random(7);
    for (const QColor& page : {QColor(Qt::black), QColor(30, 30, 30), QColor(0, 43, 54)}) {
        const ReadableColor colors(page);
        for (int i = 0; i < 500; ++i) {
            const QColor color = QColor::fromRgb(static_cast<QRgb>(random.below(0x1000000)));
            const QColor shown = colors.shown(color.rgb());
            EXPECT_GE(ReadableColor::contrast(shown, page), 4.4) << color.name().toStdString();
            // near white and in greys a hue is lost to rounding
            if (color.hslSaturation() < 60 || shown.lightness() > 220) continue;
            const int turn = std::abs(shown.hslHue() - color.hslHue());
            EXPECT_LE(std::min(turn, 360 - turn), 6) << color.name().toStdString();
        }
        EXPECT_EQ(colors.shown(qRgb(0, 0, 0)), QColor(Qt::white)) << "what was strong stays strong";
    }
}

TEST(ReadableColor, OnALightPageColoursAreAsChosenUnlessTheyVanish) {
    const ReadableColor colors(Qt::white);
    for (const QRgb chosen : {qRgb(0, 0, 0), qRgb(0, 128, 0), qRgb(255, 0, 255),
                              qRgb(128, 128, 255), qRgb(0, 192, 0), qRgb(192, 0, 0)})
        EXPECT_EQ(colors.shown(chosen).rgb(), chosen);
    for (const QRgb pale : {qRgb(255, 255, 255), qRgb(255, 255, 0), qRgb(250, 250, 255)})
        EXPECT_GE(ReadableColor::contrast(colors.shown(pale), Qt::white), 4.4);
}

}  // namespace
}  // namespace brindlex
