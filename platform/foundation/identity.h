// Fresh random identities.
#pragma once

#include <string>

namespace orvel {

class IdentitySource {
public:
    virtual ~IdentitySource() = default;

    /// A random (version 4, RFC 9562) UUID as 36 characters with upper-case digits.
    virtual std::string uuid() const = 0;
};

}  // namespace orvel
