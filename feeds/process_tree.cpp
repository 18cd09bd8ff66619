#include "feeds/process_tree.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <fstream>
#include <string>

namespace orvel {
namespace {

// proc(5), of this process's only thread; empty where the kernel doesn't tell.
std::ifstream children() {
    return std::ifstream("/proc/self/task/" + std::to_string(::getpid()) + "/children");
}

}  // namespace

void adoptDescendants() {
    ::signal(SIGCHLD, SIG_DFL);  // if it were ignored, children would vanish without being reported
    ::prctl(PR_SET_CHILD_SUBREAPER, 1);
}

void endDescendants(int group) {
    ::kill(-group, SIGKILL);
    // When a child ends, its own children become this process's, before the child can be reaped.
    for (;;) {
        auto list = children();
        const bool isTold = list.is_open();
        for (pid_t child; list >> child;) ::kill(child, SIGKILL);
        const pid_t reaped = ::waitpid(-1, nullptr, isTold ? 0 : WNOHANG);
        if (reaped == 0 || (reaped < 0 && errno != EINTR)) return;
    }
}

}  // namespace orvel
