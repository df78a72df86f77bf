#include <benchmark/benchmark.h>

#include <QCursor>

#include "shell/ToolBar.h"

namespace brindlex::bench {
namespace {

/// The tick that runs a hundred times a second, with the pointer at rest. Budget: 2 microseconds.
void toolBarTick(benchmark::State& state) {
    ToolBar toolBar({}, {}, nullptr);
    toolBar.show();
    toolBar.Timer1_Timer();
    for (auto _ : state) toolBar.Timer1_Timer();
}

/// The same with a pointer that goes to and fro between two places off the buttons.
void toolBarTickOfMovingPointer(benchmark::State& state) {
    ToolBar toolBar({}, {}, nullptr);
    toolBar.show();
    const QPoint off = toolBar.mapToGlobal(QPoint(400, 300));
    int x = 0;
    for (auto _ : state) {
        QCursor::setPos(off + QPoint(x ^= 1, 0));
        toolBar.Timer1_Timer();
    }
}

BENCHMARK(toolBarTick)->Unit(benchmark::kNanosecond);
BENCHMARK(toolBarTickOfMovingPointer)->Unit(benchmark::kNanosecond);

}  // namespace
}  // namespace brindlex::bench
