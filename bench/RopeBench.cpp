#include <benchmark/benchmark.h>

#include <random>

#include "bench/ScriptGenerator.h"
#include "text/Rope.h"

namespace brindlex::bench {
namespace {

void ropeRandomEdits(benchmark::State& state) {
    Rope rope(generateScript(static_cast<std::size_t>(state.range(0))));
    std::mt19937 random(7);
    for (auto _ : state) {
        const Offset begin(random() % (rope.size() - 16));
        rope.replace(Range::at(begin, random() % 16), "wait 1500");
        benchmark::DoNotOptimize(rope.lineOf(begin));
    }
}
BENCHMARK(ropeRandomEdits)->Arg(100'000)->Arg(1'000'000)->Arg(10'000'000);

/// The same with a copy kept of each state, as an undo record does.
void ropeRandomEditsKept(benchmark::State& state) {
    Rope rope(generateScript(static_cast<std::size_t>(state.range(0))));
    std::mt19937 random(7);
    std::vector<Rope> kept;
    for (auto _ : state) {
        rope.replace(Range::at(Offset(random() % rope.size()), 0), "w");
        kept.push_back(rope);
        if (kept.size() == 10'000) {
            state.PauseTiming();
            kept.clear();
            state.ResumeTiming();
        }
    }
}
BENCHMARK(ropeRandomEditsKept)->Arg(100'000)->Arg(1'000'000)->Arg(10'000'000);

void ropeFromText(benchmark::State& state) {
    const std::string text = generateScript(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(Rope(text));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(ropeFromText)->Arg(100'000)->Arg(1'000'000)->Arg(10'000'000);

}  // namespace
}  // namespace brindlex::bench
