#include "document/Document.h"

#include <sys/stat.h>

#include <QListWidget>
#include <string>
#include <tuple>

#include "shell/ShellTest.h"

namespace brindlex {
namespace {

using DocumentTest = ShellTest;

TEST_F(DocumentTest, NewDocumentStartsFromThePresetCleanAndUntitled) {
    start();
    EXPECT_EQ(editor().Text(), "preset\r\n");
    EXPECT_EQ(title(), "Untitled - Brindlex");
    EXPECT_EQ(window().FormCount("FRMMAIN"), 1);
    EXPECT_EQ(program->state().BlockNames, std::vector<std::string>{"game_manager"});
    type("x");
    EXPECT_EQ(title(), "Untitled - Brindlex*");
    put("GetPreset", "0");
    start();
    EXPECT_EQ(editor().Text(), "");
    EXPECT_EQ(title(), "Untitled - Brindlex");
    type("a");
    EXPECT_TRUE(program->state().UndoStack.empty()) << "not ready before a first load";
    desktop.expectBox(saveQuestion("Do you want to save Untitled"), BoxAnswer::No);
    open("scripts/battery.script");
    trigger("funNew");
    EXPECT_TRUE(document().EditorReady());
    EXPECT_EQ(editor().Text(), "");
}

TEST_F(DocumentTest, SavesAreTheBytesOfTheTextAndOneLineEnd) {
    const std::string text("a\xE4\0\x80\tb\r\nc", 9);
    folder.put("scripts/bytes.script", text);
    start(folder.path("scripts/bytes.script"));
    type("x");
    trigger("funSave");
    EXPECT_EQ(folder.get("scripts/bytes.script"), "x" + text + "\r\n");
    EXPECT_EQ(title(), "bytes.script - Brindlex");
    type("y");
    desktop.expectFile(saveDialog(), folder.path("scripts/other"));
    trigger("funSaveAs");
    EXPECT_EQ(folder.get("scripts/other"), "xy" + text + "\r\n");
    EXPECT_EQ(title(), "other - Brindlex");
    EXPECT_EQ(document().MapName(), "bytes.map");
    type("z");
    trigger("funSave");
    EXPECT_EQ(folder.get("scripts/other"), "xyz" + text + "\r\n");
    EXPECT_EQ(folder.get("scripts/bytes.script"), "x" + text + "\r\n");
}

TEST_F(DocumentTest, ASaveWritesTheFileThatWasOpenedAndNoOther) {
    for (const char* asked : {"scripts/Bay.script", "scripts/BAY.script"}) {
        folder.put("scripts/Bay.script", "upper");
        folder.put("scripts/bay.script", "lower");
        start(folder.path(asked));
        std::filesystem::remove(folder.at("scripts/Bay.script"));
        type("x");
        trigger("funSave");
        EXPECT_EQ(folder.get("scripts/Bay.script"), "xupper\r\n");
        EXPECT_EQ(folder.get("scripts/bay.script"), "lower");
    }
}

TEST_F(DocumentTest, SavePresetLeavesTheDocumentAsItIs) {
    start();
    type("x");
    const std::pair<BoxAnswer, std::string> rows[] = {{BoxAnswer::No, "preset\r\n"},
                                                      {BoxAnswer::Yes, "xpreset\r\n\r\n"}};
    for (const auto& [answer, preset] : rows) {
        desktop.expectBox(kPresetQuestion, answer);
        trigger("funSavePreset");
        EXPECT_EQ(folder.get("program/preset.txt"), preset);
    }
    EXPECT_EQ(title(), "Untitled - Brindlex*");
}

TEST_F(DocumentTest, WritesThatFailCountAsSavedAndKeepTheText) {
    startNamed();
    type("x");
    std::filesystem::remove_all(folder.at("scripts"));
    trigger("funSave");
    EXPECT_EQ(title(), "battery.script - Brindlex");
    EXPECT_EQ(editor().Text(), "xspawn\r\n");
    folder.put("wall/file", "");
    desktop.expectFile(saveDialog(), folder.path("wall"));
    trigger("funSaveAs");
    EXPECT_EQ(title(), "wall - Brindlex");
    desktop.expectFile(openDialog(), DialogFailure{7, "No disk."});
    desktop.expectBox({"Error 7 selecting file.\r\nNo disk.", "Brindlex"});
    trigger("funOpen");
    EXPECT_EQ(editor().Text(), "xspawn\r\n");
}

// --- What cannot be read -------------------------------------------------------------------------

class UnreadableTest : public ShellTest, public testing::WithParamInterface<const char*> {
  protected:
    UnreadableTest() {
        folder.put("scripts/folder/file", "");
        mkfifo(folder.at("scripts/fifo").c_str(), 0600);
        // Too large to be read; it takes no room on the disk.
        folder.put("scripts/huge", "");
        std::filesystem::resize_file(folder.at("scripts/huge"), std::uintmax_t(3) << 30);
    }
    QStringList errors() {
        QStringList lines;
        auto& list = control<QListWidget>("txtError");
        for (int i = 0; i < list.count(); ++i) lines += list.item(i)->text();
        return lines;
    }
    const std::string path = std::string("scripts/") + GetParam();
};

TEST_P(UnreadableTest, OpenReportsItAndChangesNothing) {
    startNamed();
    type("x");
    desktop.expectBox(saveQuestion("Do you want to save battery.script"), BoxAnswer::No);
    open(path);
    EXPECT_EQ(errors(), QStringList("(12:00:00) - Error: Unknown error involving the script or map "
                                    "file."));
    EXPECT_EQ(editor().Text(), "xspawn\r\n");
    EXPECT_EQ(title(), "battery.script - Brindlex*");
    EXPECT_EQ(document().MapName(), "battery.map");
}

TEST_P(UnreadableTest, OnTheCommandLineItIsAnEmptyTextOfThatName) {
    start(folder.path(path));
    EXPECT_EQ(editor().Text(), "");
    EXPECT_EQ(title(), std::string(GetParam()) + " - Brindlex");
    EXPECT_EQ(errors(), QStringList());
    type("x");
    desktop.expectFile(saveDialog(), folder.path("scripts/other.script"));
    trigger("funSave");
    EXPECT_EQ(folder.get("scripts/other.script"), "x\r\n") << "never over what was not read";
    type("y");
    trigger("funSave");
    EXPECT_EQ(folder.get("scripts/other.script"), "xy\r\n");
}

TEST_P(UnreadableTest, AsAPresetItStartsEmptyAndMakesNewDoNothing) {
    std::filesystem::remove(folder.at("program/preset.txt"));
    std::error_code ignored;
    std::filesystem::rename(folder.at(path), folder.at("program/preset.txt"), ignored);
    start();
    EXPECT_EQ(title(), "Untitled - Brindlex");
    type("x");
    desktop.expectBox(saveQuestion("Do you want to save?"), BoxAnswer::No);
    trigger("funNew");
    EXPECT_EQ(editor().Text(), "x");
    EXPECT_EQ(title(), "Untitled - Brindlex*");
}

INSTANTIATE_TEST_SUITE_P(Paths, UnreadableTest,
                         testing::Values("missing", "folder", "fifo", "huge"));

// --- Names ---------------------------------------------------------------------------------------

TEST_F(DocumentTest, TheNameGivesTitleMapAndBaseName) {
    const std::tuple<std::string, std::string, std::string> rows[] = {
        {"battery_fort.txt", "battery_f.map", "battery_f"},
        {".script", ".map", ""},
        {"a.b.c", "a.b.map", "a.b"},
        {"R&D [*] 50%1.script", "R&D [*] 50%1.map", "R&D [*] 50%1"},
    };
    for (const auto& [fileName, mapName, baseName] : rows) {
        folder.put("scripts/" + fileName, "text");
        start(folder.path("scripts/" + fileName));
        EXPECT_EQ(title(), fileName + " - Brindlex");
        EXPECT_EQ(document().MapName().toStdString(), mapName);
        trigger("funInsMap");
        EXPECT_EQ(editor().SelText(), baseName);
        EXPECT_EQ(editor().Text(), baseName + "text");
    }
    // the toolkit's place holder; twice means once, to the letter
    EXPECT_EQ(window().windowTitle(), "R&D [*][*] 50%1.script - Brindlex*");
}

TEST_F(DocumentTest, CommandLinesAreOnePathLessItsQuotes) {
    folder.put("scripts/two words.script", "found");
    const QString path = folder.path("scripts/two words.script");
    const QString half = path.left(path.size() / 2);
    const QString rows[] = {path, '"' + path + '"', half + '"' + path.mid(half.size())};
    for (const QString& row : rows) {
        start(row);
        EXPECT_EQ(editor().Text(), "found") << row.toStdString();
        EXPECT_EQ(document().FilePath(), path);
    }
    start(path + ' ' + path);
    EXPECT_EQ(editor().Text(), "");
    EXPECT_EQ(title(), "two words.script - Brindlex");
}

TEST_F(DocumentTest, InsertsNeedAName) {
    start();
    desktop.expectBox({"Load or save your script first.", "Load", BoxIcon::Information});
    trigger("funInsMap");
    editor().SetSelStart(2);
    editor().SetSelLength(2);
    trigger("funInsTD");
    EXPECT_NE(editor().SelText().find("03"), std::string::npos);  // 2003-05-29 in some short form
    EXPECT_EQ(editor().Text(), "pr" + editor().SelText() + "et\r\n");
    // A handler that edits as well must not move what is selected, nor make it negative.
    startNamed();
    editor().onChange = [&, own = editor().onChange] {
        own();
        if (editor().Text().size() < 60) editor().SetSelText("completed");
    };
    trigger("funInsMap");
    EXPECT_EQ(editor().SelText(), "battery");
}

}  // namespace
}  // namespace brindlex
