#include "system/QtDesktop.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QColorDialog>
#include <QCursor>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QMimeData>
#include <QUrl>

#include "system/Files.h"

namespace brindlex {
namespace {

/// Over a dialog the pointer is normal, also while the program is busy.
class NormalPointer {
  public:
    NormalPointer() : busy_(QApplication::overrideCursor() != nullptr) {
        if (busy_) QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
    ~NormalPointer() {
        if (busy_) QApplication::restoreOverrideCursor();
    }
    NormalPointer(const NormalPointer&) = delete;
    NormalPointer& operator=(const NormalPointer&) = delete;

  private:
    bool busy_;
};

QString withLineFeeds(QString text) {
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    return text.replace('\r', '\n');
}

QMessageBox::Icon iconOf(BoxIcon icon) {
    switch (icon) {
        case BoxIcon::Information:
            return QMessageBox::Information;
        case BoxIcon::Warning:
            return QMessageBox::Warning;
        case BoxIcon::Question:
            return QMessageBox::Question;
        case BoxIcon::Critical:
            return QMessageBox::Critical;
        case BoxIcon::None:
            break;
    }
    return QMessageBox::NoIcon;
}

struct ButtonSet {
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton first;
    QMessageBox::StandardButton escape;
};

ButtonSet buttonsOf(BoxButtons buttons) {
    switch (buttons) {
        case BoxButtons::YesNo:
            return {QMessageBox::Yes | QMessageBox::No, QMessageBox::Yes, QMessageBox::No};
        case BoxButtons::YesNoCancel:
            return {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, QMessageBox::Yes,
                    QMessageBox::Cancel};
        case BoxButtons::Ok:
            break;
    }
    return {QMessageBox::Ok, QMessageBox::Ok, QMessageBox::Ok};
}

BoxAnswer answerOf(int button) {
    switch (button) {
        case QMessageBox::Yes:
            return BoxAnswer::Yes;
        case QMessageBox::No:
            return BoxAnswer::No;
        case QMessageBox::Cancel:
            return BoxAnswer::Cancel;
        default:
            return BoxAnswer::Ok;
    }
}

/// The toolkit takes the patterns from the last parentheses and, told to hide details, shows what
/// stands before them. Its "*.*" would leave out names without a point.
QString filterLine(const QString& name, const QString& patterns) {
    QStringList list = patterns.split(';', Qt::SkipEmptyParts);
    list.replaceInStrings(QStringLiteral("*.*"), QStringLiteral("*"));
    return name + QLatin1String(" (") + list.join(' ') + ')';
}

QStringList filterLines(const QStringList& pairs) {
    QStringList lines;
    for (qsizetype i = 0; i + 1 < pairs.size(); i += 2) lines += filterLine(pairs[i], pairs[i + 1]);
    return lines;
}

/// The folder if it is there, else none: the dialog then begins where it likes.
QString firstFolder(const QString& folder) {
    const QString path = Files::resolve(folder).value_or(QString());
    return QFileInfo(path).isDir() ? path : QString();
}

QUrl webPage(const QString& text) {
    const QUrl url(text);
    const bool web = url.scheme() == QLatin1String("http") ||
                     url.scheme() == QLatin1String("https") ||
                     url.scheme() == QLatin1String("mailto");
    return web ? url : QUrl();
}

/// A box that a letter answers with Alt alone: whoever goes on typing must not answer a question
/// that he has not seen yet.
class Box : public QMessageBox {
  public:
    using QMessageBox::QMessageBox;

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool isLetter = event->text().size() == 1 && event->text()[0].isLetterOrNumber();
        if (isLetter && !event->modifiers().testFlag(Qt::AltModifier)) return;
        QMessageBox::keyPressEvent(event);
    }
};

}  // namespace

QtDesktop::~QtDesktop() {
    setBusyPointer(false);
}

BoxAnswer QtDesktop::showBox(QWidget* owner, const MessageBox& box) {
    const NormalPointer pointer;
    const ButtonSet set = buttonsOf(box.buttons);
    Box dialog(owner);
    dialog.setTextFormat(Qt::PlainText);
    dialog.setWindowTitle(box.title);
    dialog.setText(withLineFeeds(box.text));
    dialog.setIcon(iconOf(box.icon));
    dialog.setStandardButtons(set.buttons);
    dialog.setDefaultButton(set.first);
    dialog.setEscapeButton(set.escape);
    dialog.exec();
    // A box that is taken away without an answer counts as one that the user escaped.
    QAbstractButton* clicked = dialog.clickedButton();
    return answerOf(clicked ? dialog.standardButton(clicked) : set.escape);
}

bool QtDesktop::mayReplace(QWidget* owner, const QString& title, const QString& path) {
    const MessageBox box{"\"" + path + "\" already exists.\nDo you want to replace it?", title,
                         BoxIcon::Warning, BoxButtons::YesNo};
    return showBox(owner, box) == BoxAnswer::Yes;
}

FileAnswer QtDesktop::askFile(QWidget* owner, const FileQuestion& question) {
    const NormalPointer pointer;
    QFileDialog dialog(owner, question.title, firstFolder(question.folder));
    dialog.setAcceptMode(question.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(question.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(filterLines(question.filters));
    while (dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty()) {
        QString selected = dialog.selectedFiles().constFirst();
        // The toolkit takes a leading colon for the files inside the program.
        if (selected.startsWith(':')) selected.prepend(dialog.directory().path() + '/');
        const QString path = Files::toSystemPath(selected);
        const QFileInfo file(path);
        if (!question.save) return path;
        if (file.dir().exists() && !file.isDir()) {
            // The toolkit has asked about the name that was typed.
            const bool isOther = QDir::fromNativeSeparators(path) != selected;
            if (!isOther || !file.exists() || mayReplace(owner, question.title, path)) return path;
            continue;
        }
        const QString reason = file.isDir() ? "\"" + path + "\" is a folder."
                                            : "The folder of \"" + path + "\" does not exist.";
        showBox(owner, {reason, question.title, BoxIcon::Warning});
        dialog.selectFile(file.fileName());
    }
    return Cancelled{};
}

std::optional<QString> QtDesktop::askFolder(QWidget* owner, const QString& title,
                                            const QString& folder) {
    const NormalPointer pointer;
    const QString answer = QFileDialog::getExistingDirectory(owner, title, firstFolder(folder));
    if (answer.isEmpty()) return std::nullopt;
    return QDir::toNativeSeparators(answer);
}

std::optional<QColor> QtDesktop::askColor(QWidget* owner, const QString& title,
                                          const QColor& color) {
    const NormalPointer pointer;
    const QColor answer = QColorDialog::getColor(color, owner, title);
    return answer.isValid() ? std::optional(answer) : std::nullopt;
}

std::optional<QFont> QtDesktop::askFont(QWidget* owner, const QString& title, const QFont& font) {
    const NormalPointer pointer;
    bool accepted = false;
    const QFont answer = QFontDialog::getFont(&accepted, font, owner, title);
    return accepted ? std::optional(answer) : std::nullopt;
}

bool QtDesktop::hasClipboardText() {
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    // An empty text has the format, too.
    return data != nullptr && data->hasText() && !data->text().isEmpty();
}

QString QtDesktop::clipboardText() {
    return QGuiApplication::clipboard()->text();
}

void QtDesktop::setClipboard(std::unique_ptr<QMimeData> data) {
    if (data)
        QGuiApplication::clipboard()->setMimeData(data.release());
    else
        QGuiApplication::clipboard()->clear();
}

void QtDesktop::beep() {
    QApplication::beep();
}

bool QtDesktop::openDocument(const QString& pathOrUrl) {
    if (const QUrl page = webPage(pathOrUrl); page.isValid())
        return QDesktopServices::openUrl(page);
    const std::optional<QString> file = Files::resolve(pathOrUrl);
    return file &&
           QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(*file).absoluteFilePath()));
}

QDateTime QtDesktop::now() {
    return QDateTime::currentDateTime();
}

void QtDesktop::setBusyPointer(bool busy) {
    if (busy == busy_) return;
    busy_ = busy;
    if (busy)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QApplication::restoreOverrideCursor();
}

}  // namespace brindlex
