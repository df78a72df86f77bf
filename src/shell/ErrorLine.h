#pragma once

#include <QString>
#include <QWidget>

class QListWidget;

namespace brindlex {

class CommandLock;
class Desktop;

/// The strip SB2 with the list txtError: problems that need no message box, the newest last and in
/// view. Only the newest kMostLines are kept.
class ErrorLine {
  public:
    static constexpr int kMostLines = 1000;

    /// Message boxes open over the window `owner`; `parent` owns the strip.
    ErrorLine(Desktop& desktop, CommandLock& lock, QWidget& owner, QWidget* parent);

    QWidget& SB2() { return *SB2_; }
    QListWidget& txtError() { return *txtError_; }
    void clear();
    /// Adds a line with the time of day and selects it.
    void UpdateError(const QString& ErrorMessage);
    /// Shows the selected line in a message box; an empty box when there is none.
    void txtError_DblClick();

  private:
    Desktop& desktop_;
    QWidget& owner_;
    QWidget* SB2_;
    QListWidget* txtError_;
};

}  // namespace brindlex
