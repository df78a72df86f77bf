#include "dialogs/frmOptions.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <memory>
#include <string>

#include "document/AppState.h"
#include "support/SettingsTest.h"

namespace brindlex {
namespace {

const std::string kFirstEntries =
    "AutoBackup=1|AutoBackupMins=3|AutoBlockIndent=1|AutoComplete=1|AutoIndent=1|Color0=0"
    "|Color1=32768|Color2=192|Color3=8388608|Color4=16711935|FontBold=0|FontItalic=0"
    "|FontName=Courier New|FontSize=10|FontStrikeThru=0|FontUnderline=0|GetPreset=1"
    "|ShowTreeView=1|TypeOther=1"
    "|WolfDir=C:\\Program Files\\Wolfenstein - Enemy Territory\\etmain\\maps";

class FrmOptionsTest : public SettingsTest {
  protected:
    /// Opens the dialog of a program that has just been started.
    std::unique_ptr<frmOptions> open() {
        state = {};
        state.DefaultColors = {"0", "32768", "192", "8388608", "16711935"};
        const auto nothing = [] {};
        const OptionsCallbacks mainWindow{nothing, nothing, nothing, nothing};
        return std::make_unique<frmOptions>(state, settings, mainWindow, nullptr);
    }
    static QLineEdit& edit(const frmOptions& form, const char* name) {
        return *form.findChild<QLineEdit*>(name);
    }
    std::string entries() const {
        const SettingsStore::Section section = stored();
        QStringList entries;
        for (const QString& key : section.keys()) entries += key + '=' + section[key];
        entries.sort();
        return entries.join('|').toStdString();
    }

    AppState state;
};

TEST_F(FrmOptionsTest, FillsAnEmptyStoreAndShowsIt) {
    const auto form = open();
    EXPECT_EQ(entries(), kFirstEntries);
    EXPECT_TRUE(state.GetPresetEnabled && state.AutoIndentEnabled && state.AutoBlockIndentEnabled);
    EXPECT_TRUE(state.TypeOtherEnabled && state.AutoCompleteEnabled && state.AutoBackupEnabled);
    EXPECT_EQ(edit(*form, "Text1").text().toStdString(), stored("WolfDir"));
    EXPECT_EQ(edit(*form, "txtCol1").palette().color(QPalette::Text), QColor(0, 128, 0));
    EXPECT_EQ(edit(*form, "txtFontName").font().family(), "Courier New");
}

TEST_F(FrmOptionsTest, TakesFirstValuesForMissingAndSenselessKeysAndWritesNothing) {
    put("GetPreset", "1");
    auto form = open();
    EXPECT_EQ(entries(), "GetPreset=1");
    form->SaveChanges();
    EXPECT_EQ(entries(), kFirstEntries);
    for (const QString& key : stored().keys()) {
        // Any text is a folder or a font, and one without a number means 0 minutes.
        if (key == "WolfDir" || key == "FontName" || key == "AutoBackupMins") continue;
        for (const char* text : {"nonsense", "99999999999"}) {
            put(key, text);
            form = open();
            EXPECT_EQ(stored(key), text);
            form->SaveChanges();
            EXPECT_EQ(entries(), kFirstEntries) << key.toStdString();
        }
    }
    settings = SettingsStore("/dev/null");
    open();
    EXPECT_EQ(state.AutoBackupMins, 3);
}

TEST_F(FrmOptionsTest, ReadsNumbersAsTheyAreMeant) {
    const struct {
        const char *key, *text, *meant;
    } rows[] = {
        {"AutoBackupMins", " 2.9", "2"},
        {"AutoBackupMins", "-1.5", "-2"},
        {"AutoBackupMins", ".", "0"},
        {"AutoBackupMins", "999999", "32767"},
        {"FontSize", "9.75", "10"},
        {"FontSize", "0", "10"},  // nobody can read letters of no size
        {"FontSize", "1", "1"},
        {"FontItalic", "7", "0"},
    };
    open();
    for (const auto& [key, text, meant] : rows) {
        put(key, text);
        open()->SaveChanges();
        EXPECT_EQ(stored(key), meant) << key << ' ' << text;
    }
}

TEST_F(FrmOptionsTest, SavesWhatTheControlsShowAndWhatTheStateHolds) {
    auto form = open();
    form->findChild<QAbstractButton*>("Check1")->setChecked(false);
    form->findChild<QAbstractButton*>("Check3")->setChecked(false);
    form->findChild<QAbstractButton*>("Option3")->setChecked(true);
    edit(*form, "Text1").setText("/maps; \\of = m\xC3\xADne ");
    edit(*form, "txtAutoBackupMins").setText("7.");
    state.ColorValues[4] = "255";
    state.FontSize = 14;
    state.FontUnderline = true;
    form->SaveChanges();
    EXPECT_FALSE(state.GetPresetEnabled || state.AutoIndentEnabled);
    const std::string saved =
        "AutoBackup=1|AutoBackupMins=7|AutoBlockIndent=1|AutoComplete=1|AutoIndent=0|Color0=0"
        "|Color1=32768|Color2=192|Color3=8388608|Color4=255|FontBold=0|FontItalic=0"
        "|FontName=Courier New|FontSize=14|FontStrikeThru=0|FontUnderline=1|GetPreset=0"
        "|ShowTreeView=-1|TypeOther=1|WolfDir=/maps; \\of = m\xC3\xADne ";
    EXPECT_EQ(entries(), saved);
    state.FontName = "Other";  // chosen, but not saved
    form->LoadOptions();
    EXPECT_EQ(edit(*form, "txtFontName").text(), "Courier New");
    form = open();
    form->SaveChanges();
    EXPECT_EQ(entries(), saved);
    edit(*form, "Text1").clear();
    form->SaveChanges();
    open();
    EXPECT_TRUE(state.WolfDir.isEmpty()) << "saved by the user, and no missing key";
}

}  // namespace
}  // namespace brindlex
