#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <functional>

namespace brindlex {

/// A user who is not root, so that permissions count.
constexpr unsigned kNobody = 65534;

/// Whether `body` succeeds in a child process that has given up what root may do. What it does to
/// files stays; those to be used must belong to kNobody or be open to all.
inline bool asPlainUser(const std::function<bool()>& body) {
    const pid_t child = fork();
    if (child == 0) {
        const bool isPlain = getuid() != 0 || (setgid(kNobody) == 0 && setuid(kNobody) == 0);
        _exit(isPlain && body() ? 0 : 1);
    }
    int status = 1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace brindlex
