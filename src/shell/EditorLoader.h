#pragma once

#include <string_view>

class QWidget;

namespace brindlex {

class Desktop;
class KELP_RTBSyntax;
class StatusPanes;

/// Puts whole texts into the editor, which is out of sight meanwhile.
class EditorLoader {
  public:
    /// All of them outlive the loader.
    struct Parts {
        QWidget& window;
        Desktop& desktop;
        KELP_RTBSyntax& editor;
        StatusPanes& panes;
    };

    explicit EditorLoader(const Parts& parts) : parts_(parts) {}

    /// False while a text is being put in, and before the first one was.
    bool EditorReady() const { return EditorReady_; }
    /// Puts the text in and colours it. The pointer is busy and the rest of the window is drawn
    /// before that; the widget with the focus has it again afterwards.
    void put(std::string_view text);
    /// Lets the program draw and answer others. What the user does meanwhile waits, so that no
    /// second load begins in the middle of one.
    static void yield();

  private:
    class LoadingTime;

    Parts parts_;
    bool EditorReady_ = false;
};

}  // namespace brindlex
