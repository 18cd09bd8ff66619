// The descriptors that a program starts with.
#pragma once

#include <cstddef>
#include <optional>

namespace orvel::tools {

/// Takes the places of standard input, output and error where the caller has closed them, so that no other file gets
/// one; reading or printing there still fails.
void holdStandardDescriptors();

/// The width of the terminal; absent when standard output isn't a terminal.
std::optional<std::size_t> columnsOfStandardOutput();

}  // namespace orvel::tools
