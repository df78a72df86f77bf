#pragma once

#include <QColor>
#include <QDateTime>
#include <QFont>
#include <QString>
#include <QStringList>
#include <optional>
#include <variant>

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
    bool save = false;  ///< a save dialog asks before it takes an existing file, and adds no suffix
};

struct Cancelled {};
struct DialogFailure {
    int number = 0;
    QString description;
};
/// A full path with the system's separators, or why there is none.
using FileAnswer = std::variant<QString, Cancelled, DialogFailure>;

/// What the program asks of the user and of the desktop round it. The only seam for fakes. An owner
/// may be null.
class Desktop {
  public:
    virtual ~Desktop() = default;
    /// Cancel for a box that was closed, No where there is no Cancel, Ok where there is only that.
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
    /// Empty when the clipboard holds no text.
    virtual QString clipboardText() = 0;
    /// The empty text empties the clipboard.
    virtual void setClipboardText(const QString& text) = 0;
    virtual void beep() = 0;
    /// Opens a file or a web page with the system's program for it; false when there is none.
    virtual bool openDocument(const QString& pathOrUrl) = 0;
    virtual QDateTime now() = 0;
    /// The mouse pointer over all windows is an hourglass, or what each window says. Does not nest.
    virtual void setBusyPointer(bool busy) = 0;
};

}  // namespace brindlex
