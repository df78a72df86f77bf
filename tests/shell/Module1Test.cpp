#include "shell/Module1.h"

#include "ShellTest.h"

namespace brindlex {
namespace {

TEST(Module1Test, NamesStandBehindTheLastSeparator) {
    const std::pair<const char*, const char*> rows[] = {{"C:\\maps\\a.script", "a.script"},
                                                        {"/maps/a.script", "a.script"},
                                                        {"/maps\\a", "a"},
                                                        {"a.script", "a.script"},
                                                        {"/maps/", ""},
                                                        {"", ""}};
    for (const auto& [path, name] : rows) EXPECT_EQ(FileNameOf(path), name) << path;
}

TEST_F(ShellTest, FilesExistWhateverTheirCase) {
    const std::pair<const char*, bool> rows[] = {{"scripts/battery.script", true},
                                                 {"scripts\\BATTERY.Script", true},
                                                 {"scripts/*.script", false},
                                                 {"scripts", false},
                                                 {"scripts/none", false}};
    for (const auto& [name, exists] : rows)
        EXPECT_EQ(FileExists(folder.path(name)), exists) << name;
    EXPECT_FALSE(FileExists(""));
}

TEST_F(ShellTest, BrowsingWithoutAChoiceGivesTheFolderOfTheSettings) {
    AppState state;
    state.WolfDir = "/maps";
    const std::pair<std::optional<QString>, QString> rows[] = {
        {"/other", "/other"}, {"", "/maps"}, {std::nullopt, "/maps"}};
    for (const auto& [answer, expected] : rows) {
        desktop.expectFolder("Select Folder", "/maps", answer);
        EXPECT_EQ(BrowseForFolder(desktop, state, nullptr, "Select Folder"), expected);
    }
}

TEST_F(ShellTest, ProgramsDoNotShareTheirState) {
    start();
    FakeDesktop otherDesktop;
    SettingsStore otherSettings(folder.path("other settings"));
    Program other({otherDesktop, otherSettings, folder.path("program"), {}, [] {}});
    Main(other);
    type("x");
    EXPECT_FALSE(other.mainWindow().document().Dirty());
    EXPECT_EQ(other.mainWindow().FormCount("FRMMAIN"), 1);
    EXPECT_EQ(window().FormCount("frmOptions"), 1);
    EXPECT_EQ(window().FormCount("frmFind"), 0);
    EXPECT_EQ(other.state().BlockNames, std::vector<std::string>{"game_manager"});
}

}  // namespace
}  // namespace brindlex
