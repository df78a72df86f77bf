#include "shell/frmMain.h"

#include <QAction>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QListWidget>
#include <QLocale>
#include <QMenuBar>
#include <QShortcut>
#include <QTreeWidget>
#include <algorithm>
#include <utility>

#include "dialogs/frmOptions.h"
#include "editor/ScriptSyntax.h"
#include "platform/Desktop.h"
#include "platform/LocalFile.h"
#include "platform/Twips.h"
#include "shell/AppState.h"
#include "shell/MainWindowSettings.h"
#include "shell/Module1.h"

namespace brindlex {
namespace {

QListWidget* makeCompletionList(QWidget* parent) {
    auto* list = new QListWidget(parent);
    list->setObjectName(QStringLiteral("List4"));
    list->setAccessibleName(QStringLiteral("Words that fit"));
    list->hide();
    return list;
}

}  // namespace

// Of two controls that overlap, the one made later lies above.
frmMain::frmMain(AppState& state, const Surroundings& surroundings)
    : state_(state),
      surroundings_(surroundings),
      menuBar_(new QMenuBar(this)),
      inner_(new QWidget(this)),
      menu_(*this, *menuBar_),
      editor_(makeEditor()),
      sidePanels_(menu_.entry("funShowCmd"), menu_.entry("funScriptTar"), inner_),
      picToolBar_(makeToolBar()),
      errorLine_(surroundings.desktop, *this, inner_),
      statusPanes_(inner_),
      List4_(makeCompletionList(inner_)),
      Picture2_(new CompletionTip(inner_)),
      backup_({state, surroundings.desktop, *editor_, statusPanes_, surroundings.programFolder},
              this),
      document_({*this, state, surroundings.desktop, *editor_, statusPanes_, errorLine_, backup_,
                 surroundings.programFolder}),
      undo_(state, *editor_),
      editCommands_(*editor_, surroundings.desktop),
      layout_(controls()),
      position_(*this, surroundings.settings) {
    setObjectName(QStringLiteral("frmMain"));
    wireEditor();
    wireDocument();
    backup_.onTimer = [this] { timerAutoSave_Timer(); };
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
    applyMainWindowSettings(*editor);
    return editor;
}

ToolBar* frmMain::makeToolBar() {
    const auto runs = [this](Command command) { return [this, command] { run(command); }; };
    const ToolBarCommands commands{.funNew_Click = runs(&frmMain::funNew_Click),
                                   .funOpen_Click = runs(&frmMain::funOpen_Click),
                                   .funSave_Click = runs(&frmMain::funSave_Click),
                                   .funCut_Click = runs(&frmMain::funCut_Click),
                                   .funCopy_Click = runs(&frmMain::funCopy_Click),
                                   .funPaste_Click = runs(&frmMain::funPaste_Click),
                                   .funSearch_Click = {},
                                   .funComBlock_Click = runs(&frmMain::funComBlock_Click),
                                   .funUnComBlock_Click = runs(&frmMain::funUnComBlock_Click),
                                   .funCount_Click = {}};
    return new ToolBar(surroundings_.programFolder, commands, inner_);
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
    editor_->rtb().onFileDropped = [this](const QString& path) { document_.openDropped(path); };
    editor_->setCommands({.undo = [this] { run(&frmMain::Undo); },
                          .copy = [this] { run(&frmMain::funCopy_Click); },
                          .paste = [this] { run(&frmMain::funPaste_Click); },
                          .cut = [this] { run(&frmMain::funCut_Click); }});
}

void frmMain::wireDocument() {
    document_.onTextReplaced = [this] { undo_.clear(); };
    document_.onLoaded = [this] {
        if (!std::exchange(closeWanted_, false)) return;
        // Behind the command that has loaded, for until then the document is busy.
        QMetaObject::invokeMethod(
            this, [this] { close(); }, Qt::QueuedConnection);
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
    position_.restore();
    FormLoaded_ = true;
    List4_->hide();
    makeOptions();
    editor_->SetFont(editorFont(state_));
    InitSyntaxEditor();
    picToolBar_->startTimer1();
    document_.initDialogs();
    editor_->SetSelIndent(3);
    showPanelOfSettings();
    state_.UndoRecording = true;
    KELP_RTBSyntax1_Change();
    statusPanes_.InitStatusPanes();
    if (surroundings_.commandLine.isEmpty())
        document_.startNew();
    else
        document_.startWith(surroundings_.commandLine);
}

void frmMain::makeOptions() {
    options_ = std::make_unique<frmOptions>(
        state_, surroundings_.settings,
        OptionsCallbacks{.hidePanels = [this] { sidePanels_.show(SidePanel::None); },
                         .funShowCmd_Click = [this] { funShowCmd_Click(); },
                         .funScriptTar_Click = [this] { funScriptTar_Click(); },
                         .Form_Resize = [this] { Form_Resize(); }},
        this);
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
    ended_ = true;
    surroundings_.endProgram();
}

void frmMain::closeEvent(QCloseEvent* event) {
    // In a yield of a load the text and its name do not belong together yet.
    closeWanted_ = document_.loading();
    bool cancel = false;
    if (!ended_) Form_QueryUnload(cancel);
    event->setAccepted(!cancel);
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
        this, [this, path] { document_.openDropped(path); }, Qt::QueuedConnection);
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
    if (!document_.EditorReady() || !state_.UndoRecording) return;
    undo_.record();
}

void frmMain::KELP_RTBSyntax1_SelChange() {
    if (!FormLoaded_) return;
    CaretPosition_ = editor_->SelStart();
    statusPanes_.showLine(editor_->GetCurrentLine());
}

void frmMain::timerAutoSave_Timer() {
    // In a load the text and the map's name do not belong together yet.
    if (!document_.loading() && backup_.tick()) SaveBackup();
}

// --- Commands ------------------------------------------------------------------------------------

void frmMain::run(Command command) {
    editor_->rtb().commitComposition();
    (this->*command)();
}

int frmMain::FormCount(const QString& frmName) const {
    const auto isNamed = [&frmName](const QWidget* form) {
        const Qt::WindowType type = form->windowType();
        return (type == Qt::Window || type == Qt::Dialog) &&
               form->objectName().compare(frmName, Qt::CaseInsensitive) == 0;
    };
    const auto forms = findChildren<QWidget*>();
    return int(std::count_if(forms.begin(), forms.end(), isNamed)) + (isNamed(this) ? 1 : 0);
}

QString frmMain::UpdateError(const QString& ErrorMessage) {
    errorLine_.UpdateError(ErrorMessage);
    return {};
}

void frmMain::funEdit_Click() {
    const RichTextBox& box = editor_->box();
    for (const char* name : {"funSearch", "funReplace", "funGoTo"})
        menu_.enable(name, box.length() > 0);
    for (const char* name : {"funCut", "funCopy"}) menu_.enable(name, !box.selection().empty());
    menu_.enable("funPaste", surroundings_.desktop.hasClipboardText());
    menu_.enable("funInsMap", !document_.FileTitle().isEmpty());
}

void frmMain::funInsMap_Click() {
    if (!document_.FileTitle().isEmpty()) return editCommands_.insert(document_.baseName());
    surroundings_.desktop.showBox(this, {.text = QStringLiteral("Load or save your script first."),
                                         .title = QStringLiteral("Load"),
                                         .icon = BoxIcon::Information,
                                         .buttons = BoxButtons::Ok});
}

void frmMain::funInsTD_Click() {
    const QDate today = surroundings_.desktop.now().date();
    editCommands_.insert(QLocale::system().toString(today, QLocale::ShortFormat));
}

void frmMain::togglePanel(SidePanel panel) {
    const bool hadFocus = sidePanels_.haveFocus();
    sidePanels_.toggle(panel);
    if (hadFocus) editor_->SetFocus();
    Form_Resize();
}

}  // namespace brindlex
