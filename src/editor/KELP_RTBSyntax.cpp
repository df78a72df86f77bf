#include "editor/KELP_RTBSyntax.h"

#include <QEvent>
#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>

#include "system/KeyCodes.h"

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

std::uint32_t asWord(int value) {
    using Word = std::numeric_limits<std::int16_t>;
    return static_cast<std::uint16_t>(std::clamp<int>(value, Word::min(), Word::max()));
}

}  // namespace

// --- The view and its events ---------------------------------------------------------------------

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

// --- Lines ---------------------------------------------------------------------------------------

Long KELP_RTBSyntax::GetLineCount() const {
    return box().GetLineCount();
}

void KELP_RTBSyntax::LineScroll(Long Lines) {
    rtb().lineScroll(Lines);
}

Long KELP_RTBSyntax::GetCurrentLine() const {
    return GetLineFromChar(SelStart()) + 1;
}

std::string KELP_RTBSyntax::GetLineText() const {
    const LineIndex line(static_cast<std::size_t>(GetCurrentLine() - 1));
    return box().rope().bytes(box().lineContent(line));
}

Long KELP_RTBSyntax::GetColumn() const {
    return SelStart() - box().GetLineIndex(GetCurrentLine() - 1);
}

int KELP_RTBSyntax::LoWord(Long DWord) {
    return static_cast<std::int16_t>(DWord & 0xFFFF);
}

int KELP_RTBSyntax::HiWord(Long DWord) {
    return static_cast<std::int16_t>((DWord >> 16) & 0xFFFF);
}

Long KELP_RTBSyntax::GetPosFromChar(Long lSelStart) {
    const QPoint place = rtb().posFromChar(lSelStart);
    return static_cast<std::int32_t>(asWord(place.x()) | (asWord(place.y()) << 16));
}

Long KELP_RTBSyntax::GetCharNr(Long lngLineNumber) const {
    // A negative line means the caret's to GetLineIndex.
    return lngLineNumber < 0 ? -2 : box().GetLineIndex(lngLineNumber) - 1;
}

}  // namespace brindlex
