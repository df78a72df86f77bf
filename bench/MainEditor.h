#pragma once

#include <benchmark/benchmark.h>

#include <QFont>
#include <memory>

#include "editor/KELP_RTBSyntax.h"
#include "editor/ScriptSyntax.h"

namespace brindlex::bench {

/// An editor like the main window's, with a host that listens to its events.
inline std::unique_ptr<KELP_RTBSyntax> makeEditor() {
    auto editor = std::make_unique<KELP_RTBSyntax>();
    QFont font(QStringLiteral("Courier New"));
    font.setPointSizeF(9.75);
    editor->SetFont(font);
    editor->SetBorderStyle(0);
    editor->SetHideSelection(false);
    applyScriptSyntax(*editor, {"0", "32768", "192", "8388608", "16711935"});
    KELP_RTBSyntax* control = editor.get();
    editor->onChange = [] {};
    editor->onSelChange = [control] { benchmark::DoNotOptimize(control->GetCurrentLine()); };
    editor->resize(1400, 900);
    return editor;
}

}  // namespace brindlex::bench
