#include "document/LongWork.h"

#include <QCoreApplication>
#include <utility>

#include "editor/KELP_RTBSyntax.h"
#include "system/Desktop.h"

namespace brindlex {

using Step = LongWork::Step;

const LongWork::Order LongWork::kLoad{
    {Step::EditorNotReady, Step::BusyPointer, Step::HideEditor, Step::TellLoading, Step::Yield},
    {Step::EditorReady, Step::NormalPointer, Step::ShowEditor, Step::TellLoaded, Step::Yield}};

LongWork::LongWork(Desktop& desktop, KELP_RTBSyntax& editor, std::function<void(bool)> loading)
    : desktop_(desktop), editor_(editor), loading_(std::move(loading)) {}

void LongWork::run(const Order& order, const std::function<void()>& work) {
    for (const Step step : order.before) take(step);
    work();
    for (const Step step : order.after) take(step);
}

void LongWork::take(Step step) {
    switch (step) {
        case Step::EditorNotReady:
        case Step::EditorReady:
            editorReady_ = step == Step::EditorReady;
            break;
        case Step::BusyPointer:
        case Step::NormalPointer:
            desktop_.setBusyPointer(step == Step::BusyPointer);
            break;
        case Step::HideEditor:
            focus_ = editor_.window()->focusWidget();
            editor_.hide();
            break;
        case Step::ShowEditor:
            editor_.show();
            if (focus_) focus_->setFocus();
            break;
        case Step::TellLoading:
        case Step::TellLoaded:
            loading_(step == Step::TellLoading);
            break;
        case Step::Yield:
            QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
            break;
    }
}

}  // namespace brindlex
