#pragma once

#include <QTime>
#include <QWidget>
#include <optional>

#include "text/Units.h"

class QLabel;

namespace brindlex {

/// The status bar SB1 with its two panes: the caret's line, and the time of the last backup.
class StatusPanes {
  public:
    /// `parent` owns the bar.
    explicit StatusPanes(QWidget* parent);

    QWidget& SB1() { return *SB1_; }
    void InitStatusPanes();
    /// Shows a 1-based line number in pane 1. Costs nothing when it shows already.
    void showLine(Long line);
    void setLineVisible(bool visible);
    /// Shows in pane 2 when the last backup was made.
    void showBackupTime(QTime time);

  private:
    QWidget* SB1_;
    QLabel* pane1_;
    QLabel* pane2_;
    std::optional<Long> line_;
};

}  // namespace brindlex
