#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <chrono>

#include "bench/OpenProgram.h"
#include "reference/ReferenceDatabase.h"

namespace brindlex::bench {
namespace {

constexpr int kCandidates = 12;

void press(QWidget& view, int key, const QString& text) {
    QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
    QApplication::sendEvent(&view, &event);
    QApplication::processEvents();
}

/// A program with a script, the caret in an empty line in its middle, and words to offer that are
/// as long as those of the language and have a row in the reference.
struct Completing {
    explicit Completing(std::size_t bytes) : program(bytes) {
        program.window().OpenFile();
        program.state().AutoCompleteEnabled = true;
        program.state().Keywords.assign(kCandidates, "wm_announce");
        KELP_RTBSyntax& editor = program.window().KELP_RTBSyntax1();
        editor.SetSelStart(editor.GetCharNr(editor.GetLineCount() / 2) + 1);
        editor.SetSelText("\r\n");
        editor.SetSelStart(editor.SelStart() - 2);
    }
    /// Types a character, with its offer, and takes both back. Returns the seconds of the first.
    double typeAndTakeBack() {
        RichTextView& view = program.window().KELP_RTBSyntax1().rtb();
        const auto start = std::chrono::steady_clock::now();
        press(view, Qt::Key_W, QStringLiteral("w"));
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
        for (int key = 0; key < 2; ++key) press(view, Qt::Key_Backspace, QStringLiteral("\b"));
        return taken.count();
    }
    OpenProgram program;
};

void typeCompleted(benchmark::State& state) {
    Completing completing(static_cast<std::size_t>(state.range(0)));
    completing.program.window().hide();
    completing.program.window().KELP_RTBSyntax1().rtb().setRedraw(false);
    for (auto _ : state) state.SetIterationTime(completing.typeAndTakeBack());
}
BENCHMARK(typeCompleted)
    ->Arg(100'000)
    ->Arg(10'000'000)
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

void typeCompletedAndPaint(benchmark::State& state) {
    Completing completing(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) state.SetIterationTime(completing.typeAndTakeBack());
}
BENCHMARK(typeCompletedAndPaint)->Arg(1'000'000)->UseManualTime()->Unit(benchmark::kMicrosecond);

void loadScriptRef(benchmark::State& state) {
    OpenProgram program(1000);
    for (auto _ : state) program.window().LoadScriptRef();
}
BENCHMARK(loadScriptRef)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brindlex::bench
