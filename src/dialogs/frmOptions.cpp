#include "dialogs/frmOptions.h"

#include <QCheckBox>
#include <QFrame>
#include <QLineEdit>
#include <QRadioButton>

#include "document/AppState.h"
#include "document/Settings.h"
#include "system/ColorValue.h"

namespace brindlex {
namespace {

template <typename Control>
Control* make(QWidget* form, const QString& name, const char* accessibleName) {
    auto* control = new Control(form);
    control->setObjectName(name);
    control->setAccessibleName(QString::fromLatin1(accessibleName));
    return control;
}

void setColor(QWidget& widget, QPalette::ColorRole role, const QColor& color) {
    QPalette palette = widget.palette();
    palette.setColor(role, color);
    widget.setPalette(palette);
}

QColor colorOf(const QString& text, const QPalette& palette) {
    return ColorValue(static_cast<std::uint32_t>(text.toInt())).resolve(palette);
}

}  // namespace

frmOptions::frmOptions(AppState& state, SettingsStore& settings, OptionsCallbacks mainWindow,
                       QWidget* owner)
    : QWidget(owner, Qt::Dialog),
      state_(state),
      settings_(settings),
      mainWindow_(std::move(mainWindow)) {
    setObjectName(QStringLiteral("frmOptions"));
    setWindowTitle("Options - " + kProgram);
    makeControls();
    Form_Load();
}

void frmOptions::makeControls() {
    Check1_ = make<QCheckBox>(this, "Check1", "Load 'game_manager' preset on New File");
    Check2_ = make<QCheckBox>(this, "Check2", "AutoComplete");
    Check3_ = make<QCheckBox>(this, "Check3", "Auto Indent");
    Check4_ = make<QCheckBox>(this, "Check4", "Auto Block Indent");
    Check5_ = make<QCheckBox>(this, "Check5", "Type a { bracket on [ character");
    Check6_ = make<QCheckBox>(this, "Check6", "AutoBackup");
    Option1_ = make<QRadioButton>(this, "Option1", "Script Reference");
    Option2_ = make<QRadioButton>(this, "Option2", "Scriptname / targetname import");
    Option3_ = make<QRadioButton>(this, "Option3", "None");
    Text1_ = make<QLineEdit>(this, "Text1", "W:ET maps directory");
    txtAutoBackupMins_ = make<QLineEdit>(this, "txtAutoBackupMins", "Minutes between backups");
    txtFontName_ = make<QLineEdit>(this, "txtFontName", "Font name");
    txtFontName_->setReadOnly(true);
    txtFontSize_ = make<QLineEdit>(this, "txtFontSize", "Font size");
    txtFontSize_->setReadOnly(true);
    for (std::size_t i = 0; i < kUserColorCount; ++i) {
        const char* const name = kUserColors[i].name;
        picCol_[i] = make<QFrame>(this, QStringLiteral("picCol%1").arg(i), name);
        picCol_[i]->setAutoFillBackground(true);
        txtCol_[i] = make<QLineEdit>(this, QStringLiteral("txtCol%1").arg(i), name);
    }
}

void frmOptions::Form_Load() {
    LoadOptions();
    Text1_->setText(state_.WolfDir);
}

void frmOptions::LoadOptions() {
    if (Settings::isFirstRun(settings_)) Settings::writeFirstRun(settings_, state_);
    Settings::read(settings_, state_);
    setControls();
    setFlags();
    setFontSample();
    setPanels();
    txtAutoBackupMins_->setText(QString::number(state_.AutoBackupMins));
    txtAutoBackupMins_->setEnabled(Check6_->isChecked());
}

std::array<std::pair<QRadioButton*, int>, 3> frmOptions::panelOptions() const {
    return {{{Option1_, kShowCommandTree}, {Option2_, kShowEntityTree}, {Option3_, kShowNoTree}}};
}

/// A setting that the user switches, as it stands on the screen and in AppState.
struct frmOptions::Switch {
    QCheckBox& box;
    int& number;
    bool& enabled;
};

std::array<frmOptions::Switch, 6> frmOptions::switches() {
    return {{{*Check1_, state_.GetPreset, state_.GetPresetEnabled},
             {*Check2_, state_.AutoComplete, state_.AutoCompleteEnabled},
             {*Check3_, state_.AutoIndent, state_.AutoIndentEnabled},
             {*Check4_, state_.AutoBlockIndent, state_.AutoBlockIndentEnabled},
             {*Check5_, state_.TypeOther, state_.TypeOtherEnabled},
             {*Check6_, state_.AutoBackup, state_.AutoBackupEnabled}}};
}

void frmOptions::setControls() {
    for (const Switch& each : switches())
        each.box.setChecked(flagOf(each.number).value_or(each.box.isChecked()));
    for (const auto& [option, ShowTreeView] : panelOptions())
        if (state_.ShowTreeView == ShowTreeView) option->setChecked(true);
    for (std::size_t i = 0; i < kUserColorCount; ++i) {
        const QColor color = colorOf(state_.ColorValues[i], palette());
        setColor(*picCol_[i], QPalette::Window, color);
        setColor(*txtCol_[i], QPalette::Text, color);
    }
}

void frmOptions::setFlags() {
    for (const Switch& each : switches()) each.enabled = flagOf(each.number).value_or(each.enabled);
    state_.AutoBackupEnabled = state_.AutoBackup == 1;  // any other number is off
}

void frmOptions::setFontSample() {
    txtFontName_->setText(state_.FontName);
    txtFontName_->setFont(withEditorStyle(txtFontName_->font(), state_));
    txtFontSize_->setText(QString::number(state_.FontSize));
}

void frmOptions::setPanels() {
    mainWindow_.hidePanels();
    if (state_.ShowTreeView == kShowEntityTree) mainWindow_.funScriptTar_Click();
    if (state_.ShowTreeView == kShowCommandTree) mainWindow_.funShowCmd_Click();
    mainWindow_.Form_Resize();
}

void frmOptions::SaveChanges() {
    takeControls();
    Settings::write(settings_, state_);
}

void frmOptions::takeControls() {
    for (const Switch& each : switches()) {
        each.enabled = each.box.isChecked();
        each.number = each.enabled ? 1 : 0;
    }
    for (const auto& [option, ShowTreeView] : panelOptions())
        if (option->isChecked()) state_.ShowTreeView = ShowTreeView;
    state_.AutoBackupMins = leadingNumber(txtAutoBackupMins_->text());
    state_.WolfDir = Text1_->text();
}

}  // namespace brindlex
