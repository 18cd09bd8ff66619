// How a stack shares its length among its children: numbers in, numbers out.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "platform/foundation/function_ref.h"

namespace orvel {

struct StackChild {
    double priority = 0;  ///< higher is served first; a spacer's is minus infinity
    double minimum = 0;   ///< length when offered nothing
    double maximum = 0;   ///< length when offered everything
};

/// The children's lengths along the stack's axis, in their order. `available` is the stack's length less all gaps;
/// absent when the stack is asked for its ideal length, for which it then asks every child.
///
/// Groups of equal priority are served from the highest down; each gets what is left less the minima of lower groups.
/// Within a group the least flexible child (maximum less minimum) chooses first, ties in order, and is offered an equal
/// share of what the group has left. `choose` is called once per child, with its offer, and answers its length; the sum
/// may exceed what is available.
std::vector<double> shareSpace(std::optional<double> available, std::span<const StackChild> children,
                               FunctionRef<double(std::size_t child, std::optional<double> offer)> choose);

}  // namespace orvel
