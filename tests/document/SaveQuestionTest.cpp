#include <QAbstractButton>
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
    const char* chosen;  // in the save dialog; null: it is not asked, "": cancelled
    std::string savedTo;
};
const Answers kAnswers[] = {{false, kYes, "chosen.script", "chosen.script"},
                            {false, kYes, "", ""},
                            {false, kNo, nullptr, ""},
                            {false, kCancel, nullptr, ""},
                            {true, kYes, nullptr, "battery.script"},
                            {true, kNo, nullptr, ""},
                            {true, kCancel, nullptr, ""}};

class SaveQuestionTest : public ShellTest,
                         public testing::WithParamInterface<std::tuple<Command, Answers>> {};

TEST_P(SaveQuestionTest, SavesOrLeavesAsAnswered) {
    const auto& [command, row] = GetParam();
    SCOPED_TRACE(testing::Message()
                 << command.name << (row.isNamed ? " named " : " untitled ") << int(row.answer));
    folder.put("scripts/next.script", "next");
    start(row.isNamed ? folder.path(kOwn) : QString());
    type("x");
    const std::string before = title();
    const std::string text = editor().Text();
    const bool closes = command.then.empty();
    desktop.expectBox(
        saveQuestion(row.isNamed ? command.questionNamed : command.question, command.boxTitle),
        row.answer, [this, closes] {
            QCloseEvent again;  // asks nothing
            if (closes) QCoreApplication::sendEvent(&window(), &again);
        });
    if (row.chosen)
        desktop.expectFile(saveDialog(), *row.chosen
                                             ? folder.path(std::string("scripts/") + row.chosen)
                                             : FileAnswer(Cancelled{}));
    const bool goesOn = row.answer != kCancel;
    if (goesOn && command.name == "funOpen")
        desktop.expectFile(openDialog(), folder.path("scripts/next.script"));
    trigger(command.name.c_str());

    for (const std::string file : {"battery.script", "chosen.script"}) {
        const std::string unsaved = file == "battery.script" ? "spawn\r\n" : "(none)";
        EXPECT_EQ(folder.get("scripts/" + file), row.savedTo == file ? text + "\r\n" : unsaved);
    }
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
    compose();
    control<QAbstractButton>("tbCOM").click();
    EXPECT_EQ(editor().Text(), "//newnewnewspawn\r\n");
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
    EXPECT_EQ(document().MapName(), "next.map");
    EXPECT_EQ(editor().Text(), "next");
    EXPECT_EQ(folder.get(kOwn), "xspawn\r\n\r\n");
}

}  // namespace
}  // namespace brindlex
