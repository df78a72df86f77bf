#include <QTest>
#include <algorithm>

#include "shell/ShellTest.h"
#include "support/MarkedText.h"
#include "text/Random.h"

namespace brindlex {
namespace {

using test::marked;
using test::putMarked;

class UndoTest : public ShellTest {
  protected:
    std::string after(const char* entry) {
        trigger(entry);
        return marked(editor().box());
    }
    /// Inserts something, or deletes a part of the text, but never half a line break.
    void insertOrDelete(test::Random& random) {
        const std::string text = editor().Text();
        const auto place = [&] {
            const std::size_t at = random.below(text.size() + 1);
            return Offset(text[at] == '\n' ? at + 1 : at);
        };
        const Offset caret = place();
        const Offset other = random.oneIn(3) ? place() : caret;
        editor().box().select(other, caret);
        type(other == caret ? random.text(1 + random.below(6), "ab \t{\n") : "");
    }
};

/// Of a text that was replaced by another, only what was longer comes back.
TEST_F(UndoTest, AStepIsWhatTheLengthsDifferBy) {
    const struct {
        std::string before, edit, undone, redone;
    } rows[] = {
        {"ab|", "c", "ab|", "abc|"},
        {"a|d", "bc", "a|d", "a^bc|d"},
        {"a|b", "\r\nx", "a|b", "a^\r\nx|b"},
        {"a|\r\nb", "Delete", "a\r\n|b", "a|b"},
        {"^ab\r\nc|", "", "^ab\r\nc|", "|"},
        // replaced by something longer, shorter, of the same length
        {"a^b|c", "xyz", "ax|c", "ax^yz|c"},
        {"a^bcde|f", "x", "ax^cde|f", "ax|f"},
        {"a^bc|d", "xy", "axy|d", "axy|d"},
        // the stretch would end inside a line break: restored exactly, in both directions
        {"a^\r\nbc|d", "x", "a\r\nbc|d", "ax|d"},
        {"a^b|c", "\r\n\r\n", "ab|c", "a\r\n\r\n|c"},
    };
    startNamed();
    for (const auto& [before, edit, undone, redone] : rows) {
        SCOPED_TRACE(testing::PrintToString(before) + " and " + testing::PrintToString(edit));
        putMarked(editor().box(), before);
        if (edit == "Delete")
            QTest::keyClick(&editor().rtb(), Qt::Key_Delete);
        else
            type(edit);
        EXPECT_EQ(after("funUndo"), undone);
        EXPECT_EQ(after("funRedo"), redone);
    }
}

TEST_F(UndoTest, InsertionsAndDeletionsAreUndoneAndRedoneInTurn) {
    for (const std::uint64_t seed : test::seeds(3)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        test::Random random(seed);
        folder.put("scripts/battery.script", "one\r\ntwo");
        startNamed();
        insertOrDelete(random);  // the first change stays
        std::vector<std::string> texts{editor().Text()};
        std::size_t shown = 0;
        for (int step = 0; step < 600; ++step) {
            const std::size_t what = random.below(5);
            if (what < 2) {
                trigger("funUndo");
                shown -= std::min<std::size_t>(shown, 1);
            } else if (what == 2) {
                trigger("funRedo");
                shown = std::min(shown + 1, texts.size() - 1);
            } else {
                insertOrDelete(random);
                texts.resize(++shown);
                texts.push_back(editor().Text());
            }
            ASSERT_EQ(editor().Text(), texts[shown]) << "step " << step;
        }
    }
}

}  // namespace
}  // namespace brindlex
