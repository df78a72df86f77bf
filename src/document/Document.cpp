#include "document/Document.h"

#include <QDateTime>
#include <tuple>
#include <utility>
#include <variant>

#include "document/AppState.h"
#include "document/CommandLock.h"
#include "document/Environment.h"
#include "document/Paths.h"
#include "document/ScriptFile.h"
#include "document/UndoHistory.h"
#include "editor/KELP_RTBSyntax.h"
#include "system/Desktop.h"
#include "system/Files.h"

namespace brindlex {
namespace {

constexpr qsizetype kExtensionLength = 7;  // of ".script"

const QStringList kFilters = {QStringLiteral("Script files (*.script)"), QStringLiteral("*.script"),
                              QStringLiteral("All files (*.*)"), QStringLiteral("*.*")};

/// A script's name less the length of its usual extension, whatever it really ends in; a name that
/// is shorter than that loses the extension that it has.
QString baseNameOf(const QString& fileTitle) {
    if (fileTitle.size() >= kExtensionLength) return fileTitle.chopped(kExtensionLength);
    return fileTitle.left(fileTitle.lastIndexOf('.'));
}

/// The file that a name leads to when it is read. Saves write this one, whatever comes beside it.
QString onDisk(const QString& path) {
    return Files::resolve(path).value_or(path);
}

}  // namespace

Document::Document(const AppState& state, const Environment& environment, KELP_RTBSyntax& editor,
                   CommandLock& lock, UndoHistory& undo, Events events)
    : state_(state),
      environment_(environment),
      editor_(editor),
      lock_(lock),
      undo_(undo),
      events_(std::move(events)),
      longWork_(environment.desktop, editor, events_.loading),
      backup_(state, environment, editor, [this] { backUpWhenFree(); }) {}

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
    events_.titleChanged(title());
}

void Document::textChanged() {
    hasText_ = hasText_ || !editor_.box().rope().empty();
    if (!std::exchange(Dirty_, true)) showTitle();
    backup_.start();
}

QString Document::inProgramFolder(const char* name) const {
    return environment_.programFolder + '/' + QString::fromLatin1(name);
}

void Document::reportUnreadable() {
    events_.problem(QStringLiteral("Unknown error involving the script or map file."));
}

void Document::SaveBackup() {
    if (hasText_ && backup_.SaveBackup(MapName_))
        events_.backedUp(environment_.desktop.now().time());
}

/// Waits for the running command: in the middle of one, the text may not belong to the name.
void Document::backUpWhenFree() {
    if (std::exchange(backupWaits_, true)) return;
    lock_.runWhenFree([this] {
        if (std::exchange(backupWaits_, false)) SaveBackup();
    });
}

// --- Putting a text into the editor --------------------------------------------------------------

void Document::load(const Rope& FileText) {
    longWork_.run(LongWork::kLoad, [&] { setText(FileText); });
}

void Document::setText(const Rope& text) {
    editor_.SetText(text);
    undo_.clear();
    // Now and not at the end: an edit that comes in a later yield (of an input method, of a screen
    // reader) is unsaved.
    Dirty_ = false;
    events_.textReplaced();
}

void Document::becomeUntitled() {
    HasFileName_ = false;
    name_ = QStringLiteral("Untitled");
    FileTitle_.clear();
    if (!Dirty_) backup_.stop();
    backupWaits_ = false;  // the backup is still named after the last script
    showTitle();
}

void Document::becomeNamed() {
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

void Document::start() {
    saveFolder_ = state_.WolfDir;
    showTitle();
}

void Document::startNew() {
    if (!state_.GetPresetEnabled) return startEmpty();
    load(readPreset().value_or(Rope()));
    becomeUntitled();
}

void Document::startEmpty() {
    setText(Rope());
    becomeUntitled();
}

void Document::startWith(QString commandLine) {
    takeName(onDisk(commandLine.remove('"')));
    MapName_ = baseName() + ".map";
    std::optional<Rope> FileText = readScript(FilePath_);
    needsNewName_ = !FileText;
    load(FileText.value_or(Rope()));
    hasText_ = !needsNewName_ || Dirty_;
    becomeNamed();
    if (events_.startedWithScript) events_.startedWithScript();
}

// --- Operations ----------------------------------------------------------------------------------

void Document::NewFile() {
    if (!state_.GetPresetEnabled) return startEmpty();
    if (auto preset = readPreset()) {
        load(*preset);
        becomeUntitled();
    }
}

std::optional<Rope> Document::readPreset() {
    const QString path = inProgramFolder("preset.txt");
    if (!FileExists(path)) return std::nullopt;
    std::optional<Rope> preset = readScript(path);
    if (!preset) reportUnreadable();
    return preset;
}

std::optional<QString> Document::askForFile(const FileQuestion& question) {
    Desktop& desktop = environment_.desktop;
    const FileAnswer answer = desktop.askFile(editor_.window(), question);
    if (const auto* failure = std::get_if<DialogFailure>(&answer))
        desktop.showBox(editor_.window(), {.text = "Error " + QString::number(failure->number) +
                                                   " selecting file.\r\n" + failure->description,
                                           .title = kProgram});
    const auto* path = std::get_if<QString>(&answer);
    return path ? std::optional(*path) : std::nullopt;
}

void Document::OpenFile() {
    const auto path = askForFile({.title = QStringLiteral("Open script file"),
                                  .folder = state_.WolfDir,
                                  .filters = kFilters});
    if (path) openPath(*path);
}

void Document::openPath(const QString& path) {
    const QString file = onDisk(path);
    const std::optional<Rope> FileText = readScript(file);
    if (!FileText) return reportUnreadable();
    takeName(file);
    MapName_ = baseName() + ".map";
    load(*FileText);
    becomeNamed();
    backup_.start();
    SaveBackup();
    if (events_.opened) events_.opened();
}

void Document::SaveCurrent() {
    write(FilePath_);
    Dirty_ = false;
    becomeNamed();
    SaveBackup();
}

void Document::SaveAs() {
    const auto path = askForFile({.title = QStringLiteral("Save script file"),
                                  .folder = saveFolder_,
                                  .filters = kFilters,
                                  .save = true});
    if (!path) return;
    takeName(*path);
    write(FilePath_);
    Dirty_ = false;
    becomeNamed();
}

void Document::write(const QString& path) const {
    // The product counts a failed save as saved and tells nobody; the old file stays whole.
    std::ignore = writeScript(path, editor_.box().rope());
}

// --- Commands ------------------------------------------------------------------------------------

bool Document::offerToSave(const QString& question, const QString& title) {
    if (!Dirty_) return true;
    const BoxAnswer answer = environment_.desktop.showBox(
        editor_.window(), {question, title, BoxIcon::Question, BoxButtons::YesNoCancel});
    if (answer == BoxAnswer::Yes) funSave_Click();
    return answer != BoxAnswer::Cancel;
}

bool Document::mayClose() {
    return offerToSave("Do you want to save changes to " + displayName() + '?', kProgram);
}

void Document::funNew_Click() {
    const QString question =
        HasFileName_ ? "Do you want to save " + displayName() + '?' : "Do you want to save?";
    if (offerToSave(question, QStringLiteral("Save?"))) NewFile();
}

QString Document::openQuestion() const {
    return "Do you want to save " + displayName();
}

void Document::funOpen_Click() {
    if (offerToSave(openQuestion(), QStringLiteral("Save?"))) OpenFile();
}

void Document::openDropped(const QString& path) {
    if (offerToSave(openQuestion(), QStringLiteral("Save?"))) openPath(path);
}

void Document::funSave_Click() {
    if (HasFileName_ && !needsNewName_)
        SaveCurrent();
    else
        SaveAs();
}

void Document::funSavePreset_Click() {
    const BoxAnswer answer = environment_.desktop.showBox(
        editor_.window(),
        {.text = QStringLiteral("Are you sure you want to change the preset?\r\nWhile it is not "
                                "extremely important, there is no option to reset it!"),
         .title = QStringLiteral("Confirm"),
         .icon = BoxIcon::Warning,
         .buttons = BoxButtons::YesNo});
    if (answer == BoxAnswer::Yes) write(inProgramFolder("preset.txt"));
}

}  // namespace brindlex
