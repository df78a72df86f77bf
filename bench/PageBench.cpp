#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <memory>

#include "bench/MainEditor.h"
#include "bench/ScriptGenerator.h"

namespace brindlex::bench {
namespace {

/// The main window's editor on the screen, with a script of 5 MB.
std::unique_ptr<KELP_RTBSyntax> showEditor() {
    auto editor = makeEditor();
    editor->SetText(generateScript(5'000'000));
    editor->show();
    editor->SetSelStart(0);
    QApplication::processEvents();
    return editor;
}

void pageOn(KELP_RTBSyntax& editor) {
    QKeyEvent press(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier);
    QApplication::sendEvent(&editor.rtb(), &press);
}

/// Keys that come faster than the screen follows: 1,000 pages, nothing painted between.
void pageDown(benchmark::State& state) {
    constexpr int kPages = 1000;
    auto editor = showEditor();
    for (auto _ : state) {
        state.PauseTiming();
        editor->SetSelStart(0);
        QApplication::processEvents();  // the lines of the last round are forgotten
        state.ResumeTiming();
        for (int page = 0; page < kPages; ++page) pageOn(*editor);
    }
}

/// One page and its painting.
void pageDownAndPaint(benchmark::State& state) {
    auto editor = showEditor();
    for (auto _ : state) {
        pageOn(*editor);
        QApplication::processEvents();
        if (editor->SelStart() + 100 > static_cast<Long>(editor->box().length()))
            editor->SetSelStart(0);
    }
}

BENCHMARK(pageDown)->Unit(benchmark::kMillisecond);
BENCHMARK(pageDownAndPaint)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brindlex::bench
