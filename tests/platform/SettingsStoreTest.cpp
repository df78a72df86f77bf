#include "platform/SettingsStore.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "support/HostileSystem.h"
#include "support/TempFolder.h"
#include "text/Random.h"

namespace brindlex {
namespace {

using namespace HostileSystem;

const QString kApp = "Brindlex";
const QString kOptions = "Options";

TEST(SettingsStore, AnyTextComesBackAsValueKeyAndSection) {
    const QString texts[] = {QString(),
                             "C:\\Program Files\\new\\u0041\\\\x\\",
                             "  leading and trailing \t",
                             "\"quoted\"; a=b, [c] #d @e %f",
                             "[Options]",
                             "line\r\nbreak\n[x]\nvalue=9",
                             "=",
                             ";",
                             QString::fromUtf8("Übung Карта 地図 \U0001F600"),
                             QString(QChar(0)) + QChar(0xD800) + QChar(0xFEFF) + QChar(0x2028),
                             QString(100000, 'x')};
    for (const QString& text : texts) {
        SCOPED_TRACE(text.left(50).toStdString());
        const TempFolder folder;
        SettingsStore store(folder.path());
        store.write(kApp, kOptions, "value", text);
        store.write(kApp, kOptions, 'k' + text, "as key");
        store.write(kApp, text, "key", "as section");
        store.write(kApp, kOptions, "after", "2");
        const SettingsStore other(folder.path());
        EXPECT_EQ(other.read(kApp, kOptions, "value"), text);
        EXPECT_EQ(other.read(kApp, kOptions, 'k' + text), "as key");
        EXPECT_EQ(other.read(kApp, text, "key"), "as section");
        EXPECT_EQ(other.read(kApp, kOptions, "after"), "2");
    }
}

TEST(SettingsStore, KeepsApplicationsSectionsAndKeysApart) {
    const TempFolder folder;
    SettingsStore store(folder.path("not/there/yet"));
    EXPECT_EQ(store.read(kApp, kOptions, "A"), "");
    EXPECT_EQ(folder.count(), 0) << "reading made something";
    store.write(kApp, kOptions, {{"A", "1"}, {"a", "2"}, {"A", "3"}});
    store.write("Another", kOptions, "A", "5");
    EXPECT_EQ(store.read(kApp, kOptions, "A"), "3");
    EXPECT_EQ(store.read(kApp, kOptions, "a"), "2");
}

TEST(SettingsStore, TwoAtATimeSeeAndKeepWhatTheOtherWrote) {
    const TempFolder folder;
    SettingsStore one(folder.path());
    SettingsStore two(folder.path());
    for (const char* value : {"1", "2", "3"}) {
        one.write(kApp, kOptions, "Mine", value);
        two.write(kApp, kOptions, "Yours", value);
        EXPECT_EQ(two.read(kApp, kOptions, "Mine"), value);
        EXPECT_EQ(one.read(kApp, kOptions, "Yours"), value);
    }
}

TEST(SettingsStore, ReadsWhatAnEditorOfThisOrAnotherSystemWroteAmongNonsense) {
    const TempFolder folder;
    const std::string nonsense = test::Random(1).text(20000, test::allBytes());
    folder.put("Brindlex.ini",
               "\xEF\xBB\xBF; mine\r\n[Options]\r\n Color1 =  32768 \r\nnonsense\r\n[]\r\n[\r\n"
               "[Options]\r\nWolfDir=C:\\Games\\et\\x\r\n" +
                   nonsense);
    SettingsStore store(folder.path());
    EXPECT_EQ(store.read(kApp, kOptions, "Color1"), "32768");
    EXPECT_EQ(store.read(kApp, kOptions, "WolfDir"), "C:\\Games\\et\\x");
    EXPECT_EQ(store.read(kApp, kOptions, "GetPreset"), "");
    store.write(kApp, kOptions, "GetPreset", "1");
    EXPECT_EQ(store.read(kApp, kOptions, "GetPreset"), "1");
}

TEST(SettingsStore, AnUnreadableFileIsSilenceAndStaysWhole) {
    const TempFolder folder;
    SettingsStore store(folder.path());
    store.write(kApp, kOptions, "A", "old");
    const std::string before = folder.get("Brindlex.ini");
    const std::string file = folder.at("Brindlex.ini").string();
    ASSERT_EQ(chmod(file.c_str(), 0000), 0);
    ASSERT_EQ(chmod(folder.at().c_str(), 0777), 0);
    EXPECT_TRUE(inChild([&] {
        if (!becomePlainUser()) return false;
        store.write(kApp, kOptions, "A", "new");
        return store.read(kApp, kOptions, "A").isEmpty();
    }));
    ASSERT_EQ(chmod(file.c_str(), 0600), 0);
    EXPECT_EQ(folder.get("Brindlex.ini"), before);
}

TEST(SettingsStore, AFolderInPlaceOfTheFileIsSilence) {
    const TempFolder folder;
    folder.put("Brindlex.ini/x", "");
    SettingsStore store(folder.path());
    store.write(kApp, kOptions, "A", "1");
    EXPECT_EQ(store.read(kApp, kOptions, "A"), "");
}

}  // namespace
}  // namespace brindlex
