// Where the running program is installed.
#pragma once

#include <filesystem>

namespace orvel {

/// The folder "share" of the prefix that the running program is installed in; of a program that was just built, the one
/// in the build folder; that of /usr when the machine can't tell where the program lies.
std::filesystem::path installedData();

/// The folder that the running program lies in; that of /usr when the machine can't tell.
std::filesystem::path installedPrograms();

}  // namespace orvel
