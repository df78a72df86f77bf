#include <random>
#include <utility>

#include "ShellTest.h"

namespace brindlex {
namespace {

/// The way of recording and replaying told plainly, with whole strings, on an editor of its own.
class NaiveUndo {
  public:
    explicit NaiveUndo(const std::string& text) {
        editor.SetText(text);
        editor.SetSelStart(Long(text.size()));
        editor.onChange = [this] {
            if (!recording_) return;
            redo_.clear();
            undo_.push_back({editor.SelStart(), editor.Text()});
        };
    }

    void undo() {
        if (undo_.size() < 2) return;
        recording_ = false;
        const auto& [at, now] = undo_.back();
        const std::string& before = undo_[undo_.size() - 2].second;
        if (before.size() < now.size()) {
            take(at - Long(now.size() - before.size()), Long(now.size() - before.size()));
        } else {
            put(at, stretch(before, at, at + Long(before.size() - now.size())));
        }
        redo_.push_back(undo_.back());
        undo_.pop_back();
        recording_ = true;
    }

    void redo() {
        if (redo_.empty()) return;
        recording_ = false;
        const auto [at, next] = redo_.back();
        const std::string now = editor.Text();
        if (next.size() < now.size()) {
            take(at, Long(now.size() - next.size()));
        } else {
            const std::string text = stretch(next, at - Long(next.size() - now.size()), at);
            put(at - Long(text.size()), text);
        }
        undo_.push_back(redo_.back());
        redo_.pop_back();
        recording_ = true;
    }

    KELP_RTBSyntax editor;

  private:
    using Record = std::pair<Long, std::string>;

    static std::string stretch(const std::string& text, Long from, Long to) {
        std::string result;
        for (Long i = from; i < to; ++i)
            if (i >= 0 && i < Long(text.size())) result += text[std::size_t(i)];
        return result;
    }
    void take(Long at, Long count) {
        editor.SetSelStart(std::max(at, Long(0)));
        editor.SetSelLength(count);
        editor.SetSelText("");
    }
    void put(Long at, const std::string& text) {
        editor.SetSelStart(std::max(at, Long(0)));
        editor.SetSelText(text);
        editor.SetSelStart(std::max(at, Long(0)));
        if (text != "\r\n" && text.size() > 1)
            editor.SetSelLength(Long(text.size()));
        else
            editor.SetSelStart(editor.SelStart() + Long(text.size()));
    }

    std::vector<Record> undo_;
    std::vector<Record> redo_;
    bool recording_ = true;
};

class UndoTest : public ShellTest {
  protected:
    /// The text with the selection in brackets, the caret as one bar.
    std::string shown() {
        std::string text = editor().Text();
        const auto start = std::size_t(editor().SelStart());
        const auto length = std::size_t(editor().SelLength());
        if (length == 0) return text.insert(start, "|");
        return text.insert(start + length, "]").insert(start, "[");
    }
    void typeEach(std::string_view text) {
        for (const char c : text) type({&c, 1});
    }
    std::string undone(int steps = 1) {
        while (steps-- > 0) trigger("funUndo");
        return shown();
    }
    std::string redone(int steps = 1) {
        while (steps-- > 0) trigger("funRedo");
        return shown();
    }
    void startWithText(const std::string& text) {
        folder.put("scripts/battery.script", text);
        startNamed();
        editor().SetSelStart(Long(text.size()));
    }
};

TEST_F(UndoTest, TypedCharactersGoAndComeOneByOne) {
    startWithText("spawn");
    EXPECT_EQ(undone(), "spawn|");
    typeEach("abc");
    EXPECT_EQ(undone(), "spawnab|");
    EXPECT_EQ(undone(), "spawna|");
    EXPECT_EQ(undone(9), "spawna|") << "the first change has no record below it";
    EXPECT_EQ(redone(), "spawnab|");
    typeEach("x");
    EXPECT_EQ(redone(), "spawnabx|") << "a change ends what could be redone";
    EXPECT_TRUE(document().Dirty());
}

TEST_F(UndoTest, WhatIsLongerComesBackSelected) {
    startWithText("one\r\ntwo");
    type("!");
    type(" three");
    EXPECT_EQ(undone(), "one\r\ntwo!|");
    EXPECT_EQ(redone(), "one\r\ntwo![ three]");
    editor().SetSelStart(3);
    editor().SetSelLength(2);
    type("");
    EXPECT_EQ(undone(), "one\r\n|two! three") << "but for a line break";
    editor().SetSelStart(0);
    editor().SetSelLength(3);
    type("");
    EXPECT_EQ(undone(), "[one]\r\ntwo! three");
    EXPECT_EQ(redone(), "|\r\ntwo! three");
}

TEST_F(UndoTest, OnlyTheDifferenceInLengthIsUndone) {
    startWithText("abcdef");
    type("!");
    editor().SetSelStart(1);
    editor().SetSelLength(2);
    type("XY");
    EXPECT_EQ(undone(), "aXY|def!") << "as long as before: passed over";
    editor().SetSelStart(1);
    editor().SetSelLength(4);
    type("-");
    EXPECT_EQ(undone(), "a-[cde]f!") << "from the record below, which never knew of XY";
}

TEST_F(UndoTest, ANewDocumentStartsAfreshAndALoadIsNoStep) {
    startWithText("spawn");
    typeEach("abc");
    desktop.expectBox(saveQuestion("Do you want to save battery.script?"), BoxAnswer::No);
    trigger("funNew");
    EXPECT_EQ(undone(), "|preset\r\n");
    EXPECT_EQ(redone(), "|preset\r\n");
    EXPECT_FALSE(document().Dirty());
    put("GetPreset", "0");
    start();
    typeEach("abc");
    EXPECT_EQ(undone(), "abc|") << "not ready before a first load";
}

/// Replays on records that do not fit the text, as after one whose line breaks were mended, keep
/// within it.
TEST_F(UndoTest, RandomEditsReplayAsWithWholeStrings) {
    const std::string kBytes = "ab \t{\r\n";
    for (const unsigned seed : {1U, 2U, 3U, std::random_device{}()}) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        std::mt19937 random(seed);
        const auto below = [&random](std::size_t n) { return Long(random() % n); };
        startWithText("one\r\ntwo");
        NaiveUndo naive("one\r\ntwo");
        for (int step = 0; step < 400; ++step) {
            const Long at = below(editor().Text().size() + 1);
            const Long length = below(4) * below(3);
            std::string text;
            for (Long n = below(6); n > 0; --n) text += kBytes[std::size_t(below(kBytes.size()))];
            const Long what = below(3);
            for (KELP_RTBSyntax* each : {&editor(), &naive.editor}) {
                if (what != 0) continue;
                each->SetSelStart(at);
                each->SetSelLength(length);
                each->SetSelText(text);
            }
            if (what == 1) undone(), naive.undo();
            if (what == 2) redone(), naive.redo();
            ASSERT_EQ(editor().Text(), naive.editor.Text()) << step;
            ASSERT_EQ(editor().SelStart(), naive.editor.SelStart()) << step;
            ASSERT_EQ(editor().SelLength(), naive.editor.SelLength()) << step;
        }
    }
}

TEST_F(UndoTest, RecordsThatDoNotFitTheTextStayWithinIt) {
    startWithText("ab");
    const Rope text(std::string_view("0123456789"));
    const std::vector<UndoElement> records = {{9, 2, {}},    {0, 9, text}, {3, 4, {}},
                                              {1, 10, text}, {50, 1, {}},  {2, 7, text}};
    for (std::size_t first = 0; first < records.size(); ++first) {
        program->state().UndoStack.assign(records.begin() + std::ptrdiff_t(first), records.end());
        undone(5);
        redone(5);
        EXPECT_LE(editor().SelStart() + editor().SelLength(), Long(editor().Text().size()));
    }
}

}  // namespace
}  // namespace brindlex
