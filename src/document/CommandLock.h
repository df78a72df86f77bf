#pragma once

#include <deque>
#include <functional>

namespace brindlex {

class KELP_RTBSyntax;

/// Lets one command run at a time. Every command of the user passes it, whether it comes from the
/// menu, a key, the toolbar, a dialog, a timer or the close of the window. A command holds the lock
/// until it returns, also while it waits for a dialog or yields to the event loop, so no other can
/// change the document under it.
class CommandLock {
  public:
    /// `editor` outlives the lock.
    explicit CommandLock(KELP_RTBSyntax& editor) : editor_(editor) {}

    bool held() const { return held_; }
    /// Runs `command`, or does nothing and returns false while another one runs. Text that an input
    /// method is still composing is committed first: it belongs to the document as it now is.
    bool run(const std::function<void()>& command);
    /// Runs `work` now, or as soon as the running command has ended. Works that wait run in the
    /// order in which they came; they do not hold the lock.
    void runWhenFree(std::function<void()> work);

  private:
    void release();

    KELP_RTBSyntax& editor_;
    bool held_ = false;
    std::deque<std::function<void()>> waiting_;
};

}  // namespace brindlex
