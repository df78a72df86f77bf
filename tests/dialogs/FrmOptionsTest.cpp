#include "dialogs/frmOptions.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QRadioButton>
#include <functional>
#include <memory>
#include <string>
#include <tuple>

#include "shell/AppState.h"
#include "support/SettingsTest.h"

namespace brindlex {
namespace {

const QString kFirstWolfDir =
    QStringLiteral("C:\\Program Files\\Wolfenstein - Enemy Territory\\etmain\\maps");

const std::string kFirstEntries =
    "AutoBackup=1|AutoBackupMins=3|AutoBlockIndent=1|AutoComplete=1|AutoIndent=1|Color0=0"
    "|Color1=32768|Color2=192|Color3=8388608|Color4=16711935|FontBold=0|FontItalic=0"
    "|FontName=Courier New|FontSize=10|FontStrikeThru=0|FontUnderline=0|GetPreset=1"
    "|ShowTreeView=1|TypeOther=1|WolfDir=" +
    kFirstWolfDir.toStdString();

/// Every field that the settings fill, as one text.
std::string fieldsOf(const AppState& s) {
    QStringList fields{s.WolfDir, s.FontName};
    for (const QString& color : s.ColorValues) fields += color;
    for (const int number :
         {s.GetPreset, s.ShowTreeView, s.AutoIndent, s.AutoBlockIndent, s.TypeOther, s.AutoComplete,
          s.AutoBackup, s.AutoBackupMins, s.FontSize})
        fields += QString::number(number);
    for (const bool flag : {s.GetPresetEnabled, s.AutoIndentEnabled, s.AutoBlockIndentEnabled,
                            s.TypeOtherEnabled, s.AutoCompleteEnabled, s.AutoBackupEnabled,
                            s.FontBold, s.FontItalic, s.FontUnderline, s.FontStrikeThru})
        fields += flag ? "on" : "off";
    return fields.join('|').toStdString();
}

const std::string kFirstFields = kFirstWolfDir.toStdString() +
                                 "|Courier New|0|32768|192|8388608|16711935|1|1|1|1|1|1|1|3|10"
                                 "|on|on|on|on|on|on|off|off|off|off";

/// A store and a dialog over it; the dialog's calls to the main window are written down.
class FrmOptionsTest : public SettingsTest {
  protected:
    std::unique_ptr<frmOptions> open() { return open(settings); }
    std::unique_ptr<frmOptions> open(SettingsStore& store) {
        state.DefaultColors = {"0", "32768", "192", "8388608", "16711935"};
        return std::make_unique<frmOptions>(
            state, store,
            OptionsCallbacks{[this] { calls += "hide "; }, [this] { calls += "commands "; },
                             [this] { calls += "entities "; }, [this] { calls += "resize "; }},
            nullptr);
    }
    template <typename Control>
    static Control& control(const frmOptions& form, const char* name) {
        return *form.findChild<Control*>(name);
    }

    AppState state;
    std::string calls;
};

TEST_F(FrmOptionsTest, FillsAnEmptyStoreAndShowsIt) {
    const auto form = open();
    QStringList entries;
    for (const QString& key : stored().keys()) entries += key + '=' + stored()[key];
    entries.sort();
    EXPECT_EQ(entries.join('|').toStdString(), kFirstEntries);
    EXPECT_EQ(fieldsOf(state), kFirstFields);
    EXPECT_EQ(calls, "hide commands resize ");
    for (const char* box : {"Check1", "Check2", "Check3", "Check4", "Check5", "Check6"})
        EXPECT_TRUE(control<QCheckBox>(*form, box).isChecked()) << box;
    EXPECT_TRUE(control<QRadioButton>(*form, "Option1").isChecked());
    EXPECT_EQ(control<QLineEdit>(*form, "Text1").text(), kFirstWolfDir);
    EXPECT_EQ(control<QLineEdit>(*form, "txtAutoBackupMins").text(), "3");
    EXPECT_EQ(control<QLineEdit>(*form, "txtCol1").palette().color(QPalette::Text),
              QColor(0, 128, 0));
    EXPECT_EQ(control<QLineEdit>(*form, "txtFontName").font().family(), "Courier New");
}

TEST_F(FrmOptionsTest, LivesWithAStoreThatCannotBeWritten) {
    SettingsStore broken("/dev/null");
    open(broken);
    EXPECT_EQ(fieldsOf(state), kFirstFields);
}

TEST_F(FrmOptionsTest, TakesFirstValuesForMissingAndSenselessKeysAndWritesNothing) {
    open();
    const SettingsStore::Section firstValues = stored();
    for (const QString& key : firstValues.keys()) {
        const bool isText = key == "WolfDir" || key == "FontName";
        // A text without a number means 0 minutes, so only a missing key falls back there.
        const bool takesAnything = isText || key == "AutoBackupMins";
        for (const QString& text : {QString(), QString("nonsense"), QString("99999999999")}) {
            if (text.isEmpty() ? key == "GetPreset" : takesAnything) continue;
            const TempFolder place;
            SettingsStore store(place.path());
            for (const QString& other : firstValues.keys())
                if (other != key) store.write("Brindlex", "Options", other, firstValues[other]);
            if (!text.isEmpty()) store.write("Brindlex", "Options", key, text);
            const std::string before = place.get("Brindlex.ini");
            state = {};
            open(store);
            EXPECT_EQ(fieldsOf(state), kFirstFields) << key.toStdString();
            EXPECT_EQ(place.get("Brindlex.ini"), before);
        }
    }
}

TEST_F(FrmOptionsTest, ReadsNumbersAsTheyAreMeant) {
    using Field = std::function<int(const AppState&)>;
    const auto minutes = [](const AppState& s) { return s.AutoBackupMins; };
    const auto size = [](const AppState& s) { return s.FontSize; };
    const std::tuple<const char*, const char*, Field, int> rows[] = {
        {"AutoBackupMins", "12x", minutes, 12},
        {"AutoBackupMins", " 2.9", minutes, 2},
        {"AutoBackupMins", "-1.5", minutes, -2},
        {"AutoBackupMins", ".", minutes, 0},
        {"AutoBackupMins", "999999", minutes, 32767},
        {"FontSize", "9.75", size, 10},
        {"FontSize", "1", size, 1},
        // Nobody can read letters of no size.
        {"FontSize", "0", size, 10},
        {"FontSize", "-12", size, 10},
        {"ShowTreeView", "-1", [](const AppState& s) { return s.ShowTreeView; }, -1},
        // Any number but 0 and 1 leaves a typing aid's flag as it was, and others off.
        {"AutoIndent", "7", [](const AppState& s) { return int(s.AutoIndentEnabled); }, 1},
        {"AutoBackup", "7", [](const AppState& s) { return int(s.AutoBackupEnabled); }, 0},
        {"FontBold", "7", [](const AppState& s) { return int(s.FontBold); }, 1},
        {"FontItalic", "7", [](const AppState& s) { return int(s.FontItalic); }, 0},
    };
    open();
    for (const auto& [key, text, field, expected] : rows) {
        put(key, text);
        state = {};
        state.AutoIndentEnabled = state.AutoBackupEnabled = state.FontBold = state.FontItalic =
            true;
        open();
        EXPECT_EQ(field(state), expected) << key << ' ' << text;
    }
}

TEST_F(FrmOptionsTest, ShowsTheEntitiesWhenTheSettingsSaySo) {
    open();
    put("ShowTreeView", "0");
    calls.clear();
    open();
    EXPECT_EQ(calls, "hide entities resize ");
}

TEST_F(FrmOptionsTest, SavesWhatTheControlsShowAndWhatTheStateHolds) {
    const auto form = open();
    calls.clear();
    control<QCheckBox>(*form, "Check1").setChecked(false);
    control<QCheckBox>(*form, "Check5").setChecked(false);
    control<QRadioButton>(*form, "Option3").setChecked(true);
    control<QLineEdit>(*form, "Text1").setText("/maps; \\of = m\xC3\xADne ");
    control<QLineEdit>(*form, "txtAutoBackupMins").setText("7.");
    state.ColorValues[4] = "255";
    state.FontSize = 14;
    state.FontUnderline = true;
    form->SaveChanges();
    EXPECT_EQ(calls, "");
    EXPECT_FALSE(state.GetPresetEnabled);
    EXPECT_FALSE(state.TypeOtherEnabled);
    EXPECT_EQ(state.ShowTreeView, -1);
    const std::string saved = fieldsOf(state);
    state = {};
    open();
    EXPECT_EQ(fieldsOf(state), saved);
    EXPECT_EQ(state.AutoBackupMins, 7);
    control<QLineEdit>(*form, "Text1").clear();
    form->SaveChanges();
    open();
    EXPECT_TRUE(state.WolfDir.isEmpty()) << "saved by the user, and no missing key";
}

TEST_F(FrmOptionsTest, ForgetsWhatWasNotSaved) {
    const auto form = open();
    state.ColorValues[1] = "255";
    state.FontName = "Other";
    form->LoadOptions();
    EXPECT_EQ(fieldsOf(state), kFirstFields);
    EXPECT_EQ(control<QLineEdit>(*form, "txtFontName").text(), "Courier New");
}

}  // namespace
}  // namespace brindlex
