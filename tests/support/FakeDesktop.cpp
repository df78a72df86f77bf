#include "support/FakeDesktop.h"

#include <gtest/gtest.h>

namespace brindlex {
namespace {

QString describe(const MessageBox& box) {
    const QStringList icons{"no", "information", "warning", "question", "critical"};
    const QStringList buttons{"Ok", "Yes, No", "Yes, No, Cancel"};
    return QStringLiteral("a box titled \"%1\", %2 icon, buttons %3: \"%4\"")
        .arg(box.title, icons[static_cast<int>(box.icon)], buttons[static_cast<int>(box.buttons)],
             box.text);
}

QString describe(const FileQuestion& question) {
    return QStringLiteral("a file to %1, titled \"%2\", from \"%3\", filters \"%4\"")
        .arg(question.save ? "save" : "open", question.title, question.folder,
             question.filters.join('|'));
}

QString describeFolder(const QString& title, const QString& folder) {
    return QStringLiteral("a folder, titled \"%1\", from \"%2\"").arg(title, folder);
}

}  // namespace

FakeDesktop::~FakeDesktop() {
    for (const Expected& expected : expected_)
        ADD_FAILURE() << "Not asked for " << qUtf8Printable(expected.question);
}

void FakeDesktop::expectBox(const MessageBox& box, BoxAnswer answer,
                            std::function<void()> meanwhile) {
    expected_.push_back({describe(box), answer, std::move(meanwhile)});
}

void FakeDesktop::expectFile(const FileQuestion& question, const FileAnswer& answer,
                             std::function<void()> meanwhile) {
    expected_.push_back({describe(question), answer, std::move(meanwhile)});
}

void FakeDesktop::expectFolder(const QString& title, const QString& folder,
                               const std::optional<QString>& answer) {
    expected_.push_back({describeFolder(title, folder), answer, {}});
}

template <typename T>
T FakeDesktop::take(const QString& question) {
    if (expected_.empty()) {
        ADD_FAILURE() << "Asked without cause for " << qUtf8Printable(question);
        return {};
    }
    const Expected next = expected_.front();
    expected_.pop_front();
    EXPECT_EQ(question.toStdString(), next.question.toStdString());
    if (next.meanwhile) next.meanwhile();
    const T* answer = std::get_if<T>(&next.answer);
    return answer ? *answer : T();
}

BoxAnswer FakeDesktop::showBox(QWidget*, const MessageBox& box) {
    return take<BoxAnswer>(describe(box));
}

FileAnswer FakeDesktop::askFile(QWidget*, const FileQuestion& question) {
    return take<FileAnswer>(describe(question));
}

std::optional<QString> FakeDesktop::askFolder(QWidget*, const QString& title,
                                              const QString& folder) {
    return take<std::optional<QString>>(describeFolder(title, folder));
}

}  // namespace brindlex
