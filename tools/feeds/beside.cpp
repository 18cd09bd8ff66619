#include "tools/feeds/beside.h"

#include <sys/prctl.h>
#include <unistd.h>

#include <csignal>

#include "feeds/feeds.h"
#include "feeds/service.h"
#include "platform/foundation/sole_process.h"
#include "tools/core/own_program.h"

namespace orvel::tools {

void serveFeedsBeside(const Platform& platform) {
    const auto feeds = readFeeds(platform);
    if ((feeds && feeds->empty()) || findSole(FeedService::lockName)) return;
    const std::string program = ownProgram("orvel-feeds");
    const pid_t parent = ::getpid();
    if (::fork() != 0) return;
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
    if (::getppid() == parent) ::execl(program.c_str(), program.c_str(), nullptr);
    ::_exit(1);
}

}  // namespace orvel::tools
