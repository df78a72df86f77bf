#pragma once

#include <QWidget>
#include <functional>
#include <optional>
#include <string>

#include "editor/SyntaxLists.h"
#include "platform/PropertyBag.h"
#include "platform/RichTextView.h"

namespace brindlex {

/// The commands of the main window that the editor control runs for keys of its own.
struct EditorCommands {
    std::function<void()> undo;
    std::function<void()> copy;
    std::function<void()> paste;
    std::function<void()> cut;
};

/// The script editor: one rich text view over the control's whole area, the lists and colours of
/// the syntax, and the colouring of the text after each change.
///
/// Positions are 0-based offsets into Text, in which a line break counts two. Texts are bytes of
/// the system's code page.
class KELP_RTBSyntax : public QWidget {
  public:
    explicit KELP_RTBSyntax(QWidget* parent = nullptr);

    RichTextView& rtb();
    const RichTextView& rtb() const;
    void setCommands(EditorCommands commands);

    // --- Events, in the order of declaration ---------------------------------------------------
    std::function<void()> onChange;
    std::function<void()> onClick;
    std::function<void()> onDblClick;
    std::function<void(int& KeyCode, int Shift)> onKeyDown;
    std::function<void(int& KeyCode, int Shift)> onKeyUp;
    std::function<void(int& KeyAscii)> onKeyPress;
    std::function<void(int Button, int Shift, double x, double y)> onMouseDown;
    std::function<void(int Button, int Shift, double x, double y)> onMouseMove;
    std::function<void(int Button, int Shift, double x, double y)> onMouseUp;
    std::function<void()> onSelChange;
};

}  // namespace brindlex
