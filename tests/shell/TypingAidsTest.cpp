#include <QListView>
#include <QTest>
#include <QTreeWidget>

#include "ShellTest.h"
#include "support/MarkedText.h"
#include "text/Random.h"

namespace brindlex {
namespace {

class TypingAidsTest : public ShellTest {
  protected:
    TypingAidsTest() {
        put("AutoComplete", "1");
        put("AutoBlockIndent", "1");
        put("TypeOther", "1");
        put("ShowTreeView", "1");
        start();
        QApplication::setActiveWindow(&window());
        load("");
    }
    /// Marked, with "\n" for a line break.
    void load(QString marked) {
        editor().SetText("");
        test::putMarked(editor().box(), marked.replace("\n", "\r\n").toStdString());
        program->state().UndoStack.clear();
        program->state().UndoStack.push_back({0, editor().SelStart(), editor().box().rope()});
    }
    std::string marked() {
        std::string text = test::marked(editor().box());
        std::erase(text, '\r');
        return text;
    }
    /// Keys as menus name them, with blanks between them; "=tr" types what follows.
    void play(const QString& keys) {
        for (const QString& key : keys.split(' ')) {
            if (key.startsWith('=')) {
                QTest::keyClicks(&editor().rtb(), key.mid(1));
                continue;
            }
            const QKeyCombination chord = QKeySequence::fromString(key)[0];
            QTest::keyClick(&editor().rtb(), chord.key(), chord.keyboardModifiers());
        }
        QCoreApplication::processEvents();
    }
    /// The words of the list, the selected one marked; "-" while it is hidden.
    std::string list() {
        auto& words = control<QListView>("List4");
        if (!words.isVisible()) return "-";
        std::string text;
        for (int row = 0; row < words.model()->rowCount(); ++row) {
            const QModelIndex word = words.model()->index(row, 0);
            text +=
                (word == words.currentIndex() ? " >" : " ") + word.data().toString().toStdString();
        }
        return text;
    }
};

TEST_F(TypingAidsTest, KeysDoTheirWork) {
    const struct {
        const char* before;
        const char* keys;
        const char* after;
        const char* list;
    } rows[] = {
        {"|", "=tr", "tr^igger|", " >trigger trigger_if_equal"},
        {"|", "=trx", "trx|", ""},
        {"a\n\t|", "=tr", "a\n\ttr^igger|", " >trigger trigger_if_equal"},
        {"|", "=tr Esc", "tr|", "-"},
        {"|", "=tr Backspace", "tr|", " >trigger trigger_if_equal"},
        {"|", "=tr Backspace =i", "tri^gger|", " >trigger trigger_if_equal"},
        {"|", "=tr Down Down", "tr^igger|", " trigger >trigger_if_equal"},
        {"|", "=tr Down Up Up Return", "trigger|", "-"},
        {"|", "=tr Down Return", "trigger_if_equal|", "-"},
        {"|", "=wm_announce", "wm_announce^_icon|", " >wm_announce_icon wm_announce"},
        {"|", "=wm_announce Down Return", "wm_announce|", "-"},
        {"|", "=Tr", "Tr|", "-"},
        {"|", "=t*", "t*|", ""},
        {"|", "=#r", "#r|", "-"},
        {"|", "=?ailed", "?ailed|", " >failed"},
        {"|", "=tr Tab", "tr\t|", "-"},
        {"|", "=tr Space", "tr |", "-"},
        {"\t|", "=tr =x Return", "\ttrx\n\t|", "-"},
        {"a|", "={", "a{\n\t|\n}", "-"},
        {"\t|", "=tr {", "\ttr{\n\t|\n}", "-"},
        {"|", "={", "|", "-"},
        {"|", "=[]", "{}|", "-"},
        {"\tab|", "Return", "\tab\n\t|", "-"},
        {"|a", "Return", "\n|a", "-"},
        {"a^bc|d", "Return", "abc|d", "-"},
        {"^a\nb\n|c", "Tab", "^\ta\n\tb\n|c", "-"},
        {"\ta|", "Shift+Tab", "|a", "-"},
        {"a\n\t| b\nc", "=tr Shift+Tab Return", "a\ntrigger b|\nc", "-"},
        {"|", "=tr Shift+Home Ctrl+X", "|igger", "-"},
        {"|", "Backspace =tr", "tr^igger|", " >trigger trigger_if_equal"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(testing::PrintToString(row.before) + " " + row.keys);
        load(row.before);
        play(row.keys);
        EXPECT_EQ(marked(), row.after);
        EXPECT_EQ(list(), row.list);
        play("Esc");
    }
}

/// A record is a whole text. Random keys, undo and redo never leave the editor with another one,
/// as long as the user types over no selection of his own (what undo brings back is selected).
TEST_F(TypingAidsTest, EachStepOfUndoIsAnInsertionOrARemoval) {
    const char* const keys[] = {
        "=t",     "=r", "=s",   "=e",         "=_",         "Space",      "Return", "Tab",
        "Escape", "Up", "Down", "Ctrl+Z End", "Ctrl+Z End", "Ctrl+Y End", "Delete", "={",
        "Left",   "=]", "End",  "Ctrl+X",     "F6 End",     "Backspace"};
    for (const std::uint64_t seed : test::seeds(6)) {
        SCOPED_TRACE(seed);
        test::Random random(seed);
        load("\n");
        for (int step = 0; step < 150; ++step) {
            const char* const key = keys[random.below(std::size(keys))];
            play(key);
            const std::deque<UndoElement>& records = program->state().UndoStack;
            ASSERT_EQ(editor().Text(), records.back().Text.bytes()) << step << ' ' << key;
            if (records.size() < 2) continue;
            const std::string now = editor().Text();
            const std::string before = records[records.size() - 2].Text.bytes();
            const auto& [longer, shorter] =
                now.size() < before.size() ? std::tie(before, now) : std::tie(now, before);
            const auto same = std::mismatch(shorter.begin(), shorter.end(), longer.begin()).first;
            ASSERT_TRUE(longer.ends_with(std::string(same, shorter.end()))) << step << ' ' << key;
        }
    }
}

}  // namespace
}  // namespace brindlex
