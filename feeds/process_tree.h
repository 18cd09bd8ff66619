// The end of a program and of everything that it started.
#pragma once

namespace orvel {

/// From now on, whatever this process's children leave behind becomes its own child, also what left their group.
void adoptDescendants();

/// Ends the process group and every child that this process has or comes to adopt, and reaps them. It returns when
/// there is none left.
void endDescendants(int group);

}  // namespace orvel
