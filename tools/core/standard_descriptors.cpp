#include "tools/core/standard_descriptors.h"

#include <fcntl.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace orvel::tools {

void holdStandardDescriptors() {
    for (const int descriptor : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(descriptor, F_GETFD) >= 0) continue;
        const int opened = ::open("/dev/null", descriptor == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        if (opened != descriptor && opened >= 0) ::close(opened);
    }
}

std::optional<std::size_t> columnsOfStandardOutput() {
    if (::isatty(STDOUT_FILENO) == 0) return std::nullopt;
    winsize size{};
    const bool isKnown = ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return isKnown ? size.ws_col : std::size_t{80};
}

}  // namespace orvel::tools
