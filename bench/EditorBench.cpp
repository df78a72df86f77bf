#include <benchmark/benchmark.h>

#include <QApplication>
#include <QTextBlock>
#include <memory>

#include "bench/MainEditor.h"
#include "bench/ScriptGenerator.h"
#include "bench/ToolkitEditor.h"
#include "bench/Typist.h"

namespace brindlex::bench {
namespace {

void setBytes(benchmark::State& state, const std::string& text) {
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void putAndColour(benchmark::State& state) {
    const std::string text = generateScript(static_cast<std::size_t>(state.range(0)));
    auto editor = makeEditor();
    for (auto _ : state) editor->SetText(text);
    setBytes(state, text);
}

void putAndColourToolkit(benchmark::State& state) {
    const std::string text = generateScript(static_cast<std::size_t>(state.range(0)));
    const QString unicode = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    auto editor = makeToolkitEditor();
    for (auto _ : state) editor->setPlainText(unicode);
    setBytes(state, text);
}

/// Puts the caret behind the indent of the line in the middle.
void goToMiddle(KELP_RTBSyntax& editor) {
    const Long line = editor.GetLineCount() / 2;
    editor.SetSelStart(editor.GetCharNr(line) + 1);
}

void goToMiddle(QPlainTextEdit& editor) {
    const QTextBlock block = editor.document()->findBlockByNumber(editor.blockCount() / 2);
    editor.setTextCursor(QTextCursor(block));
}

void typeCharacter(benchmark::State& state) {
    auto editor = makeEditor();
    editor->SetText(generateScript(static_cast<std::size_t>(state.range(0))));
    goToMiddle(*editor);
    Typist typist(editor->rtb());
    for (auto _ : state) typist.typeNext();
}

void typeCharacterToolkit(benchmark::State& state) {
    auto editor = makeToolkitEditor();
    editor->setPlainText(
        QString::fromStdString(generateScript(static_cast<std::size_t>(state.range(0)))));
    goToMiddle(*editor);
    Typist typist(*editor);
    for (auto _ : state) typist.typeNext();
}

void typeAndPaint(benchmark::State& state) {
    auto editor = makeEditor();
    editor->SetText(generateScript(static_cast<std::size_t>(state.range(0))));
    editor->show();
    goToMiddle(*editor);
    QApplication::processEvents();
    Typist typist(editor->rtb());
    for (auto _ : state) {
        typist.typeNext();
        QApplication::processEvents();
    }
}

void typeAndPaintToolkit(benchmark::State& state) {
    auto editor = makeToolkitEditor();
    editor->setPlainText(
        QString::fromStdString(generateScript(static_cast<std::size_t>(state.range(0)))));
    editor->show();
    goToMiddle(*editor);
    QApplication::processEvents();
    Typist typist(*editor);
    for (auto _ : state) {
        typist.typeNext();
        QApplication::processEvents();
    }
}

void sizes(benchmark::internal::Benchmark* benchmark) {
    benchmark->Arg(100'000)->Arg(1'000'000)->Arg(10'000'000);
}

BENCHMARK(putAndColour)->Apply(sizes)->Arg(200'000'000)->Unit(benchmark::kMillisecond);
BENCHMARK(putAndColourToolkit)->Apply(sizes)->Unit(benchmark::kMillisecond);
BENCHMARK(typeCharacter)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(typeCharacterToolkit)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(typeAndPaint)->Apply(sizes)->Unit(benchmark::kMicrosecond);
BENCHMARK(typeAndPaintToolkit)->Apply(sizes)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace brindlex::bench
