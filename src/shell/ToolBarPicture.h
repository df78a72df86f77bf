#pragma once

#include <QImage>
#include <QPixmap>
#include <QString>
#include <optional>

namespace brindlex {

/// A square picture of a toolbar button. Its file holds it on white; shown, it has no background,
/// and on a dark one light takes the place of dark while the hues stay.
class ToolBarPicture {
  public:
    /// The JPEG file, read when it is first asked for and kept from then on.
    explicit ToolBarPicture(QString path) : path_(std::move(path)) {}

    /// The picture as it shows in a square of `side` logical pixels at `ratio` pixels to each. Null
    /// when the file is missing or damaged. The last one is kept.
    const QPixmap& shown(int side, qreal ratio, bool onDark);

  private:
    struct Form {
        int side;
        qreal ratio;
        bool onDark;
        bool operator==(const Form&) const = default;
    };
    QPixmap render(const Form& form) const;

    QString path_;
    std::optional<QImage> image_;  // without its white; null when there is none to read
    std::optional<Form> form_;     // of pixmap_
    QPixmap pixmap_;
};

}  // namespace brindlex
