#include "shell/Module1.h"

#include "ShellTest.h"

namespace brindlex {
namespace {

TEST_F(ShellTest, BrowsingWithoutAChoiceGivesTheFolderOfTheSettings) {
    start();
    AppState& state = program->state();
    state.WolfDir = "/maps";
    const std::pair<std::optional<QString>, QString> rows[] = {
        {"/other", "/other"}, {"", "/maps"}, {std::nullopt, "/maps"}};
    for (const auto& [answer, expected] : rows) {
        desktop.expectFolder("Select Folder", "/maps", answer);
        EXPECT_EQ(BrowseForFolder(desktop, state, nullptr, "Select Folder"), expected);
    }
}

}  // namespace
}  // namespace brindlex
