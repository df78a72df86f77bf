#include <benchmark/benchmark.h>

#include <QApplication>
#include <vector>

#include "bench/ScriptGenerator.h"
#include "editor/KELP_RTBSyntax.h"
#include "editor/MainWindowSettings.h"
#include "editor/ScriptSyntax.h"

namespace brindlex::bench {
namespace {

using Operation = void (KELP_RTBSyntax::*)();

/// Two operations, one after the other, on many selected lines in a window, the painting of the
/// outcome included. The host keeps the text of each change, as undo does.
void editLines(benchmark::State& state, Operation there, Operation back) {
    constexpr std::size_t kBytesPerLine = 20;  // at least; the generator's lines have about as many
    const Long lines = state.range(0);
    KELP_RTBSyntax editor;
    applyMainWindowSettings(editor);
    applyScriptSyntax(editor, {"0", "32768", "192", "8388608", "16711935"});
    editor.resize(1400, 900);
    editor.SetText(generateScript(static_cast<std::size_t>(lines) * 2 * kBytesPerLine));
    if (editor.GetLineCount() <= lines) return state.SkipWithError("too few lines");
    editor.show();
    std::vector<Rope> records;
    editor.onChange = [&] { records.push_back(editor.rtb().box().rope()); };
    editor.onSelChange = [&] { benchmark::DoNotOptimize(editor.GetCurrentLine()); };
    for (auto _ : state) {
        for (const Operation operation : {there, back}) {
            editor.SetSelStart(0);
            editor.SetSelLength(editor.GetCharNr(lines));
            (editor.*operation)();
            QApplication::processEvents();
        }
        state.PauseTiming();
        state.counters["records"] = static_cast<double>(records.size());
        records = {};
        state.ResumeTiming();
    }
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
