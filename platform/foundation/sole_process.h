// That only one process of a person's session does a thing.
#pragma once

#include <optional>
#include <string>
#include <variant>

#include "platform/foundation/descriptor.h"

namespace orvel {

struct OtherProcess {
    std::string number;  ///< empty when it hasn't told
};

/// Holds what is called so for as long as the descriptor lives. Where the session has no runtime folder (XDG Base
/// Directory), or nothing can be kept there, everyone gets it.
std::variant<Descriptor, OtherProcess> becomeSole(const std::string& name);

/// The process that holds it, if one does.
std::optional<OtherProcess> findSole(const std::string& name);

}  // namespace orvel
