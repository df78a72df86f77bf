#include <benchmark/benchmark.h>

#include <QCoreApplication>
#include <QProcess>

namespace brindlex::bench {
namespace {

/// A process of its own each time, from its start to the end of its first painting. The budget is
/// the difference of the two.
void startToFirstPaint(benchmark::State& state, const QString& what) {
    const QString probe = QCoreApplication::applicationDirPath() + "/start_probe";
    for (auto _ : state) {
        QProcess process;
        process.start(probe, {what});
        process.waitForFinished();
        bool isNumber = false;
        const double milliseconds = process.readAllStandardOutput().trimmed().toDouble(&isNumber);
        if (!isNumber) return state.SkipWithError("the probe gave no figure");
        state.SetIterationTime(milliseconds / 1e3);
    }
}
BENCHMARK_CAPTURE(startToFirstPaint, emptyWindow, QString("empty"))
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(startToFirstPaint, program, QString("program"))
    ->UseManualTime()
    ->Iterations(10)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace brindlex::bench
