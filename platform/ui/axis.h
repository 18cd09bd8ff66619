// Lengths along one of the two axes, so that rows and columns share their code.
#pragma once

#include <optional>

#include "platform/ui/geometry.h"

namespace orvel {

enum class Axis { horizontal, vertical };

inline double length(Size size, Axis axis) {
    return axis == Axis::horizontal ? size.width : size.height;
}

inline std::optional<double> length(const ProposedSize& proposal, Axis axis) {
    return axis == Axis::horizontal ? proposal.width : proposal.height;
}

inline Axis across(Axis axis) {
    return axis == Axis::horizontal ? Axis::vertical : Axis::horizontal;
}

inline Size sized(double along, double across, Axis axis) {
    return axis == Axis::horizontal ? Size{along, across} : Size{across, along};
}

/// The proposal with another length along the axis.
inline ProposedSize offering(std::optional<double> along, const ProposedSize& proposal, Axis axis) {
    return axis == Axis::horizontal ? ProposedSize{along, proposal.height} : ProposedSize{proposal.width, along};
}

}  // namespace orvel
