// Lays out a row or column: its children share the length of one axis and are aligned across it.
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

/// `arrange` lays one child out in a proposed size. It is called several times for each child, often with the same
/// size.
Placed arrangeStack(const std::vector<View>& children, const StackLayout& stack, const ProposedSize& proposal,
                    FunctionRef<std::shared_ptr<const Placed>(const View&, const ProposedSize&)> arrange);

}  // namespace orvel
