#include <benchmark/benchmark.h>
#ifdef __GLIBC__
#include <malloc.h>
#endif

#include "bench/OpenProgram.h"
#include "bench/Typist.h"

namespace brindlex::bench {
namespace {

/// Bytes that the process has allocated; 0 where the system does not say.
double allocated() {
#ifdef __GLIBC__
    const auto info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
#else
    return 0;
#endif
}

void openInTheMiddle(OpenProgram& program) {
    program.window().OpenFile();
    KELP_RTBSyntax& editor = program.window().KELP_RTBSyntax1();
    editor.SetSelStart(editor.GetCharNr(editor.GetLineCount() / 2) + 1);
}

/// A typed character in the main window, with its undo record, nothing painted; and the memory that
/// a step keeps.
void typeRecorded(benchmark::State& state) {
    OpenProgram program(static_cast<std::size_t>(state.range(0)));
    openInTheMiddle(program);
    Typist typist(program.window().KELP_RTBSyntax1().rtb());
    const double before = allocated();
    for (auto _ : state) typist.typeNext();
    state.counters["bytes_a_step"] =
        (allocated() - before) / static_cast<double>(state.iterations());
}
BENCHMARK(typeRecorded)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Arg(10'000'000)
    ->Unit(benchmark::kMicrosecond);

/// Typing so many characters into a script of 1 MB, then undoing and redoing them all.
void typeUndoRedo(benchmark::State& state) {
    const auto steps = state.range(0);
    for (auto _ : state) {
        state.PauseTiming();
        OpenProgram program(1'000'000);
        openInTheMiddle(program);
        Typist typist(program.window().KELP_RTBSyntax1().rtb());
        const double before = allocated();
        state.ResumeTiming();
        for (std::int64_t i = 0; i < steps; ++i) typist.typeNext();
        state.counters["MB_kept"] = (allocated() - before) / 1e6;
        for (std::int64_t i = 0; i < steps; ++i) program.window().Undo();
        for (std::int64_t i = 0; i < steps; ++i) program.window().Redo();
    }
    state.SetItemsProcessed(state.iterations() * steps * 3);
}
BENCHMARK(typeUndoRedo)
    ->Arg(1'000)
    ->Arg(10'000)
    ->Arg(100'000)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlex::bench
