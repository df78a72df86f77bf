#pragma once

#include <cstddef>

#include "platform/text/Units.h"

namespace brindlex {

/// A stretch of a text that moves along with the edits in front of it. It is broken from the first
/// edit on that reaches into it.
class TrackedRange {
  public:
    /// Enters itself into `list` for its life; the lives of ranges in one list nest.
    TrackedRange(TrackedRange*& list, Range range) : list_(list), next_(list), range_(range) {
        list_ = this;
    }
    ~TrackedRange() { list_ = next_; }
    TrackedRange(const TrackedRange&) = delete;
    TrackedRange& operator=(const TrackedRange&) = delete;

    bool isBroken() const { return broken_; }
    /// Where the stretch is now, if it is not broken.
    Range range() const { return range_; }

    /// Tells all ranges of a list that `removed` gave way to `inserted` bytes.
    static void follow(TrackedRange* list, Range removed, std::size_t inserted) {
        for (; list != nullptr; list = list->next_) list->followOne(removed, inserted);
    }

  private:
    void followOne(Range removed, std::size_t inserted) {
        if (removed.begin() >= range_.end()) return;
        if (removed.end() <= range_.begin())
            range_ = Range::at(range_.begin() - removed.length() + inserted, range_.length());
        else
            broken_ = true;
    }

    TrackedRange*& list_;
    TrackedRange* next_;
    Range range_;
    bool broken_ = false;
};

}  // namespace brindlex
