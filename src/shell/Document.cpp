#include "shell/Document.h"

#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>
#include <QWidget>
#include <tuple>
#include <utility>
#include <variant>

#include "editor/KELP_RTBSyntax.h"
#include "platform/Desktop.h"
#include "platform/Files.h"
#include "shell/AppState.h"
#include "shell/AutoBackup.h"
#include "shell/ErrorLine.h"
#include "shell/Module1.h"
#include "shell/ScriptFile.h"
#include "shell/StatusPanes.h"

namespace brindlex {
namespace {

const QString kProgram = QStringLiteral("Brindlex");
constexpr qsizetype kExtensionLength = 7;  // of ".script"

const QStringList kFilters = {QStringLiteral("Script files (*.script)"), QStringLiteral("*.script"),
                              QStringLiteral("All files (*.*)"), QStringLiteral("*.*")};

/// A script's name less the length of its usual extension, whatever it really ends in; a name that
/// is shorter than that loses the extension that it has.
QString baseNameOf(const QString& fileTitle) {
    if (fileTitle.size() >= kExtensionLength) return fileTitle.chopped(kExtensionLength);
    return fileTitle.left(fileTitle.lastIndexOf('.'));
}

}  // namespace

/// A command's turn, if no other has it. A text that is being composed belongs to the document
/// that the command finds.
class Document::Turn {
  public:
    explicit Turn(Document& document) : isMine_(!document.busy_), busy_(document.busy_, true) {
        if (isMine_) document.parts_.editor.rtb().commitComposition();
    }
    explicit operator bool() const { return isMine_; }

  private:
    bool isMine_;
    QScopedValueRollback<bool> busy_;
};

Document::Document(Parts parts)
    : parts_(std::move(parts)),
      loader_({parts_.window, parts_.desktop, parts_.editor, parts_.panes}) {
    showTitle();
}

QString Document::displayName() const {
    return name_.value_or(kProgram);
}

QString Document::title() const {
    const QString clean = name_ ? *name_ + " - " + kProgram : kProgram;
    return Dirty_ ? clean + '*' : clean;
}

QString Document::baseName() const {
    return baseNameOf(FileTitle_);
}

void Document::showTitle() {
    // "[*]" is a place holder of the toolkit unless it stands twice.
    parts_.window.setWindowTitle(title().replace(QLatin1String("[*]"), "[*][*]"));
}

void Document::textChanged() {
    if (!std::exchange(Dirty_, true)) showTitle();
    parts_.backup.start();
}

void Document::initDialogs() {
    saveFolder_ = parts_.state.WolfDir;
}

QString Document::inProgramFolder(const char* name) const {
    return parts_.programFolder + '/' + QString::fromLatin1(name);
}

void Document::reportUnreadable() {
    parts_.errors.UpdateError(QStringLiteral("Unknown error involving the script or map file."));
}

// --- Putting a text into the editor --------------------------------------------------------------

void Document::load(std::string FileText, void (Document::*become)()) {
    putIn(std::move(FileText), become);
    if (onLoaded) onLoaded();
}

void Document::putIn(std::string FileText, void (Document::*become)()) {
    const QScopedValueRollback busy(busy_, true);
    const QScopedValueRollback loading(loading_, true);
    loader_.put(FileText);
    FileText = {};
    if (onTextReplaced) onTextReplaced();
    parts_.panes.showLine(parts_.editor.GetCurrentLine());
    const Rope loaded = parts_.editor.box().rope();
    EditorLoader::yield();
    (this->*become)();
    // Input methods and screen readers may have edited it in the yield.
    if (!(parts_.editor.box().rope() == loaded)) textChanged();
}

void Document::becomeUntitled() {
    Dirty_ = false;
    HasFileName_ = false;
    name_ = QStringLiteral("Untitled");
    showTitle();
    FileTitle_.clear();
    parts_.backup.stop();
}

void Document::becomeNamed() {
    Dirty_ = false;
    HasFileName_ = true;
    name_ = FileTitle_;
    showTitle();
}

void Document::takeName(const QString& path) {
    FilePath_ = path;
    FileTitle_ = FileNameOf(path);
    needsNewName_ = false;
}

// --- At start ------------------------------------------------------------------------------------

void Document::startNew() {
    if (!parts_.state.GetPresetEnabled) return startEmpty();
    load(readPreset().value_or(std::string()), &Document::becomeUntitled);
}

void Document::startEmpty() {
    parts_.editor.SetText({});
    if (onTextReplaced) onTextReplaced();
    becomeUntitled();
    if (onLoaded) onLoaded();
}

void Document::startWith(QString commandLine) {
    takeName(commandLine.remove('"'));
    MapName_ = baseName() + ".map";
    std::optional<std::string> FileText = Files::read(FilePath_);
    const QFileInfo file(Files::toSystemPath(FilePath_));
    needsNewName_ = !FileText && (file.exists() || !file.dir().exists());
    load(std::move(FileText).value_or(std::string()), &Document::becomeNamed);
}

// --- Operations ----------------------------------------------------------------------------------

void Document::NewFile() {
    if (!parts_.state.GetPresetEnabled) return startEmpty();
    if (auto preset = readPreset()) load(std::move(*preset), &Document::becomeUntitled);
}

std::optional<std::string> Document::readPreset() {
    const QString path = inProgramFolder("preset.txt");
    if (!FileExists(path)) return std::nullopt;
    std::optional<std::string> preset = Files::read(path);
    if (!preset) reportUnreadable();
    return preset;
}

std::optional<QString> Document::askForFile(const FileQuestion& question) {
    const FileAnswer answer = parts_.desktop.askFile(&parts_.window, question);
    if (const auto* failure = std::get_if<DialogFailure>(&answer))
        parts_.desktop.showBox(&parts_.window,
                               {.text = "Error " + QString::number(failure->number) +
                                        " selecting file.\r\n" + failure->description,
                                .title = kProgram});
    const auto* path = std::get_if<QString>(&answer);
    return path ? std::optional(*path) : std::nullopt;
}

void Document::OpenFile() {
    const auto path = askForFile({.title = QStringLiteral("Open script file"),
                                  .folder = parts_.state.WolfDir,
                                  .filters = kFilters});
    if (path) openPath(*path);
}

void Document::openPath(const QString& path) {
    std::optional<std::string> FileText = Files::read(path);
    if (!FileText) return reportUnreadable();
    takeName(path);
    MapName_ = baseName() + ".map";
    load(std::move(*FileText), &Document::becomeNamed);
    parts_.backup.start();
    parts_.backup.SaveBackup(MapName_);
}

void Document::SaveCurrent() {
    write(FilePath_);
    becomeNamed();
    parts_.backup.SaveBackup(MapName_);
}

void Document::SaveAs() {
    const auto path = askForFile({.title = QStringLiteral("Save script file"),
                                  .folder = saveFolder_,
                                  .filters = kFilters,
                                  .save = true});
    if (!path) return;
    takeName(*path);
    write(FilePath_);
    becomeNamed();
}

void Document::write(const QString& path) const {
    // The product counts a failed save as saved and tells nobody; the old file stays whole.
    std::ignore = writeScript(path, parts_.editor.box().rope());
}

// --- Commands ------------------------------------------------------------------------------------

bool Document::offerToSave(const QString& question, const QString& title) {
    if (!Dirty_) return true;
    const BoxAnswer answer = parts_.desktop.showBox(
        &parts_.window, {question, title, BoxIcon::Question, BoxButtons::YesNoCancel});
    if (answer == BoxAnswer::Yes) save();
    return answer != BoxAnswer::Cancel;
}

void Document::save() {
    if (HasFileName_ && !needsNewName_)
        SaveCurrent();
    else
        SaveAs();
}

bool Document::mayClose() {
    const Turn turn(*this);
    return turn && offerToSave("Do you want to save changes to " + displayName() + '?', kProgram);
}

void Document::funNew_Click() {
    const Turn turn(*this);
    if (!turn) return;
    const QString question =
        HasFileName_ ? "Do you want to save " + displayName() + '?' : "Do you want to save?";
    if (offerToSave(question, QStringLiteral("Save?"))) NewFile();
}

QString Document::openQuestion() const {
    return "Do you want to save " + displayName();
}

void Document::funOpen_Click() {
    const Turn turn(*this);
    if (turn && offerToSave(openQuestion(), QStringLiteral("Save?"))) OpenFile();
}

void Document::openDropped(const QString& path) {
    const Turn turn(*this);
    if (turn && offerToSave(openQuestion(), QStringLiteral("Save?"))) openPath(path);
}

void Document::funSave_Click() {
    const Turn turn(*this);
    if (turn) save();
}

void Document::funSaveAs_Click() {
    const Turn turn(*this);
    if (turn) SaveAs();
}

void Document::funSavePreset_Click() {
    const Turn turn(*this);
    if (!turn) return;
    const BoxAnswer answer = parts_.desktop.showBox(
        &parts_.window,
        {.text = QStringLiteral("Are you sure you want to change the preset?\r\nWhile it is not "
                                "extremely important, there is no option to reset it!"),
         .title = QStringLiteral("Confirm"),
         .icon = BoxIcon::Warning,
         .buttons = BoxButtons::YesNo});
    if (answer == BoxAnswer::Yes) write(inProgramFolder("preset.txt"));
}

}  // namespace brindlex
