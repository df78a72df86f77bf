#include <benchmark/benchmark.h>

#include <QApplication>

#include "bench/OpenProgram.h"

namespace brindlex::bench {
namespace {

using Operation = void (KELP_RTBSyntax::*)();

/// Runs an operation on so many lines, selected from the start of the text, and paints the outcome.
void onLines(KELP_RTBSyntax& editor, Long lines, Operation operation) {
    editor.SetSelStart(0);
    editor.SetSelLength(editor.GetCharNr(lines));  // up to the LF of the last one
    (editor.*operation)();
    QApplication::processEvents();
}

/// An operation and the one that takes it back, each line with its undo record and its colours.
void editLines(benchmark::State& state, Operation there, Operation back) {
    constexpr std::size_t kBytesPerLine = 40;  // more than the lines of the generator have
    const Long lines = state.range(0);
    OpenProgram program(static_cast<std::size_t>(lines) * kBytesPerLine);
    KELP_RTBSyntax& editor = program.window().KELP_RTBSyntax1();
    for (auto _ : state) {
        state.PauseTiming();
        program.window().OpenFile();
        if (editor.GetLineCount() <= lines) return state.SkipWithError("too few lines");
        state.ResumeTiming();
        onLines(editor, lines, there);
        onLines(editor, lines, back);
    }
    state.SetItemsProcessed(state.iterations() * lines * 2);
}

void commentAndUnComment(benchmark::State& state) {
    editLines(state, &KELP_RTBSyntax::CommentBlock, &KELP_RTBSyntax::UnCommentBlock);
}

void tabAndBackTab(benchmark::State& state) {
    editLines(state, &KELP_RTBSyntax::MultiTab, &KELP_RTBSyntax::BackTab);
}

BENCHMARK(commentAndUnComment)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(tabAndBackTab)->Arg(1'000)->Arg(100'000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlex::bench
