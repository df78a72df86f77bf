#include <QCloseEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QUrl>
#include <tuple>

#include "shell/ShellTest.h"

namespace brindlex {
namespace {

constexpr auto kYes = BoxAnswer::Yes;
constexpr auto kNo = BoxAnswer::No;
constexpr auto kCancel = BoxAnswer::Cancel;
constexpr const char* kOwn = "scripts/battery.script";

/// A command that takes the text away.
struct Command {
    std::string name;
    const char* boxTitle;
    const char* question;  // about a document without a name
    const char* questionNamed;
    std::string then;  // the title; empty: closing leaves it and the text
    std::string textThen;
};
const Command kCommands[] = {
    {"funNew", "Save?", "Do you want to save?", "Do you want to save battery.script?",
     "Untitled - Brindlex", "preset\r\n"},
    {"funOpen", "Save?", "Do you want to save Untitled", "Do you want to save battery.script",
     "next.script - Brindlex", "next"},
    {"funClose", "Brindlex", "Do you want to save changes to Untitled?",
     "Do you want to save changes to battery.script?", "", ""}};

struct Answers {
    bool isNamed;
    BoxAnswer answer;
    std::string savedTo;  // empty after a Yes: the save dialog is cancelled
};
const Answers kAnswers[] = {{false, kYes, "chosen.script"}, {false, kYes, ""}, {false, kNo, ""},
                            {false, kCancel, ""},           {true, kNo, ""},   {true, kCancel, ""},
                            {true, kYes, "battery.script"}};

class SaveQuestionTest : public ShellTest,
                         public testing::WithParamInterface<std::tuple<Command, Answers>> {};

TEST_P(SaveQuestionTest, SavesOrLeavesAsAnswered) {
    const auto& [command, row] = GetParam();
    folder.put("scripts/next.script", "next");
    start(row.isNamed ? folder.path(kOwn) : QString());
    type("x");
    const std::string before = title();
    const std::string text = editor().Text();
    const bool closes = command.then.empty();
    desktop.expectBox(
        saveQuestion(row.isNamed ? command.questionNamed : command.question, command.boxTitle),
        row.answer);
    if (row.answer == kYes && !row.isNamed)
        desktop.expectFile(saveDialog(), row.savedTo.empty()
                                             ? FileAnswer(Cancelled{})
                                             : folder.path("scripts/" + row.savedTo));
    const bool goesOn = row.answer != kCancel;
    if (goesOn && command.name == "funOpen")
        desktop.expectFile(openDialog(), folder.path("scripts/next.script"));
    trigger(command.name.c_str());

    const auto bytesOf = [&, &savedTo = row.savedTo](const char* file, const char* unsaved) {
        return savedTo == file ? text + "\r\n" : unsaved;
    };
    EXPECT_EQ(folder.get(kOwn), bytesOf("battery.script", "spawn\r\n"));
    EXPECT_EQ(folder.get("scripts/chosen.script"), bytesOf("chosen.script", "(none)"));
    const bool stays = closes || !goesOn;
    const std::string titleKept = row.savedTo.empty() ? before : row.savedTo + " - Brindlex";
    EXPECT_EQ(title(), stays ? titleKept : command.then);
    EXPECT_EQ(editor().Text(), stays ? text : command.textThen);
    EXPECT_EQ(ends, goesOn && closes ? 1 : 0);
    EXPECT_EQ(window().isVisible(), ends == 0);
}

INSTANTIATE_TEST_SUITE_P(Rows, SaveQuestionTest,
                         testing::Combine(testing::ValuesIn(kCommands),
                                          testing::ValuesIn(kAnswers)));

TEST_F(ShellTest, ASecondCloseWhileTheQuestionIsOpenAsksNothing) {
    startNamed();
    type("x");
    const auto close = [this] {
        QCloseEvent event;
        QCoreApplication::sendEvent(&window(), &event);
    };
    desktop.expectBox(saveQuestion(kCommands[2].questionNamed, "Brindlex"), kCancel, close);
    close();
    EXPECT_EQ(ends, 0);
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
    desktop.expectBox(saveQuestion(kCommands[2].questionNamed, "Brindlex"), kCancel);
    window().close();
    EXPECT_EQ(editor().Text(), "newnewspawn\r\n");
}

TEST_F(ShellTest, ADroppedFileIsOpenedBehindTheQuestion) {
    startNamed();
    folder.put("scripts/next.script", "next");
    type("x");
    const struct {
        QWidget& target;
        BoxAnswer answer;
        const char* titleThen;
    } rows[] = {{window(), kCancel, "battery.script - Brindlex*"},
                {*editor().rtb().viewport(), kYes, "next.script - Brindlex"}};
    for (const auto& row : rows) {
        desktop.expectBox(saveQuestion(kCommands[1].questionNamed), row.answer);
        drop(row.target, "scripts/next.script");
        QCoreApplication::processEvents();
        EXPECT_EQ(title(), row.titleThen);
    }
    EXPECT_EQ(editor().Text(), "next");
    EXPECT_EQ(folder.get(kOwn), "xspawn\r\n\r\n");
}

}  // namespace
}  // namespace brindlex
