#include "editor/KELP_RTBSyntax.h"

#include <QEvent>
#include <algorithm>
#include <array>

#include "platform/KeyCodes.h"

namespace brindlex {
namespace {

/// A key of the control's own, by its code on the way down and by its control character.
struct CommandKey {
    int keyCode;
    int keyAscii;
    std::function<void()> EditorCommands::*command;
};
constexpr std::array kCommandKeys = {
    CommandKey{'Z', kAsciiUndo, &EditorCommands::undo},
    CommandKey{'C', kAsciiCopy, &EditorCommands::copy},
    CommandKey{'V', kAsciiPaste, &EditorCommands::paste},
    CommandKey{'X', kAsciiCut, &EditorCommands::cut},
};

const CommandKey* commandKey(int CommandKey::*code, int value) {
    const auto found = std::ranges::find(kCommandKeys, value, code);
    return found == kCommandKeys.end() ? nullptr : &*found;
}

}  // namespace

KELP_RTBSyntax::KELP_RTBSyntax(QWidget* parent) : RichTextHost(parent) {
    rtb().setAccessibleName(QStringLiteral("Script editor"));
    setFocusProxy(&rtb());
    connectView();
    InitProperties();
}

void KELP_RTBSyntax::connectView() {
    box().onChange = [this] { rtb_Change(); };
    box().onSelChange = [this] { rtb_SelChange(); };
    RichTextView& view = rtb();
    view.onClick = [this] { notifyHost(onClick); };
    view.onDblClick = [this] { notifyHost(onDblClick); };
    view.onKeyDown = [this](int& KeyCode, int Shift) { rtb_KeyDown(KeyCode, Shift); };
    view.onKeyUp = [this](int& KeyCode, int Shift) { notifyHost(onKeyUp, KeyCode, Shift); };
    view.onKeyPress = [this](int& KeyAscii) { rtb_KeyPress(KeyAscii); };
    view.onMouseDown = [this](int Button, int Shift, double x, double y) {
        notifyHost(onMouseDown, Button, Shift, x, y);
    };
    view.onMouseMove = [this](int Button, int Shift, double x, double y) {
        notifyHost(onMouseMove, Button, Shift, x, y);
    };
    view.onMouseUp = [this](int Button, int Shift, double x, double y) {
        notifyHost(onMouseUp, Button, Shift, x, y);
    };
}

void KELP_RTBSyntax::resizeEvent(QResizeEvent*) {
    rtb().setGeometry(contentsRect());
}

bool KELP_RTBSyntax::event(QEvent* event) {
    if (event->type() == QEvent::ContentsRectChange) rtb().setGeometry(contentsRect());
    return RichTextHost::event(event);
}

void KELP_RTBSyntax::rtb_SelChange() {
    notifyHost(onSelChange);
    prevSelStart_ = curSelStart_;
    curSelStart_ = SelStart();
}

void KELP_RTBSyntax::rtb_KeyDown(int& KeyCode, int Shift) {
    const CommandKey* key =
        Shift == kCtrlMask ? commandKey(&CommandKey::keyCode, KeyCode) : nullptr;
    if (key != nullptr) {
        KeyCode = 0;
        notifyHost(commands_.*key->command);
        return;
    }
    notifyHost(onKeyDown, KeyCode, Shift);
    if (KeyCode != kAsciiTab) return;  // the key's code is that of its character
    KeyCode = 0;
    SetSelText("\t");
}

void KELP_RTBSyntax::rtb_KeyPress(int& KeyAscii) {
    const CommandKey* key = commandKey(&CommandKey::keyAscii, KeyAscii);
    if (key == nullptr) {
        notifyHost(onKeyPress, KeyAscii);
        return;
    }
    KeyAscii = 0;
    notifyHost(commands_.*key->command);
}

}  // namespace brindlex
