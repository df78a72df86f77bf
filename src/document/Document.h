#pragma once

#include <QString>
#include <functional>
#include <optional>

#include "document/AutoBackup.h"
#include "document/LongWork.h"
#include "text/Rope.h"

class QTime;

namespace brindlex {

class CommandLock;
class KELP_RTBSyntax;
class UndoHistory;
struct AppState;
struct Environment;
struct FileQuestion;

/// The one document of the program: the file that it stands for and its state. The text itself
/// lives in the editor. Commands come in under the CommandLock.
class Document {
  public:
    /// What the document reports to the window. The last two may be empty.
    struct Events {
        std::function<void(const QString& title)> titleChanged;
        /// A problem that deserves no message box.
        std::function<void(const QString& message)> problem;
        /// A text begins to load (true) or has been loaded (false). The caret's line means nothing
        /// in between.
        std::function<void(bool loading)> loading;
        /// Another text is in the editor; the caret is at its start.
        std::function<void()> textReplaced;
        std::function<void(QTime time)> backedUp;
        /// A script has been opened, by OpenFile or by a drop.
        std::function<void()> opened;
        /// The program has started with a script, whether or not it could be read.
        std::function<void()> startedWithScript;
    };

    /// All references outlive the document.
    Document(const AppState& state, const Environment& environment, KELP_RTBSyntax& editor,
             CommandLock& lock, UndoHistory& undo, Events events);

    /// As the file dialog or the command line gave it, in the case that it has on the disk. A save
    /// writes this file and no other.
    const QString& FilePath() const { return FilePath_; }
    /// The file's name without folder; empty for a new document.
    const QString& FileTitle() const { return FileTitle_; }
    /// The name of the game's map that belongs to the script, without folder.
    const QString& MapName() const { return MapName_; }
    bool HasFileName() const { return HasFileName_; }
    /// The text has changed since it was last read or saved.
    bool Dirty() const { return Dirty_; }
    bool EditorReady() const { return longWork_.EditorReady(); }
    /// Of the window: the display name, the program's behind it, and a "*" while it is dirty.
    QString title() const;
    /// What questions call the document. Before the first one, the program's name.
    QString displayName() const;
    /// The script's name without its extension; empty for a new document.
    QString baseName() const;

    /// The text of the editor has changed.
    void textChanged();
    /// Copies the text to the backup file of the map. A script that could not be read has no backup
    /// before its empty text is changed: a good backup is not replaced by nothing.
    void SaveBackup();

    // --- At start ------------------------------------------------------------------------------
    /// Shows the first title, and takes from the settings the folder that Save As starts from.
    void start();
    /// Starts a new document: from the preset if that is wanted and can be read, else empty.
    void startNew();
    /// Opens the script that the whole command line names, less its double quotes. One that cannot
    /// be read gives an empty text under that name, and the first save asks for a name.
    void startWith(QString commandLine);

    // --- Operations; they ask for nothing but a file ---------------------------------------------
    void NewFile();
    void OpenFile();
    /// The document is clean afterwards also when the disk refused the text: then the old file
    /// stays as it was, and nobody is told. The same goes for SaveAs and its new name.
    void SaveCurrent();
    void SaveAs();

    // --- Commands ------------------------------------------------------------------------------
    void funNew_Click();
    void funOpen_Click();
    void funSave_Click();
    void funSaveAs_Click() { SaveAs(); }
    /// Asks first. A preset that cannot be written stays as it was, and nobody is told.
    void funSavePreset_Click();
    /// As funOpen_Click, for a file that is named already.
    void openDropped(const QString& path);
    /// Asks about unsaved text when the window is to close; false to let it stay.
    bool mayClose();

  private:
    QString inProgramFolder(const char* name) const;
    QString openQuestion() const;
    /// Offers to save unsaved text in front of something that would lose it; false to let that be.
    bool offerToSave(const QString& question, const QString& title);
    std::optional<Rope> readPreset();
    std::optional<QString> askForFile(const FileQuestion& question);
    void openPath(const QString& path);
    void takeName(const QString& path);
    void write(const QString& path) const;
    void startEmpty();
    void load(const Rope& FileText);
    void setText(const Rope& text);
    void becomeUntitled();
    void becomeNamed();
    void backUpWhenFree();
    void showTitle();
    void reportUnreadable();

    const AppState& state_;
    const Environment& environment_;
    KELP_RTBSyntax& editor_;
    CommandLock& lock_;
    UndoHistory& undo_;
    Events events_;
    LongWork longWork_;
    AutoBackup backup_;
    QString FilePath_;
    QString FileTitle_;
    QString MapName_;
    std::optional<QString> name_;  // in the title; none before the first document
    QString saveFolder_;
    bool HasFileName_ = false;
    bool needsNewName_ = false;  // FilePath_ could not be read: a save must not write over it
    bool hasText_ = true;        // false: the text is empty because the script could not be read
    bool Dirty_ = false;
    bool backupWaits_ = false;
};

}  // namespace brindlex
