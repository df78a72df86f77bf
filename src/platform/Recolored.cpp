#include "platform/Recolored.h"

namespace brindlex {

std::unique_ptr<QTextLayout> recolored(const QTextLayout& layout, const QColor& color) {
    auto copy = std::make_unique<QTextLayout>(layout.text(), layout.font());
    QList<QTextLayout::FormatRange> formats = layout.formats();
    for (QTextLayout::FormatRange& range : formats) {
        range.format.setForeground(color);
        range.format.clearBackground();
    }
    copy->setFormats(formats);
    copy->setTextOption(layout.textOption());
    copy->beginLayout();
    for (int i = 0; i < layout.lineCount(); ++i) {
        const QTextLine model = layout.lineAt(i);
        QTextLine row = copy->createLine();
        row.setLeadingIncluded(model.leadingIncluded());
        row.setLineWidth(model.width());
        row.setPosition(model.position());
    }
    copy->endLayout();
    return copy;
}

}  // namespace brindlex
