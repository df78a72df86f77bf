#pragma once

#include "system/Desktop.h"

namespace brindlex {

/// The desktop as the toolkit reaches it. Dialogs are modal, and native where the system has them.
class QtDesktop : public Desktop {
  public:
    /// Ends a busy pointer.
    ~QtDesktop() override;

    BoxAnswer showBox(QWidget* owner, const MessageBox& box) override;
    FileAnswer askFile(QWidget* owner, const FileQuestion& question) override;
    std::optional<QString> askFolder(QWidget* owner, const QString& title,
                                     const QString& folder) override;
    std::optional<QColor> askColor(QWidget* owner, const QString& title,
                                   const QColor& color) override;
    std::optional<QFont> askFont(QWidget* owner, const QString& title, const QFont& font) override;
    bool hasClipboardText() override;
    QString clipboardText() override;
    void setClipboard(std::unique_ptr<QMimeData> data) override;
    void beep() override;
    bool openDocument(const QString& pathOrUrl) override;
    QDateTime now() override;
    void setBusyPointer(bool busy) override;

  private:
    bool mayReplace(QWidget* owner, const QString& title, const QString& path);

    bool busy_ = false;
};

}  // namespace brindlex
