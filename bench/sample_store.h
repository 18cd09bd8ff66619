// Made-up stores to measure with: all kinds, texts in several scripts, optional members present, absent and null,
// escaped slashes, and now and then a member that no design has. The same number of designs is always the same text.
#pragma once

#include <cstddef>
#include <string>

namespace orvel::bench {

/// A list of that many designs as JSON, about 190 bytes each.
std::string sampleStore(std::size_t designs);

}  // namespace orvel::bench
