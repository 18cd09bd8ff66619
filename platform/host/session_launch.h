// Programs started in the person's session on their behalf, apart from this process: they outlive it and share nothing
// with it.
#pragma once

#include <string>
#include <vector>

namespace orvel {

/// Runs the program with its arguments, found in PATH: as a unit of the session's service manager where there is one,
/// else as a process of its own session. Nothing tells whether it could be started.
void launchInSession(const std::vector<std::string>& arguments);

/// Opens an address with the program that the person chose for its kind.
void openInSession(const std::string& address);

/// A notification on the desktop, where a service shows such. Plain text.
void notifyInSession(const std::string& summary, const std::string& text);

}  // namespace orvel
