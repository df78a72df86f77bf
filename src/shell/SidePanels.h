#pragma once

#include <QWidget>

class QAction;
class QTreeWidget;

namespace brindlex {

class CaptionLabel;

enum class SidePanel {
    None,
    Commands,  ///< TreeView1 above Picture1
    Entities,  ///< TreeView2
};

/// The panels at the right of the editor, of which one shows at the most: the command reference
/// with its description pane, and the names of the map's entities.
class SidePanels {
  public:
    /// The actions carry the check marks of the panels; `parent` owns the controls.
    SidePanels(QAction& funShowCmd, QAction& funScriptTar, QWidget* parent);

    QTreeWidget& TreeView1() { return *TreeView1_; }
    QTreeWidget& TreeView2() { return *TreeView2_; }
    QWidget& Picture1() { return *Picture1_; }
    CaptionLabel& Label3() { return *Label3_; }
    CaptionLabel& Label4() { return *Label4_; }

    SidePanel shown() const { return shown_; }
    /// Shows this panel alone and sets the check marks to match.
    void show(SidePanel panel);
    /// Hides the panel if it shows, else shows it.
    void toggle(SidePanel panel);
    /// Whether one of the trees has the keyboard focus of the window.
    bool haveFocus() const;

  private:
    QAction& funShowCmd_;
    QAction& funScriptTar_;
    QTreeWidget* TreeView1_;
    QTreeWidget* TreeView2_;
    QWidget* Picture1_;
    CaptionLabel* Label3_;
    CaptionLabel* Label4_;
    SidePanel shown_ = SidePanel::None;
};

}  // namespace brindlex
