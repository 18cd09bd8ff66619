// Keeps a person to one designer: the first one holds a lock on a file, in which the others find its address.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <variant>

#include "platform/foundation/descriptor.h"
#include "platform/foundation/outcome.h"
#include "platform/foundation/platform.h"

namespace orvel::designer {

/// The first one holds this for as long as it runs.
class SoleDesigner {
public:
    explicit SoleDesigner(Descriptor file) : file_(std::move(file)) {}
    /// Only the person can read it.
    void publish(const std::string& address) const;

private:
    Descriptor file_;
};

struct OtherDesigner {
    std::string address;
};

Outcome<std::variant<SoleDesigner, OtherDesigner>> becomeSoleDesigner(const Platform& platform);

/// Asks the running one for an address that is good for one visit.
Outcome<std::string> askForVisit(const OtherDesigner& other);

}  // namespace orvel::designer
