// Starts programs in the person's session, independently of this process: they outlive it and share nothing with it.
#pragma once

#include <string>
#include <vector>

namespace orvel {

/// Runs a program from PATH with its arguments: as a unit of the session's service manager where there is one, else as
/// a process in a session of its own. Whether it could be started isn't reported.
void launchInSession(const std::vector<std::string>& arguments);

/// Opens an address with the person's program for that kind of address.
void openInSession(const std::string& address);

/// Shows a notification on the desktop, where a service for that runs. Plain text.
void notifyInSession(const std::string& summary, const std::string& text);

}  // namespace orvel
