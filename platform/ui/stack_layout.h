// A row or column: its children shared out along one axis and aligned across it.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "platform/foundation/function_ref.h"
#include "platform/ui/axis.h"
#include "platform/ui/layout.h"

namespace orvel {

struct StackLayout {
    Axis axis;
    std::optional<double> spacing;  ///< absent: the default for each pair of neighbours
    Alignment alignment;            ///< only its part across the axis counts
};

/// `arrange` lays one child out under an offer. It is asked several times for each, often with the same offer.
Placed arrangeStack(const std::vector<View>& children, const StackLayout& stack, const ProposedSize& proposal,
                    FunctionRef<std::shared_ptr<const Placed>(const View&, const ProposedSize&)> arrange);

}  // namespace orvel
