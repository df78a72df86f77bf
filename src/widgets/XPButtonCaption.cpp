#include "widgets/XPButtonCaption.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "system/Twips.h"

namespace brindlex {
namespace {

constexpr QChar kMark = u'&';
constexpr int kTwipsInPoint = 20;
constexpr int kLongestFaceName = 31;

QString withLines(const QString& caption, const QString& lineBreak) {
    QString text = caption;
    for (const QLatin1String mark :
         {QLatin1String("||"), QLatin1String("\r\n"), QLatin1String("\n")})
        text.replace(mark, lineBreak);
    return text;
}

struct Shown {
    QString text;
    int underlined = -1;  ///< index of the access key
};

Shown shownText(const QString& caption) {
    const QString text = withLines(caption, QChar(QChar::LineSeparator));
    const qsizetype lastMark = text.lastIndexOf(kMark);
    Shown shown;
    shown.text.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == kMark) {
            if (++i == text.size()) break;
            if (i - 1 == lastMark) shown.underlined = static_cast<int>(shown.text.size());
        }
        shown.text += text[i];
    }
    return shown;
}

QFont drawingFont(const QFont& font) {
    QFont drawing(font);
    drawing.setFamily(font.family().left(kLongestFaceName));
    const double points = font.pointSizeF();
    if (points > 0) drawing.setPixelSize(std::max(1, Twips::toPixels(kTwipsInPoint * points)));
    return drawing;
}

}  // namespace

QString spokenCaption(const QString& caption) {
    return shownText(withLines(caption, QStringLiteral(" "))).text;
}

void XPButtonCaption::setText(const QString& caption, const QFont& font) {
    const Shown shown = shownText(caption);
    layout_.setText(shown.text);
    layout_.setFont(drawingFont(font));
    layout_.setCacheEnabled(true);
    QTextLayout::FormatRange accessKey;
    accessKey.start = shown.underlined;
    accessKey.length = 1;
    accessKey.format.setFontUnderline(true);
    layout_.setFormats(shown.underlined < 0 ? QList<QTextLayout::FormatRange>()
                                            : QList<QTextLayout::FormatRange>{accessKey});
}

QSize XPButtonCaption::wrap(int width, Qt::Alignment alignment) {
    QTextOption option(alignment);
    option.setWrapMode(QTextOption::WordWrap);
    layout_.setTextOption(option);
    double widest = 0;
    double height = 0;
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
        line.setLineWidth(std::max(0, width));
        line.setPosition({0, height});
        height += line.height();
        widest = std::max(widest, line.naturalTextWidth());
    }
    layout_.endLayout();
    return size_ = QSize(static_cast<int>(std::ceil(widest)), static_cast<int>(std::ceil(height)));
}

void XPButtonCaption::draw(QPainter& painter, const QRect& rect) const {
    if (rect.isEmpty()) return;
    const bool fits = size_.width() <= rect.width() && size_.height() <= rect.height();
    if (fits) return layout_.draw(&painter, rect.topLeft());
    painter.save();
    painter.setClipRect(rect, Qt::IntersectClip);
    layout_.draw(&painter, rect.topLeft(), {}, rect);
    painter.restore();
}

}  // namespace brindlex
