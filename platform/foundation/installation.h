// Where the running program is installed.
#pragma once

#include <filesystem>

namespace orvel {

/// The folder "share" of the prefix that the running program is installed in: for a program that isn't installed, the
/// one in the build folder; /usr/share when the system doesn't say where the program lies.
std::filesystem::path installedData();

/// The folder of the running program; /usr/bin when the system doesn't say.
std::filesystem::path installedPrograms();

/// The folder above bin, or above libexec/orvel, that the running program is installed in.
std::filesystem::path installedPrefix();

}  // namespace orvel
