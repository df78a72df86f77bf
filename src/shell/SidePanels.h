#pragma once

#include <QLabel>

class QAction;
class QTreeWidget;

namespace brindlex {

enum class SidePanel {
    None,
    Commands,  ///< TreeView1 above Picture1
    Entities,  ///< TreeView2
};

/// A label of plain text whose tool tip follows its caption.
class CaptionLabel : public QLabel {
  public:
    CaptionLabel(const char* name, const char* accessibleName, QWidget* parent);
    void SetCaption(const QString& caption);

  protected:
    /// Copying what is selected here comes before the menu's Copy.
    bool event(QEvent* event) override;
};

/// The panels at the right of the editor, of which at most one shows: the command reference with
/// its description pane, and the names of the map's entities.
class SidePanels {
  public:
    /// The menu entries carry the check marks of the panels; `parent` owns the controls.
    SidePanels(QAction& funShowCmd, QAction& funScriptTar, QWidget* parent);

    QTreeWidget& TreeView1() { return *TreeView1_; }
    QTreeWidget& TreeView2() { return *TreeView2_; }
    /// The parent of TreeView2, which fills it but for its margins.
    QWidget& entityPane() { return *entityPane_; }
    QWidget& Picture1() { return *Picture1_; }
    /// The texts of Label3 and Label4.
    void describe(const QString& usage, const QString& description);

    SidePanel shown() const { return shown_; }
    /// Shows this panel alone and sets the check marks to match.
    void show(SidePanel panel);
    /// Hides the panel if it shows, else shows it.
    void toggle(SidePanel panel);
    /// Whether one of the trees has the keyboard focus of the window.
    bool haveFocus() const;

  private:
    void fillDescription();

    QAction& funShowCmd_;
    QAction& funScriptTar_;
    QTreeWidget* TreeView1_;
    QTreeWidget* TreeView2_;
    QWidget* entityPane_;
    QWidget* Picture1_;
    CaptionLabel* Label3_;
    CaptionLabel* Label4_;
    SidePanel shown_ = SidePanel::None;
};

}  // namespace brindlex
