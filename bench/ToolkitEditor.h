#pragma once

#include <QPlainTextEdit>
#include <memory>

namespace brindlex::bench {

/// The toolkit's own plain text widget, colouring a script by the same rules with the toolkit's own
/// highlighter: what the editor is measured against.
std::unique_ptr<QPlainTextEdit> makeToolkitEditor();

}  // namespace brindlex::bench
