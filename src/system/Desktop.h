#pragma once

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QString>
#include <QStringList>
#include <memory>
#include <optional>
#include <variant>

class QMimeData;
class QWidget;

namespace brindlex {

enum class BoxIcon { None, Information, Warning, Question, Critical };
enum class BoxButtons { Ok, YesNo, YesNoCancel };
enum class BoxAnswer { Ok, Yes, No, Cancel };

/// Plain text; a line break is CR LF, or one of the two.
struct MessageBox {
    QString text;
    QString title;
    BoxIcon icon = BoxIcon::None;
    BoxButtons buttons = BoxButtons::Ok;
};

/// What a file dialog starts from.
struct FileQuestion {
    QString title;
    QString folder;       ///< first folder; ignored when it does not exist
    QStringList filters;  ///< pairs: shown name ("Script files (*.script)"), pattern ("*.script");
                          ///< several patterns are separated by ";"
    bool save = false;    ///< asks before it takes an existing file, refuses a name in a folder
                          ///< that is not there, and adds no suffix
};

struct Cancelled {
    bool operator==(const Cancelled&) const = default;
};
struct DialogFailure {
    int number = 0;
    QString description;
    bool operator==(const DialogFailure&) const = default;
};
/// A full path with the system's separators, or why there is none.
using FileAnswer = std::variant<QString, Cancelled, DialogFailure>;

/// What the program asks of the user and of the desktop: the one interface that tests put a fake
/// behind. An owner may be null.
class Desktop {
  public:
    virtual ~Desktop() = default;
    /// A box that is closed without an answer gives Cancel, or No if it has no Cancel, or else Ok.
    virtual BoxAnswer showBox(QWidget* owner, const MessageBox& box) = 0;
    virtual FileAnswer askFile(QWidget* owner, const FileQuestion& question) = 0;
    /// The folder picker; unset when the user cancelled.
    virtual std::optional<QString> askFolder(QWidget* owner, const QString& title,
                                             const QString& folder) = 0;
    virtual std::optional<QColor> askColor(QWidget* owner, const QString& title,
                                           const QColor& color) = 0;
    virtual std::optional<QFont> askFont(QWidget* owner, const QString& title,
                                         const QFont& font) = 0;
    /// Whether there is text to paste; an empty one is none.
    virtual bool hasClipboardText() = 0;
    /// Text on the clipboard has LF for a line break. Empty when there is none.
    virtual QString clipboardText() = 0;
    /// Puts a text on the clipboard. `data` may make it when somebody asks for it, which can be as
    /// late as the end of the program. Null empties the clipboard.
    virtual void setClipboard(std::unique_ptr<QMimeData> data) = 0;
    virtual void beep() = 0;
    /// Opens a file or a web page with the system's program for it; false when there is none.
    virtual bool openDocument(const QString& pathOrUrl) = 0;
    virtual QDateTime now() = 0;
    /// Makes the mouse pointer over all windows an hourglass, or again what each window says. Does
    /// not nest.
    virtual void setBusyPointer(bool busy) = 0;
};

}  // namespace brindlex
