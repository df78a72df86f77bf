#include <benchmark/benchmark.h>

#include "bench/OpenProgram.h"

namespace brindlex::bench {
namespace {

/// From the answered file dialog to the coloured text in the window, both yields included.
void openFile(benchmark::State& state) {
    OpenProgram program(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) program.window().OpenFile();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(program.scriptBytes()));
}

/// What the user waits for when he copies a whole script.
void copyText(benchmark::State& state) {
    OpenProgram program(static_cast<std::size_t>(state.range(0)));
    program.window().OpenFile();
    program.window().funSelectAll_Click();
    for (auto _ : state) program.window().funCopy_Click();
}

BENCHMARK(openFile)
    ->Arg(100'000)
    ->Arg(1'000'000)
    ->Arg(10'000'000)
    ->Arg(50'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(copyText)->Arg(5'000'000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brindlex::bench
