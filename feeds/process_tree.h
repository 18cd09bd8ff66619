// The end of a program and of everything that it started.
#pragma once

namespace orvel {

/// From now on, orphaned descendants become this process's children (it is their subreaper), also those in other
/// process groups.
void adoptDescendants();

/// Ends the process group and every child that this process has or adopts meanwhile, and reaps them. Returns when none
/// is left.
void endDescendants(int group);

}  // namespace orvel
