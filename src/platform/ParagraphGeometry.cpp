#include "platform/ParagraphGeometry.h"

#include <QPainter>
#include <algorithm>

#include "platform/LineStyle.h"

namespace brindlex {

ParagraphGeometry::ParagraphGeometry(const ParagraphFormat& paragraph, const LineStyle& style) {
    const qreal indent = style.fromTwips(paragraph.indent);
    const qreal start = indent + (paragraph.bullet ? style.bulletWidth() : 0);
    textLeft = std::max(0.0, start);
    furtherLeft = std::max(0.0, start + style.fromTwips(paragraph.hangingIndent));
    rightIndent = style.fromTwips(paragraph.rightIndent);
    if (paragraph.bullet) bulletLeft = std::max(0.0, indent);
    for (const std::int32_t twips : paragraph.tabs)
        if (const qreal stop = style.fromTwips(twips); stop > textLeft)
            tabs.push_back(stop - textLeft);
}

void ParagraphGeometry::paintBullet(QPainter& painter, const LineStyle& style, QPointF corner,
                                    qreal baseline) const {
    if (!bulletLeft) return;
    painter.setFont(style.font());
    painter.setPen(style.color(0));
    painter.drawText(corner + QPointF(*bulletLeft, baseline), LineStyle::kBullet);
}

}  // namespace brindlex
