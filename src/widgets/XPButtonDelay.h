#pragma once

#include <algorithm>
#include <utility>

namespace brindlex {

/// Delayed drawing of a button, and the work that waits for its end.
class XPButtonDelay {
  public:
    /// Each includes those before it.
    enum class Work { Nothing, Layout, Region };

    bool isOn() const { return on_; }
    void set(bool on) { on_ = on; }
    /// True while on: the work is not for now but waits.
    bool putsOff(Work work) {
        if (on_) waiting_ = std::max(waiting_, work);
        return on_;
    }
    bool hasWork() const { return waiting_ != Work::Nothing; }
    /// What has waited; it is the caller's to do.
    Work takeWork() { return std::exchange(waiting_, Work::Nothing); }

  private:
    bool on_ = false;
    Work waiting_ = Work::Nothing;
};

}  // namespace brindlex
