#include "system/SettingsStore.h"

#include <gtest/gtest.h>
#include "support/TempFolder.h"
#include "text/Random.h"

namespace brindlex {
namespace {

const QString kApp = "Brindlex";
const QString kOptions = "Options";

TEST(SettingsStore, AnyTextComesBack) {
    const QString texts[] = {QString(),
                             "C:\\Program Files\\new\\x41\\\\x\\",
                             "  leading and trailing \t",
                             "\"quoted\"; a=b, [c] #d @e %f",
                             "@Invalid()",
                             "a, b",
                             "line\r\nbreak\n[x]\nvalue=9",
                             "=",
                             ";",
                             QString::fromUtf8("Übung Карта 地図 \U0001F600 \uFEFF\u2028"),
                             QString("a") + QChar(0) + QChar(1),
                             QString(100000, 'x')};
    const TempFolder folder;
    SettingsStore store(folder.path());
    for (int i = 0; i < int(std::size(texts)); ++i) {
        SCOPED_TRACE(texts[i].left(50).toStdString());
        store.write(kApp, kOptions, {{"value", texts[i]}, {"after", "2"}});
        const std::string copy = "Copy" + std::to_string(i);  // is read from the disk
        folder.put(copy + ".ini", folder.get("Brindlex.ini"));
        const auto section = store.readSection(QString::fromStdString(copy), kOptions);
        EXPECT_EQ(section, (SettingsStore::Section{{"value", texts[i]}, {"after", "2"}}));
    }
}

/// The lines are those that the program wrote before it left the file to the toolkit, and others.
TEST(SettingsStore, ReadsOlderFilesAndPassesOverNonsense) {
    const TempFolder folder;
    folder.put("Brindlex.ini",
               "; mine\r\n[Options]\r\nColor1=32768\nnonsense\n[]\n[\n[Options]\n"
               "WolfDir=C:\\\\Games\\\\et, 2.60\\\\maps\nFontName=Übung\n" +
                   test::Random(1).text(20000, test::allBytes()));
    SettingsStore store(folder.path());
    store.write(kApp, kOptions, "GetPreset", "1");
    EXPECT_EQ(store.read(kApp, kOptions, "GetPreset"), "1");
    EXPECT_EQ(store.read(kApp, kOptions, "Color1"), "32768");
    EXPECT_EQ(store.read(kApp, kOptions, "WolfDir"), "C:\\Games\\et, 2.60\\maps");
    EXPECT_EQ(store.read(kApp, kOptions, "FontName"), QString::fromUtf8("Übung"));
}

}  // namespace
}  // namespace brindlex
