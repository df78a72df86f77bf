#pragma once

#include <QObject>
#include <QPoint>
#include <QSize>
#include <QString>
#include <functional>
#include <string>
#include <vector>

class QListView;

namespace brindlex {

class CompletionTip;
class KELP_RTBSyntax;

/// The list of words that fit, floating at the caret (List4), and the usage line of the selected
/// one below it (Picture2). Neither ever takes the focus from the editor.
///
/// A call notes what is to show; the widgets follow once, from the event loop. Both hide when the
/// text scrolls, the editor loses the focus, or the window is left or changes its size.
class CompletionPopup : public QObject {
  public:
    /// Words are ASCII. `usage` gives the usage line of one, empty when there is none. `editor`
    /// outlives the popup; the widgets are children of `parent`, which holds the editor.
    CompletionPopup(KELP_RTBSyntax& editor, std::function<QString(const std::string&)> usage,
                    QWidget* parent);

    /// Called for a double click on a word.
    std::function<void()> onTake;

    /// The words that fit, the first of them selected; whether the list shows stays as it is.
    void setWords(std::vector<std::string> words);
    /// Shows the list and the tip at the caret.
    void show();
    void hide();
    bool isShown() const { return shown_; }
    /// The selected word; empty when there is none.
    std::string word() const;
    /// The word above or below is selected, if there is one; the usage is looked up anew.
    void selectPrevious();
    void selectNext();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void select(int row);
    void changed();
    /// Brings the widgets in step with what is to show.
    void update();
    void fillList();
    void UpdateCompletionTip();
    void place();
    QSize sizeOfList(const QStringList& words) const;
    void tellAssistiveTechnology();

    KELP_RTBSyntax& editor_;
    std::function<QString(const std::string&)> usage_;
    QListView* List4_;
    CompletionTip* Picture2_;
    std::vector<std::string> words_;
    int row_ = -1;
    bool shown_ = false;
    bool updatePosted_ = false;
    bool listIsOld_ = true;
    bool placeIsOld_ = false;
    QSize listSize_;
    QPoint caret_;  // where the caret stood when the two were placed, in pixels of the view
};

}  // namespace brindlex
