#include "shell/CaptionLabel.h"

#include "shell/ToolTipText.h"

namespace brindlex {

CaptionLabel::CaptionLabel(QWidget* parent) : QLabel(parent) {
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
    setAlignment(Qt::AlignTop | Qt::AlignLeading);
}

void CaptionLabel::SetCaption(const QString& caption) {
    setText(caption);
    setToolTip(toolTipText(caption));
}

}  // namespace brindlex
