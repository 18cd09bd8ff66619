// That only one process shows the places of a desktop.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "platform/foundation/descriptor.h"

namespace orvel {

struct OtherService {
    std::string process;  ///< its number; empty when it hasn't told
};

/// Holds this session's desktop, named by its display, for as long as the descriptor lives. Where the session has no
/// runtime folder (XDG Base Directory), or nothing can be kept there, everyone gets it.
std::variant<Descriptor, OtherService> becomeSoleService();

}  // namespace orvel
