#include "shell/EditorLoader.h"

#include <QCoreApplication>
#include <QPointer>
#include <QWidget>

#include "editor/KELP_RTBSyntax.h"
#include "platform/Desktop.h"
#include "shell/StatusPanes.h"

namespace brindlex {

class EditorLoader::LoadingTime {
  public:
    explicit LoadingTime(EditorLoader& loader)
        : loader_(loader), focus_(loader.parts_.window.focusWidget()) {
        loader_.EditorReady_ = false;
        loader_.parts_.desktop.setBusyPointer(true);
        setVisible(false);
    }
    ~LoadingTime() {
        loader_.EditorReady_ = true;
        loader_.parts_.desktop.setBusyPointer(false);
        setVisible(true);
        if (focus_) focus_->setFocus();
    }
    LoadingTime(const LoadingTime&) = delete;
    LoadingTime& operator=(const LoadingTime&) = delete;

  private:
    void setVisible(bool visible) {
        loader_.parts_.editor.setVisible(visible);
        loader_.parts_.panes.setLineVisible(visible);
    }

    EditorLoader& loader_;
    QPointer<QWidget> focus_;  // hiding the editor takes the focus from it
};

void EditorLoader::put(std::string_view text) {
    const LoadingTime loadingTime(*this);
    yield();
    parts_.editor.SetText(text);
}

void EditorLoader::yield() {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

}  // namespace brindlex
