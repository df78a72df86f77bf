#pragma once

#include <gtest/gtest.h>

#include <QMimeData>
#include <deque>
#include <functional>

#include "system/Desktop.h"

namespace brindlex {

/// A desktop without a user: the test says beforehand what will be asked, in this order, and what
/// the answers are. A question that was not expected fails the test, and so does an expected one
/// that has not been asked when the desktop goes away. Other dialogs are cancelled.
class FakeDesktop : public Desktop {
  public:
    ~FakeDesktop() override {
        for (const Expected& expected : expected_)
            ADD_FAILURE() << "Not asked for " << expected.question;
    }

    /// `meanwhile` runs while the box is open.
    void expectBox(const MessageBox& box, BoxAnswer answer = BoxAnswer::Ok,
                   std::function<void()> meanwhile = {}) {
        expected_.push_back({describe(box), answer, std::move(meanwhile)});
    }
    void expectFile(const FileQuestion& question, const FileAnswer& answer,
                    std::function<void()> meanwhile = {}) {
        expected_.push_back({describe(question), answer, std::move(meanwhile)});
    }
    /// Whether all that was expected has been asked.
    bool allAsked() const { return expected_.empty(); }

    void setNow(const QDateTime& now) { now_ = now; }
    bool busyPointer() const { return busyPointer_; }

    BoxAnswer showBox(QWidget*, const MessageBox& box) override {
        return take<BoxAnswer>(describe(box));
    }
    FileAnswer askFile(QWidget*, const FileQuestion& question) override {
        return take<FileAnswer>(describe(question));
    }
    std::optional<QString> askFolder(QWidget*, const QString&, const QString&) override {
        return {};
    }
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
    struct Expected {
        std::string question;
        std::variant<BoxAnswer, FileAnswer> answer;
        std::function<void()> meanwhile;
    };

    static std::string describe(const MessageBox& box) {
        const QString kind =
            QStringLiteral("icon %1, buttons %2").arg(int(box.icon)).arg(int(box.buttons));
        return QStringList{"a box", box.title, box.text, kind}.join(" | ").toStdString();
    }
    static std::string describe(const FileQuestion& question) {
        const QString kind = question.save ? "a file to save" : "a file to open";
        return QStringList{kind, question.title, question.folder, question.filters.join(", ")}
            .join(" | ")
            .toStdString();
    }
    template <typename T>
    T take(const std::string& question) {
        if (expected_.empty()) {
            ADD_FAILURE() << "Asked without cause for " << question;
            return {};
        }
        const Expected next = expected_.front();
        expected_.pop_front();
        EXPECT_EQ(question, next.question);
        if (next.meanwhile) next.meanwhile();
        const T* answer = std::get_if<T>(&next.answer);
        return answer ? *answer : T();
    }

    std::deque<Expected> expected_;
    QString clipboard_;
    QDateTime now_{QDate(2003, 5, 29), QTime(12, 0)};
    bool busyPointer_ = false;
};

}  // namespace brindlex
