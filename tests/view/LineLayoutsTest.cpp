#include "view/layout/LineLayouts.h"

#include <gtest/gtest.h>

#include <QFontInfo>
#include <QGuiApplication>
#include <algorithm>
#include <set>

#include "text/Random.h"
#include "view/layout/ReadableColor.h"

namespace brindlex {
namespace {

using test::Random;

/// A box and what lays out its lines; the layouts hear of every change.
class LaidOutBox : public RichTextObserver {
  public:
    explicit LaidOutBox(int page = 1252) : codePage(CodePage::windows(page)) {
        context.setFont(QFontInfo(QGuiApplication::font()).family());  // proportional
        box.setObserver(this);
    }

    const CodePage codePage;
    RichTextBox box{codePage.characters()};
    LayoutContext context{codePage};
    LineLayouts layouts{box, context};

  private:
    void textChanged(const TextEdit& edit) override { layouts.textChanged(edit); }
    void formatChanged(Range range) override { layouts.formatChanged(range); }
    void selectionChanged() override {}
};

/// Mostly in the long line, often at the border of two of its blocks.
Offset somewhere(const RichTextBox& box, Random& random) {
    const std::size_t any = random.below(box.length() + 1);
    if (!random.oneIn(3)) return Offset(any);
    const Offset start = box.rope().lineStart(box.rope().lineOf(Offset(any)));
    return Offset(start.value() + (any - start.value()) / LineBlocks::kBytes * LineBlocks::kBytes);
}

/// The characters of a line stand side by side, each as wide as it is, and so does the text that is
/// composed in front of the one at `preedit`. Looks at some of them.
void expectSideBySide(LaidOutBox& laidOut, LineIndex lineIndex, Offset preedit, Random& random) {
    const Range content = laidOut.box.lineContent(lineIndex);
    const std::string text = laidOut.box.rope().bytes(content);
    const LineLayout& line = laidOut.layouts.at(lineIndex);
    qreal x = 0;
    for (std::size_t column = 0; column <= text.size(); ++column) {
        const bool looks = random.oneIn(30) || column == text.size();
        ASSERT_TRUE(!looks || qAbs(line.xOf(column) - x) < 0.1) << "column " << column;
        if (content.begin() + column == preedit) {
            const qreal width = line.preeditX(8) - line.preeditX(0);
            ASSERT_GT(width, 8);
            ASSERT_NEAR(line.preeditX(0), x, 0.1);
            ASSERT_EQ(line.columnAt(x + width / 2), column);
            ASSERT_EQ(line.characterAt(x + width / 2), std::nullopt);
            x += width;
        }
        if (column == text.size()) break;
        const auto byte = static_cast<unsigned char>(text[column]);
        const qreal next =
            byte == '\t' ? laidOut.context.nextTabStop(x) : x + laidOut.context.advance(byte);
        ASSERT_TRUE(next > x + 1 || byte == '\t') << "byte " << int(byte) << " is not seen";
        if (looks && next > x + 1) {
            ASSERT_EQ(line.columnAt(x + (next - x) * 0.4), column);
            ASSERT_EQ(line.characterAt(x + (next - x) * 0.6), column);
        }
        x = next;
    }
    ASSERT_NEAR(line.width(), x, 0.5);
    ASSERT_EQ(line.columnAt(x + 100), text.size());
    ASSERT_EQ(line.characterAt(x + 1), std::nullopt);
    ASSERT_EQ(line.characterAt(-1), std::nullopt);
}

TEST(LineLayouts, CharactersStandSideBySideAfterRandomEdits) {
    // breaks are rare, so that lines have all lengths, and so are tabs, which even widths out
    const std::string letters =
        QByteArray("iMc d.W").repeated(60).toStdString() + test::allBytes().substr(14) + "\x01\t\n";
    for (const std::uint64_t seed : test::seeds(6)) {
        SCOPED_TRACE(seed);
        Random random(seed);
        LaidOutBox laidOut;
        RichTextBox& box = laidOut.box;
        box.SetText(random.text(2000, letters) + random.text(12000, "iM c"));
        for (int step = 0; step < 300 && !HasFatalFailure(); ++step) {
            const Offset begin = somewhere(box, random);
            const std::size_t most = random.oneIn(10) ? 3000 : 30;
            const Offset end = std::min(begin + random.below(most), Offset(box.length()));
            box.userReplace({begin, end}, random.text(random.below(most), letters));
            const LineIndex line = box.rope().lineOf(somewhere(box, random));
            const Offset place = std::min(somewhere(box, random), box.lineContent(line).end());
            const Offset preedit = random.oneIn(4) ? place : Offset(box.length() + 1);
            if (preedit == place) laidOut.layouts.setPreedit({"composed", {}, 8, true}, preedit);
            expectSideBySide(laidOut, line, preedit, random);
            laidOut.layouts.setPreedit({}, Offset(0));
        }
    }
}

TEST(LineLayouts, LettersFromRightToLeftAreAllFound) {
    LaidOutBox laidOut(1255);
    laidOut.box.SetText("ab \xF9\xEC\xE5\xED \t\xF9\xEC 12 c");
    const LineLayout& line = laidOut.layouts.at(LineIndex(0));
    std::set<std::size_t> found;
    for (qreal x = 0; x < line.width(); x += 1)
        if (const auto column = line.characterAt(x)) found.insert(*column);
    EXPECT_EQ(found.size(), laidOut.box.length());
    EXPECT_GT(line.xOf(4), line.xOf(5)) << "the first letter stands to the right of the second";
}

TEST(LineLayouts, ALineOfMegabytesIsMeasuredWhereItIsAskedFor) {
    LaidOutBox laidOut;
    laidOut.box.SetText(std::string(4'000'000, 'x'));
    const qreal advance = laidOut.context.averageAdvance();
    const LineLayout& line = laidOut.layouts.at(LineIndex(0));
    EXPECT_NEAR(line.width(), 4e6 * advance, 1);
    laidOut.box.userReplace({Offset(5), Offset(5)}, "\t");
    laidOut.box.userReplace({Offset(10), Offset(3'900'000)}, "");
    EXPECT_NEAR(laidOut.layouts.at(LineIndex(0)).xOf(100'011),
                100'005 * advance + laidOut.context.nextTabStop(5 * advance), 1);
    EXPECT_EQ(&laidOut.layouts.at(LineIndex(0)), &line) << "the layout follows edits";
}

// --- Colours -------------------------------------------------------------------------------------

TEST(ReadableColor, OnADarkPageEveryColourCanBeReadInItsHue) {
    Random random(7);
    for (const QColor& page : {QColor(Qt::black), QColor(30, 30, 30), QColor(0, 43, 54)}) {
        const ReadableColor colors(page);
        EXPECT_EQ(colors.shown(qRgb(0, 0, 0)), QColor(Qt::white)) << "what was strong stays strong";
        for (int i = 0; i < 500; ++i) {
            const QColor color = QColor::fromRgb(static_cast<QRgb>(random.below(0x1000000)));
            const QColor shown = colors.shown(color.rgb());
            EXPECT_GE(ReadableColor::contrast(shown, page), 4.4) << color.name().toStdString();
            // near white and in greys a hue is lost to rounding
            if (color.hslSaturation() < 60 || shown.lightness() > 220) continue;
            const int turn = std::abs(shown.hslHue() - color.hslHue());
            EXPECT_LE(std::min(turn, 360 - turn), 6) << color.name().toStdString();
        }
    }
}

TEST(ReadableColor, OnALightPageColoursAreAsChosenUnlessTheyVanish) {
    const ReadableColor colors(Qt::white);
    for (const QRgb chosen : {0xFF000000, 0xFF008000, 0xFFFF00FF, 0xFF8080FF, 0xFF00C000})
        EXPECT_EQ(colors.shown(chosen).rgb(), chosen);
    for (const QRgb pale : {0xFFFFFFFF, 0xFFFFFF00, 0xFFFAFAFF})
        EXPECT_GE(ReadableColor::contrast(colors.shown(pale), Qt::white), 4.4);
}

}  // namespace
}  // namespace brindlex
