#pragma once

#include "view/RichTextView.h"

namespace brindlex {

/// Stops repainting for as long as it lives. When the outermost one ends, the event loop repaints
/// what changed; repainting at once would lay out the screen for each edit of a Replace All.
class RedrawPause {
  public:
    explicit RedrawPause(RichTextView& view) : view_(view), redraw_(view.redraw()) {
        view_.setRedraw(false);
    }
    ~RedrawPause() { view_.setRedraw(redraw_); }
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;

  private:
    RichTextView& view_;
    bool redraw_;
};

}  // namespace brindlex
