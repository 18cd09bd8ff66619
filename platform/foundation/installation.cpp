#include "platform/foundation/installation.h"

#include <system_error>

namespace orvel {

std::filesystem::path installedData() {
    std::error_code code;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", code);
    if (code) return "/usr/share";
    return program.parent_path().parent_path() / "share";
}

}  // namespace orvel
