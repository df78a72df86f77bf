#include "document/Document.h"

#include <sys/stat.h>

#include <QListWidget>
#include <string>
#include <utility>

#include "shell/ShellTest.h"

namespace brindlex {
namespace {

using DocumentTest = ShellTest;

TEST_F(DocumentTest, WithoutAPresetANewDocumentIsEmpty) {
    put("GetPreset", "0");
    start();
    EXPECT_EQ(editor().Text(), "");
    EXPECT_EQ(title(), "Untitled - Brindlex");
}

TEST_F(DocumentTest, SavesAreTheBytesOfTheTextAndOneLineEnd) {
    const std::string text("a\xE4\0\x80\tb\r\nc", 9);
    folder.put("scripts/bytes.script", text);
    start(folder.path("scripts/bytes.script"));
    type("x");
    trigger("funSave");
    EXPECT_EQ(folder.get("scripts/bytes.script"), "x" + text + "\r\n");
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
    for (const auto answer : {BoxAnswer::No, BoxAnswer::Yes}) {
        EXPECT_EQ(folder.get("program/preset.txt"), "preset\r\n");
        desktop.expectBox(kPresetQuestion, answer);
        trigger("funSavePreset");
    }
    EXPECT_EQ(folder.get("program/preset.txt"), "xpreset\r\n\r\n");
    EXPECT_EQ(title(), "Untitled - Brindlex*");
}

TEST_F(DocumentTest, WritesThatFailCountAsSavedAndKeepTheText) {
    startNamed();
    type("x");
    std::filesystem::remove_all(folder.at("scripts"));
    trigger("funSave");
    EXPECT_EQ(title(), "battery.script - Brindlex");
    desktop.expectFile(saveDialog(), folder.path("program"));
    trigger("funSaveAs");
    EXPECT_EQ(title(), "program - Brindlex");
    desktop.expectFile(openDialog(), DialogFailure{7, "No disk."});
    desktop.expectBox({"Error 7 selecting file.\r\nNo disk.", "Brindlex"});
    trigger("funOpen");
    EXPECT_EQ(editor().Text(), "xspawn\r\n");
}

// --- What cannot be read -------------------------------------------------------------------------

class UnreadableTest : public ShellTest, public testing::WithParamInterface<std::string> {
  protected:
    UnreadableTest() {
        folder.put("scripts/folder/file", "");
        mkfifo(folder.at("scripts/fifo").c_str(), 0600);
        // Too large to be read; it takes no room on the disk.
        folder.put("scripts/huge", "");
        std::filesystem::resize_file(folder.at("scripts/huge"), std::uintmax_t(3) << 30);
    }
    QListWidget& errors() { return control<QListWidget>("txtError"); }
    const std::string path = "scripts/" + GetParam();
};

TEST_P(UnreadableTest, OpenReportsItAndChangesNothing) {
    startNamed();
    type("x");
    desktop.expectBox(saveQuestion("Do you want to save battery.script"), BoxAnswer::No);
    open(path);
    ASSERT_EQ(errors().count(), 1);
    EXPECT_EQ(errors().item(0)->text(),
              "(12:00:00) - Error: Unknown error involving the script or map file.");
    EXPECT_EQ(editor().Text(), "xspawn\r\n");
    EXPECT_EQ(title(), "battery.script - Brindlex*");
}

TEST_P(UnreadableTest, OnTheCommandLineItIsAnEmptyTextOfThatName) {
    start(folder.path(path));
    EXPECT_EQ(editor().Text(), "");
    EXPECT_EQ(title(), GetParam() + " - Brindlex");
    EXPECT_EQ(errors().count(), 1) << "that its map is not there";
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
    if (path != "scripts/missing")
        std::filesystem::rename(folder.at(path), folder.at("program/preset.txt"));
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
    const std::pair<std::string, std::string> rows[] = {{"battery_fort.txt", "battery_f"},
                                                        {".script", ""},
                                                        {"a.b.c", "a.b"},
                                                        {"R&D [*] 50%1.script", "R&D [*] 50%1"}};
    for (const auto& [fileName, baseName] : rows) {
        folder.put("scripts/" + fileName, "text");
        start(folder.path("scripts/" + fileName));
        EXPECT_EQ(title(), fileName + " - Brindlex");
        EXPECT_EQ(document().MapName().toStdString(), baseName + ".map");
        trigger("funInsMap");
        EXPECT_EQ(editor().SelText(), baseName);
    }
    // the toolkit's place holder; twice means once, to the letter
    EXPECT_EQ(window().windowTitle(), "R&D [*][*] 50%1.script - Brindlex*");
}

TEST_F(DocumentTest, CommandLinesAreOnePathLessItsQuotes) {
    const QString path = folder.path("scripts/two words.script");
    folder.put("scripts/two words.script", "found");
    for (const QString& line : {path, '"' + path + '"', QString(path).insert(9, '"')}) {
        start(line);
        EXPECT_EQ(editor().Text(), "found") << line.toStdString();
        EXPECT_EQ(document().FilePath(), path);
    }
    start(path + ' ' + path);
    EXPECT_EQ(editor().Text(), "");
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
}

}  // namespace
}  // namespace brindlex
