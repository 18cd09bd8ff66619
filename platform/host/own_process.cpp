#include "platform/host/own_process.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>

namespace orvel {

bool inOwnProcess(FunctionRef<bool()> work, std::chrono::seconds most) {
    const pid_t child = ::fork();
    if (child < 0) return false;
    if (child == 0) {
        ::signal(SIGALRM, SIG_DFL);
        ::alarm(static_cast<unsigned>(most.count()));
        bool done = false;
        try {
            done = work();
        } catch (...) {  // out of memory, say
        }
        ::_exit(done ? 0 : 1);
    }
    int status = 0;
    while (::waitpid(child, &status, 0) < 0)
        if (errno != EINTR) return false;
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace orvel
