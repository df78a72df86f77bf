#pragma once

#include <QFont>
#include <QSize>
#include <QString>
#include <QTextLayout>
#include <optional>

class QPainter;

namespace brindlex {

/// The character behind the last "&", empty when nothing is behind it; unset without a "&".
std::optional<QString> accessKeyOf(const QString& caption);

/// The caption for the ear: without the marks "&" and "||".
QString spokenCaption(const QString& caption);

/// The font that captions are drawn in: of the size in points as pixels, with a name of 31
/// characters at most.
QFont drawingFont(const QFont& font);

/// More characters than a face of that size can show, in any font that can be read.
constexpr qsizetype mostCharactersOn(const QSize& size) {
    return 1000 + qsizetype{size.width()} * size.height() / 16;
}

/// A caption as lines of one width. "||" breaks the line, "&" is a mark and not shown, "&&" shows
/// as "&"; the access key is underlined.
class XPButtonCaption {
  public:
    /// Shows at most that many characters.
    XPButtonCaption(const QString& caption, const QFont& drawingFont, qsizetype mostCharacters);

    /// Breaks the text at words into lines of that many pixels; a longer word sticks out. Linear in
    /// the text.
    void wrap(int width, Qt::Alignment alignment);
    /// Of the lines, in whole pixels.
    QSize size() const { return size_; }
    /// Draws with the painter's pen, the top line at the top of the rectangle. What does not fit
    /// into it is cut off. `rect` is as wide as the last wrap.
    void draw(QPainter& painter, const QRect& rect) const;

  private:
    QTextLayout layout_;
    QSize size_;
};

}  // namespace brindlex
