#pragma once

#include <QWidget>
#include <memory>

#include "document/CommandLock.h"
#include "document/Document.h"
#include "document/EditCommands.h"
#include "document/UndoHistory.h"
#include "editor/KELP_RTBSyntax.h"
#include "reference/CommandTree.h"
#include "reference/EntityTree.h"
#include "reference/ReferenceDatabase.h"
#include "shell/Commands.h"
#include "shell/CompletionPopup.h"
#include "shell/ErrorLine.h"
#include "shell/LoadedForms.h"
#include "shell/MainLayout.h"
#include "shell/SidePanels.h"
#include "shell/StatusPanes.h"
#include "shell/ToolBar.h"
#include "shell/TypingAids.h"
#include "shell/WindowPosition.h"

class QMenuBar;

namespace brindlex {

class frmOptions;

/// The main window: its parts, how their events are wired, and every handler by name.
class frmMain : public QWidget {
  public:
    /// Both outlive the window. It comes up empty and hidden until Form_Load.
    frmMain(AppState& state, const Environment& environment);
    ~frmMain() override;

    // --- The window's own events ---------------------------------------------------------------
    /// To be called once, before the window is shown.
    void Form_Load();
    void Form_Resize();
    /// Asks about unsaved text and ends the program, unless the user cancels.
    void Form_QueryUnload(bool& Cancel);

    // --- What others use -----------------------------------------------------------------------
    KELP_RTBSyntax& KELP_RTBSyntax1() { return *editor_; }
    Document& document() { return document_; }
    /// The caret as of the last change of the selection.
    Long CaretPosition() const { return CaretPosition_; }
    /// The number of loaded windows of that name, in whatever case.
    int FormCount(const QString& frmName) const { return forms_.FormCount(frmName); }
    void NewFile() { document_.NewFile(); }
    void OpenFile() { document_.OpenFile(); }
    void SaveCurrent() { document_.SaveCurrent(); }
    void SaveAs() { document_.SaveAs(); }
    void SaveBackup() { document_.SaveBackup(); }
    void Undo() { undo_.Undo(); }
    void Redo() { undo_.Redo(); }
    /// Adds a line to txtError; the result is always empty.
    QString UpdateError(const QString& ErrorMessage);
    void LoadScriptRef();
    void InitSyntaxEditor();

    // --- Commands ------------------------------------------------------------------------------
    using Command = void (frmMain::*)();
    /// A command waits for the user, or yields.
    bool commandRuns() const { return lock_.held(); }
    /// Runs a command that the user gives, unless another one runs (CommandLock).
    void run(Command command);

    // --- Menu File -----------------------------------------------------------------------------
    void funNew_Click() { document_.funNew_Click(); }
    void funOpen_Click() { document_.funOpen_Click(); }
    void funSave_Click() { document_.funSave_Click(); }
    void funSaveAs_Click() { document_.funSaveAs_Click(); }
    void funSavePreset_Click() { document_.funSavePreset_Click(); }
    /// Closes when the command has ended: until then it holds the lock.
    void funClose_Click() { close(); }
    // --- Menu Edit -----------------------------------------------------------------------------
    /// Enables the entries that have something to work on, each time the menu opens. They stay so
    /// until it opens again, and their shortcuts with them.
    void funEdit_Click();
    void funUndo_Click() { Undo(); }
    void funRedo_Click() { Redo(); }
    void funCut_Click() { editCommands_.funCut_Click(); }
    void funCopy_Click() { editCommands_.funCopy_Click(); }
    void funPaste_Click();
    void funDelete_Click() { editCommands_.funDelete_Click(); }
    void funSelectAll_Click() { editCommands_.funSelectAll_Click(); }
    void funInsMap_Click();
    void funInsTD_Click();
    // --- Menu Tools ----------------------------------------------------------------------------
    void funComBlock_Click() { editor_->CommentBlock(); }
    void funUnComBlock_Click() { editor_->UnCommentBlock(); }
    // --- Menu View -----------------------------------------------------------------------------
    void funFull_Click() { position_.funFull_Click(); }
    void funDefault_Click() { position_.funDefault_Click(); }
    void funSavePos_Click() { position_.funSavePos_Click(); }
    void funShowCmd_Click() { togglePanel(SidePanel::Commands); }
    void funScriptTar_Click() { togglePanel(SidePanel::Entities); }

  protected:
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    /// A file dropped anywhere on the window is opened.
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void KELP_RTBSyntax1_Change();
    void KELP_RTBSyntax1_SelChange();
    void openDropped(const QString& path);
    void importMap();
    /// A word that the user picked in a tree goes into the script and stays selected.
    void insertPicked(const QString& word);
    void closeNow(bool& Cancel);
    /// Asks again when the running command has ended.
    void closeWhenFree();

    KELP_RTBSyntax* makeEditor();
    ToolBar* makeToolBar();
    MainLayout::Controls controls();
    void wireEditor();
    void makeShortcuts();
    void setFirstSize();
    void setTabOrders();
    void makeOptions();
    void showPanelOfSettings();
    void togglePanel(SidePanel panel);
    void arrangeMenu();
    int menuHeight() const;

    Document::Events documentEvents();

    AppState& state_;
    const Environment& environment_;
    LoadedForms forms_;
    bool FormLoaded_ = false;
    QMenuBar* menuBar_;
    QWidget* inner_;  // everything below the menu
    Commands commands_;
    KELP_RTBSyntax* editor_;
    CommandLock lock_;
    SidePanels sidePanels_;
    ToolBar* picToolBar_;
    ErrorLine errorLine_;
    StatusPanes statusPanes_;
    ReferenceDatabase reference_;
    CompletionPopup completionPopup_;
    TypingAids typingAids_;
    UndoHistory undo_;
    Document document_;
    EditCommands editCommands_;
    CommandTree commandTree_;
    EntityTree entityTree_;
    MainLayout layout_;
    WindowPosition position_;
    std::unique_ptr<frmOptions> options_;
    Long CaretPosition_ = 0;
    bool closing_ = false;     // its question may be open
    bool closeWaits_ = false;  // until the running command has ended
    bool ended_ = false;
    bool painted_ = false;
};

}  // namespace brindlex
