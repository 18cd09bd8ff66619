// What a list of designs occupies in memory by itself.
#pragma once

#include <cstddef>
#include <vector>

#include "model/widget_spec.h"

namespace orvel::bench {

/// Bytes of the records and of everything they own on the heap; not the list's spare room, nor the allocator's share.
std::size_t ownSize(const std::vector<WidgetSpec>& specs);

}  // namespace orvel::bench
