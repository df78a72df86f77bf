#pragma once

#include <QImage>
#include <QPixmap>
#include <QString>
#include <optional>

namespace brindlex {

/// A square picture of a toolbar button. The white that it has in its file becomes transparent; on
/// a dark background light and dark change places and the hues stay.
class ToolBarPicture {
  public:
    /// The path of a JPEG file, which is read once, when the picture is first asked for.
    explicit ToolBarPicture(QString path) : path_(std::move(path)) {}

    /// The picture for a square of `side` logical pixels with `ratio` device pixels to each. Null
    /// when the file is missing or damaged. Costs nothing when asked for the same as before.
    const QPixmap& pixmap(int side, qreal ratio, bool onDark);

  private:
    struct Form {
        int side;
        qreal ratio;
        bool onDark;
        bool operator==(const Form&) const = default;
    };
    QPixmap render(const Form& form) const;

    QString path_;
    std::optional<QImage> image_;  // without its white; a null image when it cannot be read
    std::optional<Form> form_;     // of pixmap_
    QPixmap pixmap_;
};

}  // namespace brindlex
