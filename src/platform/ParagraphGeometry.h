#pragma once

#include <QPointF>
#include <optional>
#include <vector>

#include "platform/text/Formats.h"

class QPainter;

namespace brindlex {

class LineStyle;

/// Where the bullet, the text and the tab stops of a paragraph stand, from the left edge of its
/// line and in the units of its style.
struct ParagraphGeometry {
    ParagraphGeometry(const ParagraphFormat& paragraph, const LineStyle& style);

    /// Paints the bullet, if there is one, into a row whose top left corner is at `corner`;
    /// `baseline` is from there.
    void paintBullet(QPainter& painter, const LineStyle& style, QPointF corner,
                     qreal baseline) const;

    qreal textLeft;     ///< of the first row
    qreal furtherLeft;  ///< of the text of the rows behind it
    qreal rightIndent;
    std::optional<qreal> bulletLeft;
    std::vector<qreal> tabs;  ///< those behind textLeft, from there on, rising
};

}  // namespace brindlex
