#include <QCloseEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QUrl>

#include "ShellTest.h"

namespace brindlex {
namespace {

enum Kind { Untitled, Named };
/// What the save dialog gives for a document without a name.
enum class Dialog { NotAsked, Chosen, Cancelled };

struct Row {
    const char* command;
    Kind kind;
    bool dirty;
    const char* question;  // null: none is asked
    const char* boxTitle;
    BoxAnswer answer;
    Dialog dialog;
    bool goesOn;          // the command does its work
    const char* savedTo;  // null: nothing is written
};

std::ostream& operator<<(std::ostream& out, const Row& row) {
    return out << row.command << (row.kind == Named ? " named" : " untitled")
               << (row.dirty ? " dirty" : " clean") << " answer " << int(row.answer) << " dialog "
               << int(row.dialog);
}

constexpr auto kYes = BoxAnswer::Yes;
constexpr auto kNo = BoxAnswer::No;
constexpr auto kCancel = BoxAnswer::Cancel;
constexpr const char* kOwn = "scripts/battery.script";
constexpr const char* kChosen = "scripts/chosen.script";
constexpr const char* kSave = "Do you want to save?";
constexpr const char* kSaveNamed = "Do you want to save battery.script?";
constexpr const char* kOpen = "Do you want to save Untitled";
constexpr const char* kOpenNamed = "Do you want to save battery.script";
constexpr const char* kExit = "Do you want to save changes to Untitled?";
constexpr const char* kExitNamed = "Do you want to save changes to battery.script?";

const Row kRows[] = {
    {"funNew", Untitled, false, nullptr, "", kNo, Dialog::NotAsked, true, nullptr},
    {"funNew", Untitled, true, kSave, "Save?", kYes, Dialog::Chosen, true, kChosen},
    {"funNew", Untitled, true, kSave, "Save?", kYes, Dialog::Cancelled, true, nullptr},
    {"funNew", Untitled, true, kSave, "Save?", kNo, Dialog::NotAsked, true, nullptr},
    {"funNew", Untitled, true, kSave, "Save?", kCancel, Dialog::NotAsked, false, nullptr},
    {"funNew", Named, true, kSaveNamed, "Save?", kYes, Dialog::NotAsked, true, kOwn},
    {"funNew", Named, true, kSaveNamed, "Save?", kNo, Dialog::NotAsked, true, nullptr},
    {"funNew", Named, true, kSaveNamed, "Save?", kCancel, Dialog::NotAsked, false, nullptr},
    {"funOpen", Untitled, false, nullptr, "", kNo, Dialog::NotAsked, true, nullptr},
    {"funOpen", Untitled, true, kOpen, "Save?", kYes, Dialog::Chosen, true, kChosen},
    {"funOpen", Untitled, true, kOpen, "Save?", kYes, Dialog::Cancelled, true, nullptr},
    {"funOpen", Named, true, kOpenNamed, "Save?", kYes, Dialog::NotAsked, true, kOwn},
    {"funOpen", Named, true, kOpenNamed, "Save?", kNo, Dialog::NotAsked, true, nullptr},
    {"funOpen", Named, true, kOpenNamed, "Save?", kCancel, Dialog::NotAsked, false, nullptr},
    {"funClose", Untitled, false, nullptr, "", kNo, Dialog::NotAsked, true, nullptr},
    {"funClose", Untitled, true, kExit, "Brindlex", kYes, Dialog::Chosen, true, kChosen},
    {"funClose", Untitled, true, kExit, "Brindlex", kYes, Dialog::Cancelled, true, nullptr},
    {"funClose", Untitled, true, kExit, "Brindlex", kNo, Dialog::NotAsked, true, nullptr},
    {"funClose", Untitled, true, kExit, "Brindlex", kCancel, Dialog::NotAsked, false, nullptr},
    {"funClose", Named, true, kExitNamed, "Brindlex", kYes, Dialog::NotAsked, true, kOwn},
    {"funClose", Named, true, kExitNamed, "Brindlex", kCancel, Dialog::NotAsked, false, nullptr},
};

class SaveQuestionTest : public ShellTest, public testing::WithParamInterface<Row> {
  protected:
    void expectQuestions() {
        const Row& row = GetParam();
        if (row.question) desktop.expectBox(saveQuestion(row.question, row.boxTitle), row.answer);
        if (row.dialog == Dialog::Chosen) desktop.expectFile(saveDialog(), folder.path(kChosen));
        if (row.dialog == Dialog::Cancelled) desktop.expectFile(saveDialog(), Cancelled{});
        if (row.command == std::string("funOpen") && row.goesOn)
            desktop.expectFile(openDialog(), folder.path("scripts/next.script"));
    }
    std::string titleThen(const std::string& before) const {
        const Row& row = GetParam();
        if (!row.goesOn) return before;
        if (row.command == std::string("funNew")) return "Untitled - Brindlex";
        if (row.command == std::string("funOpen")) return "next.script - Brindlex";
        if (!row.savedTo) return before;
        return row.savedTo == kOwn ? "battery.script - Brindlex" : "chosen.script - Brindlex";
    }
};

TEST_P(SaveQuestionTest, SavesOrLeavesAsAnswered) {
    const Row& row = GetParam();
    folder.put("scripts/next.script", "next");
    start(row.kind == Named ? folder.path(kOwn) : QString());
    if (row.dirty) type("x");
    const std::string text = editor().Text();
    const std::string before = title();
    expectQuestions();
    trigger(row.command);

    EXPECT_TRUE(desktop.allAsked());
    EXPECT_EQ(title(), titleThen(before));
    const std::string saved = text + "\r\n";
    EXPECT_EQ(folder.get(kOwn), row.savedTo == kOwn ? saved : "spawn\r\n");
    EXPECT_EQ(folder.get(kChosen), row.savedTo == kChosen ? saved : "(none)");
    const bool exits = row.command == std::string("funClose");
    EXPECT_EQ(ends, exits && row.goesOn ? 1 : 0);
    EXPECT_EQ(window().isVisible(), ends == 0);
    if (!row.goesOn || exits)
        EXPECT_EQ(editor().Text(), text);
    else
        EXPECT_NE(editor().Text(), row.dirty ? text : "");
}

INSTANTIATE_TEST_SUITE_P(Rows, SaveQuestionTest, testing::ValuesIn(kRows));

TEST_F(ShellTest, ClosingAgainWhileTheQuestionIsOpenAsksNothing) {
    start();
    type("x");
    desktop.expectBox(saveQuestion(kExit, "Brindlex"), BoxAnswer::Cancel, [this] {
        QCloseEvent again;
        QCoreApplication::sendEvent(&window(), &again);
        EXPECT_FALSE(again.isAccepted());
    });
    window().close();
    EXPECT_EQ(ends, 0);
    EXPECT_TRUE(window().isVisible());
}

TEST_F(ShellTest, AComposedTextBelongsToTheDocumentThatACommandFinds) {
    startNamed();
    const auto compose = [this] {
        QInputMethodEvent event(QStringLiteral("new"), {});
        QCoreApplication::sendEvent(&editor().rtb(), &event);
    };
    compose();
    trigger("funSave");
    EXPECT_EQ(folder.get(kOwn), "newspawn\r\n\r\n");
    compose();
    desktop.expectBox(saveQuestion("Do you want to save changes to battery.script?", "Brindlex"),
                      BoxAnswer::Cancel);
    window().close();
    EXPECT_EQ(editor().Text(), "newnewspawn\r\n");
}

TEST_F(ShellTest, ADroppedFileIsOpenedBehindTheQuestion) {
    startNamed();
    folder.put("scripts/next.script", "next");
    type("x");
    const std::pair<BoxAnswer, const char*> rows[] = {{kCancel, "battery.script - Brindlex*"},
                                                      {kYes, "next.script - Brindlex"}};
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(folder.path("scripts/next.script"))});
    for (const auto& [answer, titleThen] : rows) {
        desktop.expectBox(saveQuestion(kOpenNamed), answer);
        QDragEnterEvent enter({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &enter);
        QDropEvent drop({9, 9}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&window(), &drop);
        QCoreApplication::processEvents();
        EXPECT_EQ(title(), titleThen);
    }
    EXPECT_EQ(document().MapName(), "next.map");
    EXPECT_EQ(editor().Text(), "next");
    EXPECT_EQ(folder.get(kOwn), "xspawn\r\n\r\n");
}

}  // namespace
}  // namespace brindlex
