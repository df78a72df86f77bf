#pragma once

#include <deque>
#include <functional>

#include "platform/Desktop.h"

namespace brindlex {

/// A desktop without a user: the test says beforehand what will be asked, in this order, and what
/// the answers are. A question that was not expected fails the test, and so does an expected one
/// that has not been asked when the desktop goes away.
class FakeDesktop : public Desktop {
  public:
    ~FakeDesktop() override;

    /// `meanwhile` runs while the box is open.
    void expectBox(const MessageBox& box, BoxAnswer answer = BoxAnswer::Ok,
                   std::function<void()> meanwhile = {});
    void expectFile(const FileQuestion& question, const FileAnswer& answer,
                    std::function<void()> meanwhile = {});
    void expectFolder(const QString& title, const QString& folder,
                      const std::optional<QString>& answer);
    void expectColor(const QString& title, const QColor& color,
                     const std::optional<QColor>& answer);
    void expectFont(const QString& title, const QFont& font, const std::optional<QFont>& answer);
    /// Whether all that was expected has been asked.
    bool allAsked() const { return expected_.empty(); }

    int beeps() const { return beeps_; }
    const QStringList& openedDocuments() const { return openedDocuments_; }
    /// What openDocument answers.
    void setDocumentsOpen(bool open) { documentsOpen_ = open; }
    void setNow(const QDateTime& now) { now_ = now; }
    bool busyPointer() const { return busyPointer_; }
    /// How often the pointer became the hourglass.
    int busyTimes() const { return busyTimes_; }

    BoxAnswer showBox(QWidget* owner, const MessageBox& box) override;
    FileAnswer askFile(QWidget* owner, const FileQuestion& question) override;
    std::optional<QString> askFolder(QWidget* owner, const QString& title,
                                     const QString& folder) override;
    std::optional<QColor> askColor(QWidget* owner, const QString& title,
                                   const QColor& color) override;
    std::optional<QFont> askFont(QWidget* owner, const QString& title, const QFont& font) override;
    QString clipboardText() override { return clipboard_; }
    void setClipboardText(const QString& text) override { clipboard_ = text; }
    void beep() override { ++beeps_; }
    bool openDocument(const QString& pathOrUrl) override;
    QDateTime now() override { return now_; }
    void setBusyPointer(bool busy) override;

  private:
    using Answer = std::variant<BoxAnswer, FileAnswer, std::optional<QString>,
                                std::optional<QColor>, std::optional<QFont>>;
    struct Expected {
        QString question;
        Answer answer;
        std::function<void()> meanwhile;
    };
    template <typename T>
    T take(const QString& question, const T& otherwise);

    std::deque<Expected> expected_;
    QString clipboard_;
    QStringList openedDocuments_;
    QDateTime now_{QDate(2003, 5, 29), QTime(12, 0)};
    int beeps_ = 0;
    int busyTimes_ = 0;
    bool documentsOpen_ = true;
    bool busyPointer_ = false;
};

}  // namespace brindlex
