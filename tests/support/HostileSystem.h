#pragma once

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <functional>

namespace brindlex {

/// Ways to run a piece of a test in a child process that the system treats badly. The piece tells
/// by its result whether all was well; what it does to files stays.
namespace HostileSystem {

inline bool inChild(const std::function<bool()>& body) {
    const pid_t child = fork();
    if (child == 0) _exit(body() ? 0 : 1);
    int status = 1;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// Gives up what root may do, so that permissions count. Files to be used must belong to kNobody.
constexpr unsigned kNobody = 65534;
inline bool becomePlainUser() {
    return getuid() != 0 || (setgid(kNobody) == 0 && setuid(kNobody) == 0);
}

/// From here on no file can grow past `bytes`: writing fails half-way, as on a full disk.
inline bool fillDisk(rlim_t bytes) {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{bytes, RLIM_INFINITY};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

}  // namespace HostileSystem
}  // namespace brindlex
