#pragma once

#include <QFont>
#include <QSize>
#include <QString>
#include <QTextLayout>

class QPainter;

namespace brindlex {

/// The caption as it is spoken: without the marks "&" and "||".
QString spokenCaption(const QString& caption);

/// A caption as lines of one width. "||" breaks the line, "&" is a mark and not shown, "&&" shows
/// as "&"; the access key is underlined.
class XPButtonCaption {
  public:
    /// Takes another caption, which needs a wrap before it is drawn. The font's name is cut at 31
    /// characters, its size in points becomes one in pixels.
    void setText(const QString& caption, const QFont& font);
    /// Breaks the text at words into lines of that many pixels; a longer word sticks out. Gives the
    /// size of the lines in whole pixels. Linear in the text.
    QSize wrap(int width, Qt::Alignment alignment);
    /// Draws with the painter's pen, the top line at the top of the rectangle. What does not fit
    /// into it is cut off. `rect` is as wide as the last wrap.
    void draw(QPainter& painter, const QRect& rect) const;

  private:
    QTextLayout layout_;
    QSize size_;
};

}  // namespace brindlex
