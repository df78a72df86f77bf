#include "system/Files.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <tuple>

#include "support/PlainUser.h"
#include "support/TempFolder.h"
#include "text/Random.h"

namespace brindlex {
namespace {

namespace fs = std::filesystem;

// --- Contents ------------------------------------------------------------------------------------

TEST(Files, ContentsComeBackAsWrittenAndAGiantIsRefused) {
    const TempFolder folder;
    const std::string contents[] = {"a", "", test::allBytes(),
                                    test::Random(1).text((5 << 20) + 1, test::allBytes()),
                                    "lf\ncr\rboth\r\n"};
    for (const std::string& bytes : contents) {
        ASSERT_TRUE(Files::write(folder.path("a.script"), bytes));
        EXPECT_TRUE(folder.get("a.script") == bytes);
        EXPECT_TRUE(Files::read(folder.path("a.script")) == bytes);
    }
    EXPECT_EQ(folder.count(), 1);
    fs::resize_file(folder.at("a.script"), 200 << 20);
    EXPECT_EQ(Files::read(folder.path("a.script")).value_or("").size(), 200U << 20);
    fs::resize_file(folder.at("a.script"), (std::uintmax_t{1} << 30) + 1);
    EXPECT_FALSE(Files::read(folder.path("a.script")));
}

// --- Names ---------------------------------------------------------------------------------------

TEST(Files, NamesAreFoundExactlyFirstThenButForCase) {
    const std::pair<const char*, const char*> rows[] = {
        // asked and found; null: there is none
        {"maps\\SUB\\one.Script", "Maps/Sub/One.script"},
        {"maps/two.script", "Maps/two.script"},
        {"Maps/Two.Script", "Maps/TWO.script"},
        {"Maps/A[1].SCRIPT", "Maps/a[1].script"},
        {"Maps/*.script", nullptr},
        {"Maps", nullptr},
        {"Maps/two.script/", nullptr},
        {"Gone/two.script", nullptr},
    };
    const TempFolder folder;
    for (const char* name : {"Maps/Sub/One.script", "Maps/two.SCRIPT", "Maps/TWO.script",
                             "Maps/two.script", "Maps/a[1].script"})
        folder.put(name, name);
    for (const auto& [asked, found] : rows) {
        SCOPED_TRACE(asked);
        const QString path = folder.path(asked);
        EXPECT_EQ(Files::exists(path), found != nullptr);
        EXPECT_EQ(Files::read(path), found ? std::optional<std::string>(found) : std::nullopt);
    }
    folder.put(".hidden", "x");
    EXPECT_FALSE(Files::exists(folder.path(".hidden")));
    EXPECT_EQ(Files::read(folder.path(".hidden")), "x");
    EXPECT_EQ(Files::resolve(folder.path("MAPS\\sub")), folder.path("Maps/Sub"));
}

TEST(Files, OnlyTheFileOfExactlyThatNameIsWrittenOver) {
    const TempFolder folder;
    folder.put("Maps/Bay.script", "another");
    EXPECT_TRUE(Files::write(folder.path("Maps\\bay.script"), "mine"));
    EXPECT_EQ(folder.get("Maps/bay.script"), "mine");
    EXPECT_EQ(folder.get("Maps/Bay.script"), "another");
    EXPECT_FALSE(Files::write(folder.path("maps/Bay.script"), "mine"));
    EXPECT_EQ(folder.get("Maps/Bay.script"), "another");
}

TEST(Files, WhatIsNoPlainFileIsNeitherReadNorWritten) {
    const TempFolder folder;
    mkfifo(folder.at("pipe").c_str(), 0666);
    fs::create_symlink("pipe", folder.at("link"));
    fs::create_symlink("b", folder.at("a"));
    fs::create_symlink("a", folder.at("b"));
    const QString paths[] = {folder.path(),
                             folder.path("pipe"),
                             folder.path("link"),
                             folder.path("a"),  // a circle of links
                             folder.path("x") + QChar(0) + "b",
                             folder.path(std::string(300, 'x')),
                             "",
                             "/dev/zero",
                             "C:\\Games\\et\\etmain\\maps",
                             ":/qt-project.org/styles/commonstyle/images/closedock-16.png"};
    for (const QString& path : paths) {
        SCOPED_TRACE(path.toStdString());
        EXPECT_FALSE(Files::exists(path));
        EXPECT_FALSE(Files::read(path));
        EXPECT_FALSE(Files::write(path, "x"));
    }
    EXPECT_EQ(folder.count(), 4);
}

// --- What stands on the disk after a write -------------------------------------------------------

TEST(Files, LinksAreWrittenThroughAlsoToAFileNotThereYet) {
    const TempFolder folder;
    folder.put("real/deep/old.script", "old");
    fs::create_symlink("real/deep", folder.at("short"));
    fs::create_symlink("../deep/old.script", folder.at("real/deep/link"));
    fs::create_symlink("../new.script", folder.at("real/deep/dangling"));
    EXPECT_TRUE(Files::write(folder.path("short/link"), "one"));
    EXPECT_EQ(folder.get("real/deep/old.script"), "one");
    EXPECT_TRUE(Files::write(folder.path("short/dangling"), "two"));
    EXPECT_EQ(folder.get("real/new.script"), "two");
    EXPECT_TRUE(fs::is_symlink(folder.at("real/deep/link")));
    EXPECT_TRUE(fs::is_symlink(folder.at("real/deep/dangling")));
}

void giveToNobody(const fs::path& path, mode_t mode) {
    ASSERT_TRUE(getuid() != 0 || chown(path.c_str(), kNobody, kNobody) == 0);
    ASSERT_EQ(chmod(path.c_str(), mode), 0);
}

TEST(Files, PermissionsAndOwnerStay) {
    const TempFolder folder;
    const auto attributes = [&] {
        struct stat now {};
        stat(folder.at("a.script").c_str(), &now);
        return std::tuple(now.st_mode, now.st_uid, now.st_gid);
    };
    folder.put("a.script", "old");
    giveToNobody(folder.at("a.script"), 0646);
    const auto before = attributes();
    EXPECT_TRUE(Files::write(folder.path("a.script"), "new"));
    EXPECT_EQ(attributes(), before);
}

// --- A disk that fails ---------------------------------------------------------------------------

/// Writes as a plain user for whom no file can grow past `diskSpace`: writing fails half-way, as on
/// a full disk.
bool writesAsNobody(const QString& path, const std::string& bytes, rlim_t diskSpace) {
    return asPlainUser([&] {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{diskSpace, RLIM_INFINITY};
        return setrlimit(RLIMIT_FSIZE, &limit) == 0 && Files::write(path, bytes);
    });
}

TEST(Files, AFailingDiskLeavesTheOldFileWhole) {
    const struct {
        const char* name;
        mode_t folderMode, fileMode;
        rlim_t diskSpace;
        std::size_t newSize;
        bool succeeds;
    } faults[] = {
        {"no fault", 0700, 0600, RLIM_INFINITY, 5, true},
        {"nothing fits", 0700, 0600, 0, 5, false},
        {"full half-way", 0700, 0600, 50000, 60000, false},
        {"read-only file", 0700, 0400, RLIM_INFINITY, 5, false},
        {"read-only folder", 0500, 0600, RLIM_INFINITY, 150000, true},
        {"read-only folder, to be empty", 0500, 0600, RLIM_INFINITY, 0, true},
        {"read-only folder and file", 0500, 0400, RLIM_INFINITY, 5, false},
        {"read-only folder, full, growing", 0500, 0600, 120000, 150000, false},
        {"read-only folder, full, shrinking", 0500, 0600, 20000, 50000, false},
    };
    const std::string oldText(100000, 'o');
    for (const auto& fault : faults) {
        SCOPED_TRACE(fault.name);
        const TempFolder folder;
        const std::string newText(fault.newSize, 'n');
        folder.put("a.script", oldText);
        giveToNobody(folder.at("a.script"), fault.fileMode);
        giveToNobody(folder.at(), fault.folderMode);
        EXPECT_EQ(writesAsNobody(folder.path("a.script"), newText, fault.diskSpace),
                  fault.succeeds);
        giveToNobody(folder.at(), 0700);
        giveToNobody(folder.at("a.script"), 0600);
        EXPECT_EQ(folder.get("a.script"), fault.succeeds ? newText : oldText);
        EXPECT_EQ(folder.count(), 1) << "something is left in the folder";
    }
}

TEST(Files, ANewFileOnAFullDiskIsNotLeftBehind) {
    const TempFolder folder;
    giveToNobody(folder.at(), 0700);
    const std::string longestName(255, 'n');
    for (const std::string& name : {std::string("a.script"), longestName})
        EXPECT_FALSE(writesAsNobody(folder.path(name), std::string(20, 'x'), 10));
    EXPECT_EQ(folder.count(), 0);
    for (const char* bytes : {"one", "two"}) {
        EXPECT_TRUE(Files::write(folder.path(longestName), bytes));
        EXPECT_EQ(folder.get(longestName), bytes);
    }
}

}  // namespace
}  // namespace brindlex
