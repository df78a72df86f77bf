#pragma once

#include <QWidget>
#include <array>
#include <functional>
#include <utility>

#include "editor/ScriptSyntax.h"

class QCheckBox;
class QFrame;
class QLineEdit;
class QRadioButton;

namespace brindlex {

struct AppState;
class SettingsStore;

/// What the options dialog asks of the main window.
struct OptionsCallbacks {
    /// Clears the check marks of both side panels and hides them.
    std::function<void()> hidePanels;
    std::function<void()> funShowCmd_Click;
    std::function<void()> funScriptTar_Click;
    std::function<void()> Form_Resize;
};

/// The dialog of all preferences, and the way of the settings between store, AppState and controls.
/// It is made hidden.
class frmOptions : public QWidget {
  public:
    /// Making it loads the settings. `state` and `settings` must outlive the form.
    frmOptions(AppState& state, SettingsStore& settings, OptionsCallbacks mainWindow,
               QWidget* owner);

    /// From the store to AppState, to the controls and to the main window's side panels. An empty
    /// store is first filled with the first values.
    void LoadOptions();
    /// From the controls to AppState, then from AppState to the store. Nothing on the screen
    /// changes.
    void SaveChanges();

  private:
    struct Switch;

    void Form_Load();
    void makeControls();
    std::array<std::pair<QRadioButton*, int>, 3> panelOptions() const;
    std::array<Switch, 6> switches();
    void setControls();
    void setFlags();
    void setFontSample();
    void setPanels();
    void takeControls();

    AppState& state_;
    SettingsStore& settings_;
    OptionsCallbacks mainWindow_;
    QCheckBox* Check1_;
    QCheckBox* Check2_;
    QCheckBox* Check3_;
    QCheckBox* Check4_;
    QCheckBox* Check5_;
    QCheckBox* Check6_;
    QRadioButton* Option1_;
    QRadioButton* Option2_;
    QRadioButton* Option3_;
    QLineEdit* Text1_;  // WolfDir
    QLineEdit* txtAutoBackupMins_;
    QLineEdit* txtFontName_;
    QLineEdit* txtFontSize_;
    std::array<QFrame*, kUserColorCount> picCol_;
    std::array<QLineEdit*, kUserColorCount> txtCol_;
};

}  // namespace brindlex
