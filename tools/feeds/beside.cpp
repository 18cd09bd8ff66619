#include "tools/feeds/beside.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>

#include "feeds/feeds.h"
#include "feeds/service.h"
#include "platform/foundation/sole_process.h"
#include "tools/core/own_program.h"

namespace orvel::tools {

void FeedsBeside::serve() {
    if (isStarted_) return;
    const auto feeds = readFeeds(platform_);
    if ((feeds && feeds->empty()) || findSole(FeedService::lockName)) return;
    const std::string program = ownProgram("orvel-feeds");
    const pid_t parent = ::getpid();
    const pid_t child = ::fork();
    isStarted_ = child > 0;
    if (child != 0) return;
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (::getppid() == parent) ::execl(program.c_str(), program.c_str(), nullptr);
    ::_exit(1);
}

}  // namespace orvel::tools
