#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

namespace brindlex {

class Desktop;
class KELP_RTBSyntax;

/// Work that takes its time: the pointer is busy and the editor is out of sight meanwhile, and the
/// rest of the window is drawn in between. It runs within a command, so no other command starts in
/// its yields (CommandLock).
class LongWork {
  public:
    enum class Step {
        EditorNotReady,
        EditorReady,
        BusyPointer,
        NormalPointer,
        HideEditor,
        ShowEditor,  ///< gives the focus back to the widget that had it
        TellLoading,
        TellLoaded,
        Yield,  ///< lets the window draw and answer other programs; what the user does waits
    };
    /// What comes before and after a kind of work, in order.
    struct Order {
        std::vector<Step> before;
        std::vector<Step> after;
    };
    /// Putting a document into the editor.
    static const Order kLoad;

    /// `desktop` and `editor` outlive this object. `loading` hears true when a text begins to load,
    /// and false when it has.
    LongWork(Desktop& desktop, KELP_RTBSyntax& editor, std::function<void(bool)> loading);

    void run(const Order& order, const std::function<void()>& work);

    /// False during a load and before the first one. Starting with an empty text is no load.
    bool EditorReady() const { return editorReady_; }

  private:
    void take(Step step);

    Desktop& desktop_;
    KELP_RTBSyntax& editor_;
    std::function<void(bool)> loading_;
    bool editorReady_ = false;
    QPointer<QWidget> focus_;  // hiding the editor takes the focus from it
};

}  // namespace brindlex
