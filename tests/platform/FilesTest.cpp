#include "platform/Files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QDir>
#include <numeric>

#include "support/HostileSystem.h"
#include "support/TempFolder.h"

namespace brindlex {
namespace {

namespace fs = std::filesystem;
using namespace HostileSystem;

std::string everyByte() {
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

// --- Contents -----------------------------------------------------------------------------------

class FileContents : public testing::TestWithParam<std::string> {};

TEST_P(FileContents, ComeBackAsWritten) {
    const TempFolder folder;
    for (int round = 0; round < 2; ++round) {  // a new file, then over an old one
        ASSERT_TRUE(Files::write(folder.path("a.script"), GetParam()));
        EXPECT_EQ(folder.get("a.script"), GetParam());
        EXPECT_EQ(Files::read(folder.path("a.script")), GetParam());
    }
    EXPECT_EQ(folder.count(), 1);
}

INSTANTIATE_TEST_SUITE_P(Bytes, FileContents,
                         testing::Values("", "a", "lf\ncr\rboth\r\n", everyByte(),
                                         std::string(1 << 20, 'x'), std::string(5000, '\0')));

TEST(Files, ReadsALargeFileWholeAndRefusesAGiant) {
    const TempFolder folder;
    folder.put("a.script", "begin");
    fs::resize_file(folder.at("a.script"), 200U << 20);
    const auto bytes = Files::read(folder.path("a.script"));
    ASSERT_TRUE(bytes);
    EXPECT_EQ(bytes->size(), 200U << 20);
    EXPECT_EQ(bytes->substr(0, 6), std::string("begin\0", 6));
    fs::resize_file(folder.at("a.script"), std::uintmax_t{3} << 30);
    EXPECT_FALSE(Files::read(folder.path("a.script")));
}

// --- Names --------------------------------------------------------------------------------------

struct Name {
    const char* asked;
    const char* found;  ///< relative to the folder; null: there is none
};

class FileNames : public testing::TestWithParam<Name> {};

TEST_P(FileNames, AreFoundExactlyFirstThenButForCase) {
    const TempFolder folder;
    for (const char* name :
         {"Maps/Sub/One.script", "Maps/two.SCRIPT", "Maps/TWO.script", "Maps/two.script",
          "Maps/B.txt", "Maps/b.TXT", "Maps/.hidden", "Maps/a[1].script"})
        folder.put(name, name);
    const auto& [asked, found] = GetParam();
    const QString path = folder.path(asked);
    EXPECT_EQ(Files::exists(path), found != nullptr);
    EXPECT_EQ(Files::read(path), found ? std::optional<std::string>(found) : std::nullopt);
    if (found) {
        EXPECT_EQ(Files::toSystemPath(path), folder.path(found));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Names, FileNames,
    testing::Values(Name{"Maps/Sub/One.script", "Maps/Sub/One.script"},
                    Name{"maps\\SUB\\one.Script", "Maps/Sub/One.script"},
                    Name{"maps/two.script", "Maps/two.script"},
                    Name{"Maps/Two.Script", "Maps/TWO.script"}, Name{"MAPS/b.txt", "Maps/B.txt"},
                    Name{"Maps/A[1].SCRIPT", "Maps/a[1].script"}, Name{"Maps/*.script", nullptr},
                    Name{"Maps/tw?.script", nullptr}, Name{"Maps", nullptr},
                    Name{"Maps/two.script/", nullptr}, Name{"Maps/two.script/x", nullptr},
                    Name{"Gone/two.script", nullptr}, Name{"", nullptr}));

TEST(Files, NamesOfOtherSystemsAndOfTheToolkitDoNotExist) {
    EXPECT_TRUE(Files::exists(QString()) == false && !Files::read(QString()));
    for (const char* path : {"C:\\Program Files\\Wolfenstein - Enemy Territory\\etmain\\maps",
                             ":/qt-project.org/styles/commonstyle/images/closedock-16.png"}) {
        EXPECT_FALSE(Files::exists(QString::fromLatin1(path))) << path;
        EXPECT_FALSE(Files::read(QString::fromLatin1(path))) << path;
        EXPECT_FALSE(Files::write(QString::fromLatin1(path), "x")) << path;
    }
    EXPECT_EQ(Files::toSystemPath("C:\\No Such\\x.map"), QString("C:/No Such/x.map"));
}

TEST(Files, HiddenFilesDoNotExistButCanBeRead) {
    const TempFolder folder;
    folder.put(".hidden", "x");
    EXPECT_FALSE(Files::exists(folder.path(".hidden")));
    EXPECT_EQ(Files::read(folder.path(".hidden")), "x");
}

TEST(Files, WritingUnderAnotherCaseReplacesTheFileThatIsThere) {
    const TempFolder folder;
    folder.put("Maps/One.script", "old");
    EXPECT_TRUE(Files::write(folder.path("maps\\one.SCRIPT"), "new"));
    EXPECT_EQ(folder.get("Maps/One.script"), "new");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.at("Maps")), {}), 1);
}

// --- What is no plain file
// ------------------------------------------------------------------------

struct Oddity {
    const char* name;
    std::function<QString(const TempFolder&)> make;  ///< gives its path
};

class NoPlainFile : public testing::TestWithParam<Oddity> {};

TEST_P(NoPlainFile, IsNeitherReadNorWritten) {
    const TempFolder folder;
    const QString path = GetParam().make(folder);
    EXPECT_FALSE(Files::exists(path));
    EXPECT_FALSE(Files::read(path));
    EXPECT_FALSE(Files::write(path, "x"));
    EXPECT_LE(folder.count(), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Oddities, NoPlainFile,
    testing::Values(
        Oddity{"Folder", [](const TempFolder& folder) { return folder.path(); }},
        Oddity{"Pipe",
               [](const TempFolder& folder) {
                   mkfifo(folder.at("pipe").c_str(), 0666);
                   return folder.path("pipe");
               }},
        Oddity{"LinkToPipe",
               [](const TempFolder& folder) {
                   mkfifo(folder.at("pipe").c_str(), 0666);
                   fs::create_symlink("pipe", folder.at("link"));
                   return folder.path("link");
               }},
        Oddity{"EndlessDevice", [](const TempFolder&) { return QString("/dev/zero"); }},
        Oddity{"FullDevice", [](const TempFolder&) { return QString("/dev/full"); }},
        Oddity{"CircleOfLinks",
               [](const TempFolder& folder) {
                   fs::create_symlink("b", folder.at("a"));
                   fs::create_symlink("a", folder.at("b"));
                   return folder.path("a");
               }},
        Oddity{"InNoFolder", [](const TempFolder& folder) { return folder.path("gone/a.script"); }},
        Oddity{"NulInName",
               [](const TempFolder& folder) { return folder.path("a") + QChar(0) + "b"; }},
        Oddity{"TooLongName",
               [](const TempFolder& folder) { return folder.path(std::string(300, 'x')); }},
        Oddity{"NoName", [](const TempFolder&) { return QString(); }}),
    [](const auto& row) { return std::string(row.param.name); });

// --- What stands on the disk after a write
// --------------------------------------------------------

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

TEST(Files, PermissionsAndOwnerStay) {
    const TempFolder folder;
    folder.put("a.script", "old");
    struct stat before {};
    struct stat after {};
    ASSERT_EQ(chmod(folder.at("a.script").c_str(), 0640), 0);
    if (getuid() == 0) {
        ASSERT_EQ(chown(folder.at("a.script").c_str(), kNobody, kNobody), 0);
    }
    stat(folder.at("a.script").c_str(), &before);
    EXPECT_TRUE(Files::write(folder.path("a.script"), "new"));
    stat(folder.at("a.script").c_str(), &after);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
}

TEST(Files, AFileOfAnotherUserStaysHis) {
    if (getuid() != 0) GTEST_SKIP() << "only root can make files of two users";
    const TempFolder folder;
    folder.put("a.script", "old");
    ASSERT_EQ(chmod(folder.at("a.script").c_str(), 0666), 0);
    ASSERT_EQ(chown(folder.at().c_str(), kNobody, kNobody), 0);
    EXPECT_TRUE(
        inChild([&] { return becomePlainUser() && Files::write(folder.path("a.script"), "new"); }));
    struct stat after {};
    stat(folder.at("a.script").c_str(), &after);
    EXPECT_EQ(after.st_uid, 0U);
    EXPECT_EQ(folder.get("a.script"), "new");
    EXPECT_EQ(folder.count(), 1);
}

TEST(Files, ANameOfTheGreatestLengthCanBeWritten) {
    const TempFolder folder;
    const std::string name(255, 'n');
    EXPECT_TRUE(Files::write(folder.path(name), "one"));
    EXPECT_TRUE(Files::write(folder.path(name), "two"));
    EXPECT_EQ(folder.get(name), "two");
}

// --- A disk that fails
// ----------------------------------------------------------------------------

constexpr std::size_t kOldSize = 100000;

enum class FolderState { Writable, ReadOnly };

struct Fault {
    const char* name;
    FolderState folderState;
    mode_t fileMode;
    rlim_t diskSpace;     ///< the most that a file may hold
    std::size_t newSize;  ///< of the text written over a file of kOldSize
    bool succeeds;
};

class FailingDisk : public testing::TestWithParam<Fault> {};

TEST_P(FailingDisk, LeavesTheOldFileWhole) {
    const Fault& fault = GetParam();
    const TempFolder folder;
    const std::string oldText(kOldSize, 'o');
    const std::string newText(fault.newSize, 'n');
    folder.put("a.script", oldText);
    const bool readOnly = fault.folderState == FolderState::ReadOnly;
    if (getuid() == 0) {
        ASSERT_EQ(chown(folder.at("a.script").c_str(), kNobody, kNobody), 0);
        ASSERT_EQ(chown(folder.at().c_str(), kNobody, kNobody), 0);
    }
    ASSERT_EQ(chmod(folder.at("a.script").c_str(), fault.fileMode), 0);
    ASSERT_EQ(chmod(folder.at().c_str(), readOnly ? 0500 : 0700), 0);

    EXPECT_TRUE(inChild([&] {
        if (!becomePlainUser() || !fillDisk(fault.diskSpace)) return false;
        return Files::write(folder.path("a.script"), newText) == fault.succeeds;
    }));
    ASSERT_EQ(chmod(folder.at().c_str(), 0700), 0);
    ASSERT_EQ(chmod(folder.at("a.script").c_str(), 0600), 0);
    EXPECT_EQ(folder.get("a.script"), fault.succeeds ? newText : oldText);
    EXPECT_EQ(folder.count(), 1) << "something is left in the folder";
}

INSTANTIATE_TEST_SUITE_P(
    Faults, FailingDisk,
    testing::Values(
        Fault{"NoFault", FolderState::Writable, 0600, RLIM_INFINITY, 5, true},
        Fault{"NothingFits", FolderState::Writable, 0600, 0, 5, false},
        Fault{"FullHalfWay", FolderState::Writable, 0600, 50000, 60000, false},
        Fault{"ReadOnlyFile", FolderState::Writable, 0400, RLIM_INFINITY, 5, false},
        Fault{"ReadOnlyFolder", FolderState::ReadOnly, 0600, RLIM_INFINITY, 150000, true},
        Fault{"ReadOnlyFolderShorter", FolderState::ReadOnly, 0600, RLIM_INFINITY, 5, true},
        Fault{"ReadOnlyFolderEmpty", FolderState::ReadOnly, 0600, RLIM_INFINITY, 0, true},
        Fault{"ReadOnlyFolderAndFile", FolderState::ReadOnly, 0400, RLIM_INFINITY, 5, false},
        Fault{"ReadOnlyFolderFullGrowing", FolderState::ReadOnly, 0600, 120000, 150000, false},
        Fault{"ReadOnlyFolderFullShrinking", FolderState::ReadOnly, 0600, 20000, 50000, false}),
    [](const auto& row) { return std::string(row.param.name); });

TEST(Files, ANewFileOnAFullDiskIsNotLeftBehind) {
    const TempFolder folder;
    for (const std::string& name : {std::string("a.script"), std::string(255, 'n')}) {
        EXPECT_TRUE(inChild([&] {
            return fillDisk(10) && !Files::write(folder.path(name), std::string(20, 'x'));
        }));
    }
    EXPECT_EQ(folder.count(), 0);
}

TEST(Files, AnUnreadableFileIsNothing) {
    const TempFolder folder;
    folder.put("a.script", "x");
    ASSERT_EQ(chmod(folder.at("a.script").c_str(), 0), 0);
    ASSERT_EQ(chmod(folder.at().c_str(), 0755), 0);
    EXPECT_TRUE(inChild([&] {
        return becomePlainUser() && Files::exists(folder.path("a.script")) &&
               !Files::read(folder.path("a.script"));
    }));
}

}  // namespace
}  // namespace brindlex
