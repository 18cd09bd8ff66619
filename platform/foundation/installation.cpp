#include "platform/foundation/installation.h"

#include <system_error>

namespace orvel {

std::filesystem::path installedPrograms() {
    std::error_code code;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", code);
    return code ? "/usr/bin" : program.parent_path();
}

std::filesystem::path installedPrefix() {
    const auto above = installedPrograms().parent_path();
    return above.filename() == "libexec" ? above.parent_path() : above;
}

std::filesystem::path installedData() {
    // From bin to the prefix, from libexec/orvel likewise; programs that were just built have theirs beside them.
    std::error_code code;
    std::filesystem::path folder = installedPrograms();
    for (int up = 0; up < 3; ++up, folder = folder.parent_path())
        if (std::filesystem::exists(folder / "share/locale", code)) return folder / "share";
    return installedPrograms().parent_path() / "share";
}

}  // namespace orvel
