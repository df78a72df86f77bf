#include <utility>

#include "ShellTest.h"
#include "text/Random.h"

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
    void startWithText(const std::string& text) {
        folder.put("scripts/battery.script", text);
        startNamed();
        editor().SetSelStart(Long(text.size()));
    }
};

TEST_F(UndoTest, ANewDocumentStartsAfreshAndALoadIsNoStep) {
    startWithText("spawn");
    type("a");
    type("b");
    desktop.expectBox(saveQuestion("Do you want to save battery.script?"), BoxAnswer::No);
    trigger("funNew");
    trigger("funUndo");
    trigger("funRedo");
    EXPECT_EQ(editor().Text(), "preset\r\n");
    EXPECT_FALSE(document().Dirty());
    put("GetPreset", "0");
    start();
    type("a");
    type("b");
    trigger("funUndo");
    EXPECT_EQ(editor().Text(), "ab") << "not ready before a first load";
}

/// Replays on records that do not fit the text, as after one whose line breaks were mended, keep
/// within it.
TEST_F(UndoTest, RandomEditsReplayAsWithWholeStrings) {
    for (const std::uint64_t seed : test::seeds(3)) {
        SCOPED_TRACE(testing::Message() << "seed " << seed);
        test::Random random(seed);
        const auto below = [&random](std::size_t count) { return Long(random.below(count)); };
        startWithText("one\r\ntwo");
        NaiveUndo naive("one\r\ntwo");
        for (int step = 0; step < 400; ++step) {
            const Long at = below(editor().Text().size() + 1);
            const Long length = below(4) * below(3);
            const std::string text = random.text(random.below(6), "ab \t{\r\n");
            const Long what = below(3);
            for (KELP_RTBSyntax* each : {&editor(), &naive.editor}) {
                if (what != 0) continue;
                each->SetSelStart(at);
                each->SetSelLength(length);
                each->SetSelText(text);
            }
            if (what == 1) {
                trigger("funUndo");
                naive.undo();
            }
            if (what == 2) {
                trigger("funRedo");
                naive.redo();
            }
            ASSERT_EQ(editor().Text(), naive.editor.Text()) << step;
            ASSERT_EQ(editor().SelStart(), naive.editor.SelStart()) << step;
            ASSERT_EQ(editor().SelLength(), naive.editor.SelLength()) << step;
        }
    }
}

TEST_F(UndoTest, RecordsThatDoNotFitTheTextStayWithinIt) {
    startWithText("ab");
    const Rope text(std::string_view("0123456789"));
    program->state().UndoStack = {{9, 2, {}},    {0, 9, text}, {3, 4, {}},
                                  {1, 10, text}, {50, 1, {}},  {2, 7, text}};
    for (const char* entry : {"funUndo", "funRedo"}) {
        for (int step = 0; step < 5; ++step) trigger(entry);
        EXPECT_LE(editor().SelStart() + editor().SelLength(), Long(editor().Text().size()));
    }
}

}  // namespace
}  // namespace brindlex
