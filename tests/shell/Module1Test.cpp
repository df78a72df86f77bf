#include "shell/Module1.h"

#include "ShellTest.h"

namespace brindlex {
namespace {

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
    EXPECT_EQ(other.state().BlockNames, std::vector<std::string>{"game_manager"});
}

}  // namespace
}  // namespace brindlex
