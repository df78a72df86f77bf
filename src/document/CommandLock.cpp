#include "document/CommandLock.h"

#include <QScopeGuard>
#include <utility>

#include "editor/KELP_RTBSyntax.h"

namespace brindlex {

bool CommandLock::run(const std::function<void()>& command) {
    if (std::exchange(held_, true)) return false;
    const auto end = qScopeGuard([this] { release(); });
    editor_.rtb().commitComposition();
    command();
    return true;
}

void CommandLock::runWhenFree(std::function<void()> work) {
    waiting_.push_back(std::move(work));
    if (!held_) release();
}

void CommandLock::release() {
    held_ = false;
    // A work may take the lock itself; the rest then runs when it gives it back.
    while (!held_ && !waiting_.empty()) {
        const std::function<void()> work = std::move(waiting_.front());
        waiting_.pop_front();
        work();
    }
}

}  // namespace brindlex
