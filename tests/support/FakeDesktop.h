#pragma once

#include <QMimeData>
#include <deque>
#include <functional>

#include "system/Desktop.h"

namespace brindlex {

/// A desktop without a user: the test says beforehand what will be asked, in this order, and what
/// the answers are. A question that was not expected fails the test, and so does an expected one
/// that has not been asked when the desktop goes away. Colour and font dialogs are cancelled.
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
    /// Whether all that was expected has been asked.
    bool allAsked() const { return expected_.empty(); }

    void setNow(const QDateTime& now) { now_ = now; }
    bool busyPointer() const { return busyPointer_; }

    BoxAnswer showBox(QWidget* owner, const MessageBox& box) override;
    FileAnswer askFile(QWidget* owner, const FileQuestion& question) override;
    std::optional<QString> askFolder(QWidget* owner, const QString& title,
                                     const QString& folder) override;
    std::optional<QColor> askColor(QWidget*, const QString&, const QColor&) override { return {}; }
    std::optional<QFont> askFont(QWidget*, const QString&, const QFont&) override { return {}; }
    bool hasClipboardText() override { return !clipboard_.isEmpty(); }
    QString clipboardText() override { return clipboard_; }
    void setClipboardText(const QString& text) { clipboard_ = text; }
    void setClipboard(std::unique_ptr<QMimeData> data) override {
        clipboard_ = data ? data->text() : QString();
    }
    void beep() override {}
    bool openDocument(const QString&) override { return true; }
    QDateTime now() override { return now_; }
    void setBusyPointer(bool busy) override { busyPointer_ = busy; }

  private:
    using Answer = std::variant<BoxAnswer, FileAnswer, std::optional<QString>>;
    struct Expected {
        QString question;
        Answer answer;
        std::function<void()> meanwhile;
    };
    template <typename T>
    T take(const QString& question);

    std::deque<Expected> expected_;
    QString clipboard_;
    QDateTime now_{QDate(2003, 5, 29), QTime(12, 0)};
    bool busyPointer_ = false;
};

}  // namespace brindlex
