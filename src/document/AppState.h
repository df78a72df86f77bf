#pragma once

#include <QFont>
#include <QLatin1String>
#include <QString>
#include <algorithm>
#include <deque>
#include <string>
#include <vector>

#include "editor/ScriptSyntax.h"
#include "text/Rope.h"

namespace brindlex {

/// The program's name, in titles and for the settings store.
inline constexpr QLatin1String kProgram("Brindlex");

/// The values of ShowTreeView: which side panel shows from the start. Any other shows none and
/// leaves the choice of the options dialog as it is.
inline constexpr int kShowCommandTree = 1;
inline constexpr int kShowEntityTree = 0;
inline constexpr int kShowNoTree = -1;

/// The state of the editor just after a change. Records of neighbouring states share their text but
/// for what was changed.
struct UndoElement {
    Long SelStart = 0;
    Long TextLen = 0;
    Rope Text;
};

/// The shared record of the program: it lives for the whole run and is reached from every window.
/// A setting that the user can switch stands twice: as the number that the settings store holds,
/// and with `Enabled` behind its name as the flag that the program tests.
struct AppState {
    bool GetPresetEnabled = false;
    bool TypeOtherEnabled = false;
    bool AutoIndentEnabled = false;
    bool AutoBlockIndentEnabled = false;
    bool AutoCompleteEnabled = false;
    QString WolfDir;
    UserColorValues ColorValues;
    UserColorValues DefaultColors;
    bool AutoBackupEnabled = false;
    int AutoBackupMins = 0;
    bool FontBold = false;
    bool FontItalic = false;
    QString FontName;
    int FontSize = 0;  ///< points
    bool FontStrikeThru = false;
    bool FontUnderline = false;
    int GetPreset = 0;
    int ShowTreeView = kShowEntityTree;
    int AutoIndent = 0;
    int AutoBlockIndent = 0;
    int TypeOther = 0;
    int AutoComplete = 0;
    int AutoBackup = 0;
    /// False until the main window is loaded, and while a replay edits the text.
    bool UndoRecording = false;
    /// The last element is the top: of UndoStack, the text as it now stands.
    std::deque<UndoElement> UndoStack;
    std::deque<UndoElement> RedoStack;
    /// Names of script blocks, bytes of the code page.
    std::vector<std::string> BlockNames;
    /// The words that completion offers, in the order in which it offers them; some are empty.
    std::vector<std::string> Keywords;
};

/// `font` with the family and the effects of the editor's font; it keeps its size.
inline QFont withEditorStyle(QFont font, const AppState& state) {
    font.setFamily(state.FontName);
    font.setBold(state.FontBold);
    font.setItalic(state.FontItalic);
    font.setUnderline(state.FontUnderline);
    font.setStrikeOut(state.FontStrikeThru);
    return font;
}

/// The editor's font; a size that no screen can show is brought within 1 and 1638 points.
inline QFont editorFont(const AppState& state) {
    QFont font = withEditorStyle(QFont(), state);
    font.setPointSize(std::clamp(state.FontSize, 1, 1638));
    return font;
}

}  // namespace brindlex
