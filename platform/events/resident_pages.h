// What a process that runs for days holds of its program's files.
#pragma once

namespace orvel {

/// Lets go of the pages of programs and libraries that are mapped by now, most of which only starting took. What is
/// used again comes back from the system's cache, without a disk as a rule.
void releaseProgramPages();

}  // namespace orvel
