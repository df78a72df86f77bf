#include "shell/frmMain.h"

#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QListWidget>
#include <QMenuBar>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTreeWidget>
#include <algorithm>
#include <utility>

#include "dialogs/frmOptions.h"
#include "document/AppState.h"
#include "document/Environment.h"
#include "editor/ScriptSyntax.h"
#include "reference/ImportMapEntities.h"
#include "system/Desktop.h"
#include "system/DroppedFile.h"
#include "system/Twips.h"

namespace brindlex {
namespace {}  // namespace

// Of two controls that overlap, the one made later lies above.
frmMain::frmMain(AppState& state, const Environment& environment)
    : state_(state),
      environment_(environment),
      menuBar_(new QMenuBar(this)),
      inner_(new QWidget(this)),
      commands_(*this, *menuBar_),
      editor_(makeEditor()),
      lock_(*editor_),
      sidePanels_(commands_.entry("funShowCmd"), commands_.entry("funScriptTar"), inner_),
      picToolBar_(makeToolBar()),
      errorLine_(environment.desktop, lock_, *this, inner_),
      statusPanes_(inner_),
      reference_(environment.programFolder),
      completionPopup_(
          *editor_,
          [this](const std::string& word) {
              return reference_.usageOf(QString::fromStdString(word));
          },
          inner_),
      typingAids_(state, *editor_, completionPopup_),
      undo_(state, *editor_),
      document_(state, environment, *editor_, lock_, undo_, documentEvents()),
      editCommands_(environment, *editor_, document_),
      commandTree_(
          sidePanels_.TreeView1(),
          {.insert = [this](const QString& command) { insertPicked(command); },
           .describe = [this](const QString& usage,
                              const QString& text) { sidePanels_.describe(usage, text); }}),
      entityTree_(sidePanels_.TreeView2(), [this](const QString& value) { insertPicked(value); }),
      layout_(controls()),
      position_(*this, environment.settings) {
    setObjectName(QStringLiteral("frmMain"));
    forms_.add(*this);
    wireEditor();
    makeShortcuts();
    setTabOrders();
    setAcceptDrops(true);
    setFirstSize();
}

frmMain::~frmMain() {
    // The parts go before the editor, which may still have a composed text to put in.
    editor_->onChange = nullptr;
    editor_->onSelChange = nullptr;
}

KELP_RTBSyntax* frmMain::makeEditor() {
    auto* editor = new KELP_RTBSyntax(inner_);
    editor->setObjectName(QStringLiteral("KELP_RTBSyntax1"));
    editor->SetBorderStyle(0);
    editor->SetBulletIndent(1);
    editor->SetHideSelection(false);
    editor->SetRightMargin(100000);
    editor->SetColorOf_Constants(128);
    return editor;
}

ToolBar* frmMain::makeToolBar() {
    const auto run = [this](const QString& entry) { commands_.run(entry); };
    return new ToolBar(environment_.programFolder, run, inner_);
}

MainLayout::Controls frmMain::controls() {
    return {*inner_,
            *picToolBar_,
            *editor_,
            sidePanels_.TreeView1(),
            sidePanels_.Picture1(),
            sidePanels_.entityPane(),
            errorLine_.SB2(),
            errorLine_.txtError(),
            statusPanes_.SB1()};
}

void frmMain::wireEditor() {
    editor_->onChange = [this] { KELP_RTBSyntax1_Change(); };
    editor_->onSelChange = [this] { KELP_RTBSyntax1_SelChange(); };
    editor_->onKeyDown = [this](int& KeyCode, int Shift) { typingAids_.KeyDown(KeyCode, Shift); };
    editor_->onKeyPress = [this](int& KeyAscii) { typingAids_.KeyPress(KeyAscii); };
    editor_->onClick = [this] { typingAids_.Click(); };
    completionPopup_.onTake = [this] { typingAids_.takeWord(); };
    editor_->setCommands({.undo = [this] { run(&frmMain::Undo); },
                          .copy = [this] { run(&frmMain::funCopy_Click); },
                          .paste = [this] { run(&frmMain::funPaste_Click); },
                          .cut = [this] { run(&frmMain::funCut_Click); }});
}

Document::Events frmMain::documentEvents() {
    return {
        .titleChanged =
            [this](QString title) {
                // "[*]" is a place holder of the toolkit unless it stands twice.
                setWindowTitle(title.replace(QLatin1String("[*]"), "[*][*]"));
            },
        .problem = [this](const QString& message) { UpdateError(message); },
        .loading = [this](bool loading) { statusPanes_.setLineVisible(!loading); },
        .textReplaced =
            [this] {
                statusPanes_.showLine(editor_->GetCurrentLine());
                completionPopup_.hide();
            },
        .backedUp = [this](QTime time) { statusPanes_.showBackupTime(time); },
        .opened = [this] { importMap(); },
        .startedWithScript = [this] { importMap(); },
    };
}

void frmMain::makeShortcuts() {
    const auto onKey = [this](const QKeySequence& key, auto handler) {
        connect(new QShortcut(key, this), &QShortcut::activated, this, handler);
    };
    onKey(Qt::Key_F10, [this] { menuBar_->setActiveAction(menuBar_->actions().constFirst()); });
    // Tab is a character in the editor, so the way out of it is another key.
    onKey(Qt::CTRL | Qt::Key_F6, [this] { focusNextChild(); });
}

void frmMain::setTabOrders() {
    QWidget* const order[] = {&editor_->rtb(), &sidePanels_.TreeView1(), &sidePanels_.TreeView2(),
                              &errorLine_.txtError()};
    for (std::size_t i = 1; i < std::size(order); ++i) setTabOrder(order[i - 1], order[i]);
    editor_->SetFocus();
}

void frmMain::setFirstSize() {
    position_.setFirstSize({Twips::toPixels(MainLayout::kFirstInnerWidth),
                            Twips::toPixels(MainLayout::kFirstInnerHeight) + menuHeight()});
}

// --- The window's own events ---------------------------------------------------------------------

void frmMain::Form_Load() {
    errorLine_.clear();
    reference_.open();
    position_.restore();
    FormLoaded_ = true;
    completionPopup_.hide();
    makeOptions();
    editor_->SetFont(editorFont(state_));
    InitSyntaxEditor();
    picToolBar_->startTimer1();
    document_.start();
    editor_->SetSelIndent(3);
    showPanelOfSettings();
    state_.UndoRecording = true;
    KELP_RTBSyntax1_Change();
    statusPanes_.InitStatusPanes();
    lock_.run([this] {
        if (environment_.commandLine.isEmpty())
            document_.startNew();
        else
            document_.startWith(environment_.commandLine);
    });
    LoadScriptRef();
}

void frmMain::LoadScriptRef() {
    commandTree_.LoadScriptRef(reference_,
                               [this](const QString& problem) { UpdateError(problem); });
}

void frmMain::importMap() {
    ImportMapEntities(state_.WolfDir, document_.MapName(), entityTree_,
                      [this](const QString& problem) { UpdateError(problem); });
}

void frmMain::makeOptions() {
    options_ = std::make_unique<frmOptions>(
        state_, environment_.settings,
        OptionsCallbacks{.hidePanels = [this] { sidePanels_.show(SidePanel::None); },
                         .funShowCmd_Click = [this] { funShowCmd_Click(); },
                         .funScriptTar_Click = [this] { funScriptTar_Click(); },
                         .Form_Resize = [this] { Form_Resize(); }},
        this);
    forms_.add(*options_);
}

void frmMain::showPanelOfSettings() {
    if (state_.ShowTreeView == kShowCommandTree) sidePanels_.show(SidePanel::Commands);
    if (state_.ShowTreeView == kShowEntityTree) sidePanels_.show(SidePanel::Entities);
    if (state_.ShowTreeView == kShowNoTree) sidePanels_.show(SidePanel::None);
}

void frmMain::Form_Resize() {
    const SidePanel panel = sidePanels_.shown();
    if (panel != SidePanel::None && isMinimized()) return;
    const QSize border = frameGeometry().size() - size();
    setMinimumSize((MainLayout::leastSize(panel) - border).expandedTo(QSize(0, 0)));
    arrangeMenu();
    layout_.arrange(panel);
}

void frmMain::Form_QueryUnload(bool& Cancel) {
    Cancel = !document_.mayClose();
    if (Cancel) return;
    reference_.close();
    ended_ = true;
    environment_.endProgram();
}

void frmMain::closeEvent(QCloseEvent* event) {
    bool cancel = !ended_;
    if (cancel && !closing_ && !lock_.run([&] { closeNow(cancel); })) closeWhenFree();
    event->setAccepted(!cancel);
}

void frmMain::closeNow(bool& Cancel) {
    const QScopedValueRollback closing(closing_, true);
    Form_QueryUnload(Cancel);
}

void frmMain::closeWhenFree() {
    if (std::exchange(closeWaits_, true)) return;
    lock_.runWhenFree([this] {
        closeWaits_ = false;
        close();
    });
}

void frmMain::resizeEvent(QResizeEvent*) {
    Form_Resize();
}

void frmMain::paintEvent(QPaintEvent*) {
    if (std::exchange(painted_, true)) return;
    QMetaObject::invokeMethod(
        this,
        [this] {
            position_.frameIsKnown();
            Form_Resize();
        },
        Qt::QueuedConnection);
}

void frmMain::dragEnterEvent(QDragEnterEvent* event) {
    acceptFile(*event);
}

void frmMain::dropEvent(QDropEvent* event) {
    const QString path = acceptFile(*event);
    if (path.isEmpty()) return;
    // Later: the program that the file comes from waits until the drop is done.
    QMetaObject::invokeMethod(
        this, [this, path] { openDropped(path); }, Qt::QueuedConnection);
}

void frmMain::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    const QEvent::Type type = event->type();
    if (FormLoaded_ && (type == QEvent::FontChange || type == QEvent::StyleChange)) Form_Resize();
}

int frmMain::menuHeight() const {
    return menuBar_->isNativeMenuBar() ? 0 : menuBar_->sizeHint().height();
}

void frmMain::arrangeMenu() {
    const int height = menuHeight();
    menuBar_->setGeometry(0, 0, width(), height);
    inner_->setGeometry(0, height, width(), std::max(0, this->height() - height));
}

// --- The editor ----------------------------------------------------------------------------------

void frmMain::InitSyntaxEditor() {
    applyScriptSyntax(*editor_, state_.ColorValues);
}

void frmMain::KELP_RTBSyntax1_Change() {
    document_.textChanged();
    const bool isTyped = document_.EditorReady() && state_.UndoRecording;
    if (isTyped) undo_.record();
    typingAids_.Change(isTyped);
}

void frmMain::KELP_RTBSyntax1_SelChange() {
    if (!FormLoaded_) return;
    CaretPosition_ = editor_->SelStart();
    statusPanes_.showLine(editor_->GetCurrentLine());
}

// --- Commands ------------------------------------------------------------------------------------

void frmMain::run(Command command) {
    lock_.run([this, command] { (this->*command)(); });
}

void frmMain::openDropped(const QString& path) {
    lock_.run([this, &path] { document_.openDropped(path); });
}

QString frmMain::UpdateError(const QString& ErrorMessage) {
    errorLine_.UpdateError(ErrorMessage);
    return {};
}

void frmMain::funEdit_Click() {
    const RichTextBox& box = editor_->box();
    for (const char* name : {"funSearch", "funReplace", "funGoTo"})
        commands_.enable(name, box.length() > 0);
    for (const char* name : {"funCut", "funCopy"}) commands_.enable(name, !box.selection().empty());
    commands_.enable("funPaste", environment_.desktop.hasClipboardText());
    commands_.enable("funInsMap", !document_.FileTitle().isEmpty());
}

void frmMain::insertPicked(const QString& word) {
    lock_.run([this, &word] {
        typingAids_.exactly([this, &word] { editCommands_.insert(word); });
        editor_->SetFocus();
    });
}

void frmMain::funPaste_Click() {
    typingAids_.takeOutRest();
    editCommands_.funPaste_Click();
}

void frmMain::funInsMap_Click() {
    typingAids_.exactly([this] { editCommands_.funInsMap_Click(); });
}

void frmMain::funInsTD_Click() {
    typingAids_.exactly([this] { editCommands_.funInsTD_Click(); });
}

void frmMain::togglePanel(SidePanel panel) {
    const bool hadFocus = sidePanels_.haveFocus();
    sidePanels_.toggle(panel);
    if (hadFocus) editor_->SetFocus();
    Form_Resize();
}

}  // namespace brindlex
