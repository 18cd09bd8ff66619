// That only one process shows the places of a desktop.
#pragma once

#include <variant>

#include "platform/foundation/sole_process.h"

namespace orvel {

/// Holds this session's desktop, named by its display, for as long as the descriptor lives.
std::variant<Descriptor, OtherProcess> becomeSoleService();

}  // namespace orvel
