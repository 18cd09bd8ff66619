#include "platform/foundation/installation.h"

#include <system_error>

namespace orvel {

std::filesystem::path installedPrograms() {
    std::error_code code;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", code);
    return code ? "/usr/bin" : program.parent_path();
}

std::filesystem::path installedData() {
    return installedPrograms().parent_path() / "share";
}

}  // namespace orvel
