#pragma once

#include <QString>
#include <functional>
#include <optional>
#include <string>

#include "shell/EditorLoader.h"

class QWidget;

namespace brindlex {

class AutoBackup;
class ErrorLine;
class KELP_RTBSyntax;
class StatusPanes;
struct AppState;
class Desktop;
struct FileQuestion;

/// The one document of the program: the file that it stands for, its state, and the title of the
/// window that tells both. The text itself lives in the editor.
class Document {
  public:
    /// The parts of the program that a document works with. All of them outlive it.
    struct Parts {
        QWidget& window;  ///< bears the title and owns the dialogs
        const AppState& state;
        Desktop& desktop;
        KELP_RTBSyntax& editor;
        StatusPanes& panes;
        ErrorLine& errors;
        AutoBackup& backup;
        QString programFolder;  ///< holds preset.txt
    };

    explicit Document(Parts parts);

    const QString& FilePath() const { return FilePath_; }
    /// The file's name without folder; empty for a new document.
    const QString& FileTitle() const { return FileTitle_; }
    /// The name of the game's map that belongs to the script, without folder.
    const QString& MapName() const { return MapName_; }
    bool HasFileName() const { return HasFileName_; }
    /// The text has changed since it was last read or saved.
    bool Dirty() const { return Dirty_; }
    /// False while a text is being loaded into the editor, and before the first one was. Starting
    /// with an empty text loads none.
    bool EditorReady() const { return loader_.EditorReady(); }
    /// Of the window: the display name, the program's behind it, and a "*" while it is dirty.
    QString title() const;
    /// What questions call the document. Before the first one, the program's name.
    QString displayName() const;
    /// The script's name without its extension; empty for a new document.
    QString baseName() const;

    /// The text of the editor has changed.
    void textChanged();
    /// A command waits for the user, or for a yield of a load. Commands take turns: one that comes
    /// in meanwhile does nothing.
    bool busy() const { return busy_; }
    /// A text is being put into the editor; its name and state may not be its own yet.
    bool loading() const { return loading_; }
    /// Raised when a new or another text has just been put into the editor.
    std::function<void()> onTextReplaced;
    /// Raised behind that, when text, name and state belong together again. The command that made
    /// it may still have its turn.
    std::function<void()> onLoaded;

    // --- At start ------------------------------------------------------------------------------
    /// Fixes what the dialogs start from.
    void initDialogs();
    /// A new document also when there is no preset to start it from.
    void startNew();
    /// Opens the script that the whole command line names, less its double quotes. One that cannot
    /// be read gives an empty text under that name. Where no file could be made either, or one
    /// stands in its place, the first save asks for a name.
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
    void funSaveAs_Click();
    /// Asks first. A preset that cannot be written stays as it was, and nobody is told.
    void funSavePreset_Click();
    /// As funOpen_Click, for a file that is named already.
    void openDropped(const QString& path);
    /// Asks about unsaved text when the window is to close; false to let it stay. It stays also
    /// while another command has its turn.
    bool mayClose();

  private:
    class Turn;

    QString inProgramFolder(const char* name) const;
    QString openQuestion() const;
    /// Offers to save unsaved text in front of something that would lose it; false to let that be.
    bool offerToSave(const QString& question, const QString& title);
    std::optional<std::string> readPreset();
    std::optional<QString> askForFile(const FileQuestion& question);
    void openPath(const QString& path);
    void takeName(const QString& path);
    void write(const QString& path) const;
    void startEmpty();
    void load(std::string FileText, void (Document::*become)());
    void putIn(std::string FileText, void (Document::*become)());
    void save();
    void becomeUntitled();
    void becomeNamed();
    void showTitle();
    void reportUnreadable();

    Parts parts_;
    EditorLoader loader_;
    QString FilePath_;
    QString FileTitle_;
    QString MapName_;
    std::optional<QString> name_;  // in the title; none before the first document
    QString saveFolder_;
    bool HasFileName_ = false;
    bool needsNewName_ = false;  // what stands there was never read, or there is no such folder
    bool Dirty_ = false;
    bool busy_ = false;
    bool loading_ = false;
};

}  // namespace brindlex
